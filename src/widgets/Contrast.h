// SPDX-License-Identifier: MIT
#pragma once

class QColor;

namespace kestrel {

/// How bright a colour is to the eye, from 0 for black to 1 for white: the relative luminance of
/// the Web Content Accessibility Guidelines 2, with the constant 0.04045 of IEC 61966-2-1 (before
/// May 2021 the guidelines had 0.03928, from an older version of that standard).
double luminance(const QColor& color);

/// The contrast ratio of two colours, from 1 for equal ones to 21 for black and white (WCAG 2,
/// "contrast ratio").
double contrast(const QColor& one, const QColor& other);

} // namespace kestrel
