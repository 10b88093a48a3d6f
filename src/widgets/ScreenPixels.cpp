// SPDX-License-Identifier: MIT
#include "widgets/ScreenPixels.h"

#include <QPainter>
#include <QRegion>
#include <QTransform>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace kestrel {

namespace {

bool isWhole(double number) {
    return std::floor(number) == number;
}

} // namespace

void countInScreenPixels(QPainter& painter) {
    const QTransform toScreen = painter.deviceTransform();
    const QPointF corner = toScreen.map(QPointF(0, 0));
    painter.setWorldTransform(
        QTransform::fromTranslate(std::round(corner.x()), std::round(corner.y())) *
        toScreen.inverted());
}

QSize screenSize(const QWidget& widget, const QSize& size) {
    const double scale = widget.devicePixelRatioF();
    return {static_cast<int>(std::floor(size.width() * scale)),
            static_cast<int>(std::floor(size.height() * scale))};
}

QPoint screenPosition(const QWidget& widget, const QPointF& position) {
    const double scale = widget.devicePixelRatioF();
    return {static_cast<int>(std::floor(position.x() * scale)),
            static_cast<int>(std::floor(position.y() * scale))};
}

QRect widgetRect(const QWidget& widget, const QRect& screen) {
    const double scale = widget.devicePixelRatioF();
    const int room = isWhole(scale) ? 0 : 1;
    const QPoint topLeft(static_cast<int>(std::floor(screen.left() / scale)) - room,
                         static_cast<int>(std::floor(screen.top() / scale)) - room);
    const QPoint end(static_cast<int>(std::ceil((screen.right() + 1) / scale)) + room,
                     static_cast<int>(std::ceil((screen.bottom() + 1) / scale)) + room);
    return {topLeft, end - QPoint(1, 1)};
}

QRect screenRect(const QWidget& widget, const QRect& rect) {
    const double scale = widget.devicePixelRatioF();
    const int room = isWhole(scale) ? 0 : 1;
    const QPoint topLeft(static_cast<int>(std::floor(rect.left() * scale)) - room,
                         static_cast<int>(std::floor(rect.top() * scale)) - room);
    const QPoint end(static_cast<int>(std::ceil((rect.right() + 1) * scale)) + room,
                     static_cast<int>(std::ceil((rect.bottom() + 1) * scale)) + room);
    // What lies beside the widget belongs to its neighbours.
    const QRect whole(0, 0, static_cast<int>(std::ceil(widget.width() * scale)),
                      static_cast<int>(std::ceil(widget.height() * scale)));
    return QRect(topLeft, end - QPoint(1, 1)) & whole;
}

int thinLine(const QWidget& widget) {
    return std::max(1, static_cast<int>(std::floor(widget.devicePixelRatioF())));
}

void drawOutline(QPainter& painter, const QRect& rect, int thickness, const QColor& color) {
    const QRect inside = rect.adjusted(thickness, thickness, -thickness, -thickness);
    for (const QRect& side : QRegion(rect) - inside) {
        painter.fillRect(side, color);
    }
}

QRectF fitted(const QPainter& painter, const QRectF& rect) {
    const QTransform toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double fittedWidth(const QPainter& painter, double width) {
    const double scale = painter.deviceTransform().m11();
    return scale > 0 ? std::max(1.0, std::round(width * scale)) / scale : width;
}

} // namespace kestrel
