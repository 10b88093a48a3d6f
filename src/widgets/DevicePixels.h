// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QTransform>

class QPainter;

namespace kestrel {

/// Fits rectangles to whole pixels of the screen, so that edges are crisp also where a unit of the
/// toolkit is one and a half of them.
class DevicePixels {
public:
    /// For a painter that has not been moved or scaled since it was begun.
    explicit DevicePixels(const QPainter& painter);

    /// The rectangle with each edge moved to the nearest edge of a screen pixel. Edges that two
    /// rectangles share stay shared.
    QRectF fitted(const QRectF& rect) const;

    /// `width` in whole screen pixels, at least one; in the toolkit's units.
    double lineWidth(double width) const;

private:
    QTransform m_toDevice;
    QTransform m_fromDevice;
};

} // namespace kestrel
