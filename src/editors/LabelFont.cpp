#include "editors/LabelFont.h"

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
    const int size = QFontInfo(font).pixelSize();
    int fittedSize = size;
    if (factor < NarrowestStretch) {
        fittedSize =
            std::max(SmallestSize, static_cast<int>(std::floor(size * factor / NarrowestStretch)));
        fitted.setPixelSize(fittedSize);
    }
    // Glyphs may be hinted to whole pixels, so the result is measured, not computed.
    for (int stretch = 100; stretch > 0; --stretch) {
        fitted.setStretch(stretch);
        const qreal fittedWidth = QFontMetricsF(fitted).horizontalAdvance(label);
        if (fittedWidth <= available) {
            return {fitted, fittedWidth};
        }
    }
    return {fitted, available};
}

} // namespace kestrel
