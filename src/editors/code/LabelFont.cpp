// SPDX-License-Identifier: MIT
#include "editors/code/LabelFont.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace kestrel {

namespace {

/// Digits narrower than this part of their usual width are harder to read than smaller ones.
constexpr qreal NarrowestStretch = 0.85;
constexpr int SmallestSize = 6;

} // namespace

LabelFont LabelFont::fitting(const QString& label, const QFont& font, qreal available) {
    const qreal width = QFontMetricsF(font).horizontalAdvance(label);
    if (width <= available) {
        return {font, width};
    }
    QFont fitted = font;
    const qreal factor = available / width;
    if (factor < NarrowestStretch) {
        const int size = QFontInfo(font).pixelSize();
        fitted.setPixelSize(
            std::max(SmallestSize, static_cast<int>(std::floor(size * factor / NarrowestStretch))));
    }
    // Glyphs may be hinted to whole pixels, so the result is measured; computed is only a start
    // that lies somewhat above it.
    const qreal unstretched = QFontMetricsF(fitted).horizontalAdvance(label);
    const int start = static_cast<int>(std::ceil(100 * available / unstretched)) + 5;
    for (int stretch = std::min(start, 100); stretch > 0; --stretch) {
        fitted.setStretch(stretch);
        const qreal fittedWidth = QFontMetricsF(fitted).horizontalAdvance(label);
        if (fittedWidth <= available) {
            return {fitted, fittedWidth};
        }
    }
    return {fitted, available};
}

} // namespace kestrel
