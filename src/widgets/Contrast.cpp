// SPDX-License-Identifier: MIT
#include "widgets/Contrast.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace kestrel {

namespace {

/// A component of an sRGB colour as a part of the light that a screen gives (IEC 61966-2-1).
double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

} // namespace

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace kestrel
