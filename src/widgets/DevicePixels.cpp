// SPDX-License-Identifier: MIT
#include "widgets/DevicePixels.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kestrel {

DevicePixels::DevicePixels(const QPainter& painter)
    : m_toDevice(painter.deviceTransform())
    , m_fromDevice(m_toDevice.inverted()) {}

QRectF DevicePixels::fitted(const QRectF& rect) const {
    const QRectF device = m_toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return m_fromDevice.mapRect(QRectF(topLeft, bottomRight));
}

double DevicePixels::lineWidth(double width) const {
    const double scale = m_toDevice.m11();
    return scale > 0 ? std::max(1.0, std::round(width * scale)) / scale : width;
}

} // namespace kestrel
