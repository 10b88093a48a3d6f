// SPDX-License-Identifier: MIT
#include "widgets/Contrast.h"

#include <algorithm>
#include <cmath>

namespace kestrel {

namespace {

/// A component of an sRGB colour as a part of the light that a screen gives (IEC 61966-2-1).
double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

bool isReadBetterInBlack(const QColor& background) {
    return contrast(background, Qt::black) > contrast(background, Qt::white);
}

/// The colour that is `step` of 255 steps from `color` to `end`.
QColor between(const QColor& color, const QColor& end, int step) {
    const auto part = [step](int from, int to) { return from + (to - from) * step / 255; };
    return {part(color.red(), end.red()), part(color.green(), end.green()),
            part(color.blue(), end.blue())};
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

QColor readable(const QColor& color, const QColor& background) {
    const QColor end = isReadBetterInBlack(background) ? Qt::black : Qt::white;
    QColor shade = color;
    for (int step = 1; step <= 255 && contrast(shade, background) < LeastTextContrast; ++step) {
        shade = between(color, end, step);
    }
    return shade;
}

QColor readableRed(const QColor& background) {
    const QColor forLight(0xd0, 0x00, 0x00);
    const QColor forDark(0xff, 0x6b, 0x6b);
    return readable(isReadBetterInBlack(background) ? forLight : forDark, background);
}

} // namespace kestrel
