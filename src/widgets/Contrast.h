// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace kestrel {

/// How bright a colour is to the eye, from 0 for black to 1 for white: the relative luminance of
/// the Web Content Accessibility Guidelines 2, with the constant 0.04045 of IEC 61966-2-1 (before
/// May 2021 the guidelines had 0.03928, from an older version of that standard).
double luminance(const QColor& color);

/// The contrast ratio of two colours, from 1 for equal ones to 21 for black and white (WCAG 2,
/// "contrast ratio").
double contrast(const QColor& one, const QColor& other);

/// The contrast that text needs with its background (WCAG 2, success criterion 1.4.3).
inline constexpr double LeastTextContrast = 4.5;

/// `color`, or when that is hard to read on `background` the first colour that is not on the way
/// from it to black or to white, whichever stands out more. Never changes its hue.
QColor readable(const QColor& color, const QColor& background);

/// The red in which a text on `background` says that something is missing or wrong.
QColor readableRed(const QColor& background);

} // namespace kestrel
