// SPDX-License-Identifier: MIT
#include "chrcanvas/views/BoxPainter.h"

#include "widgets/Contrast.h"
#include "widgets/ScreenPixels.h"

#include <QFontInfo>
#include <QPen>
#include <QPolygonF>

#include <algorithm>

namespace kestrel {

namespace {

QColor screenColor(const RgbColor& color) {
    return {color.red, color.green, color.blue};
}

/// The text's size on a box, in device-independent pixels.
int textSize(const QFont& font, int boxSize) {
    constexpr int Smallest = 8;
    return std::max(Smallest, std::min(QFontInfo(font).pixelSize(), boxSize / 2));
}

} // namespace

BoxPainter::BoxPainter(QPainter& painter, const QFont& font, const QColor& frame)
    : m_painter(painter)
    , m_font(font)
    , m_frame(frame) {}

QColor BoxPainter::textColorOn(const RgbColor& color) {
    const QColor background = screenColor(color);
    return contrast(background, Qt::black) > contrast(background, Qt::white) ? Qt::black
                                                                             : Qt::white;
}

void BoxPainter::box(const QRect& rect, const RgbColor& color, const QString& text,
                     bool crossedOut) {
    const QRectF place = fitted(m_painter, rect);
    m_painter.fillRect(place, screenColor(color));
    // White and near-white boxes need an edge on the white pane.
    frame(place, fittedWidth(m_painter, 1), QColor(0, 0, 0, 0x60));
    QFont font(m_font);
    font.setPixelSize(textSize(m_font, rect.width()));
    font.setStrikeOut(crossedOut);
    m_painter.setFont(font);
    m_painter.setPen(textColorOn(color));
    m_painter.drawText(place, Qt::AlignCenter, text);
}

void BoxPainter::picked(const QRect& rect) {
    const QRectF place = fitted(m_painter, rect);
    const double dark = fittedWidth(m_painter, 2);
    const double light = fittedWidth(m_painter, 1);
    frame(place.adjusted(-dark, -dark, dark, dark), dark, m_frame);
    frame(place, light, Qt::white);
    const double side = std::max(6.0, place.width() / 4);
    const QPointF corner = place.topRight();
    m_painter.save();
    m_painter.setClipRect(place, Qt::IntersectClip);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(QPen(Qt::white, 2));
    m_painter.setBrush(m_frame);
    m_painter.drawPolygon(
        QPolygonF({corner, corner - QPointF(side, 0), corner + QPointF(0, side)}));
    m_painter.restore();
}

void BoxPainter::pickedPalette(const QRect& rect, int room) {
    const QRectF place = fitted(m_painter, rect);
    const double width = fittedWidth(m_painter, 2);
    frame(place.adjusted(-width, -width, width, width), width, m_frame);
    const double height = room / 2.0;
    const QPointF tip(room * 0.7, place.center().y());
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_frame);
    m_painter.drawPolygon(QPolygonF({tip, tip + QPointF(-height * 0.8, -height / 2),
                                     tip + QPointF(-height * 0.8, height / 2)}));
    m_painter.restore();
}

void BoxPainter::cursor(const QRect& rect) {
    const double width = fittedWidth(m_painter, 1);
    const double inset = 2 * width;
    const QRectF line = fitted(m_painter, rect).adjusted(inset, inset, -inset, -inset);
    frame(line, width, Qt::white);
    QPen pen(Qt::black, width, Qt::CustomDashLine);
    pen.setDashPattern({3, 3});
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    m_painter.setPen(pen);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(line.adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

void BoxPainter::hover(const QRect& rect) {
    const QRectF place = fitted(m_painter, rect);
    const double width = fittedWidth(m_painter, 1);
    frame(place, width, Qt::black);
    frame(place.adjusted(width, width, -width, -width), width, Qt::white);
}

void BoxPainter::frame(const QRectF& rect, double width, const QBrush& brush) {
    const double inner = rect.height() - 2 * width;
    m_painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), width), brush);
    m_painter.fillRect(QRectF(rect.left(), rect.bottom() - width, rect.width(), width), brush);
    m_painter.fillRect(QRectF(rect.left(), rect.top() + width, width, inner), brush);
    m_painter.fillRect(QRectF(rect.right() - width, rect.top() + width, width, inner), brush);
}

} // namespace kestrel
