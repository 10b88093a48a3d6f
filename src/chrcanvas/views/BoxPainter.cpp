// SPDX-License-Identifier: MIT
#include "chrcanvas/views/BoxPainter.h"

#include <QFontInfo>
#include <QPen>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace kestrel {

namespace {

/// One of 0 to 255 as a part of the light that a screen gives (IEC 61966-2-1).
double linear(std::uint8_t value) {
    const double part = value / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// Relative luminance as the Web Content Accessibility Guidelines define it.
double luminance(const RgbColor& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

QColor screenColor(const RgbColor& color) {
    return {color.red, color.green, color.blue};
}

/// The text's size for a box, in pixels of the toolkit.
int textSize(const QFont& font, int boxSize) {
    constexpr int Smallest = 8;
    return std::max(Smallest, std::min(QFontInfo(font).pixelSize(), boxSize / 2));
}

} // namespace

BoxPainter::BoxPainter(QPainter& painter, const QFont& font, const QColor& frame)
    : m_painter(painter)
    , m_pixels(painter)
    , m_font(font)
    , m_frame(frame) {}

QColor BoxPainter::textColorOn(const RgbColor& color) {
    // Contrast with white is 1.05 / (l + 0.05), with black (l + 0.05) / 0.05.
    const double light = luminance(color) + 0.05;
    return light * light > 1.05 * 0.05 ? Qt::black : Qt::white;
}

void BoxPainter::box(const QRect& rect, const RgbColor& color, const QString& text,
                     bool crossedOut) {
    const QRectF fitted = m_pixels.fitted(rect);
    m_painter.fillRect(fitted, screenColor(color));
    // White and near-white boxes need an edge on the white pane.
    frame(fitted, m_pixels.lineWidth(1), QColor(0, 0, 0, 0x60));
    QFont font(m_font);
    font.setPixelSize(textSize(m_font, rect.width()));
    font.setStrikeOut(crossedOut);
    m_painter.setFont(font);
    m_painter.setPen(textColorOn(color));
    m_painter.drawText(fitted, Qt::AlignCenter, text);
}

void BoxPainter::picked(const QRect& rect) {
    const QRectF fitted = m_pixels.fitted(rect);
    const double dark = m_pixels.lineWidth(2);
    const double light = m_pixels.lineWidth(1);
    frame(fitted.adjusted(-dark, -dark, dark, dark), dark, m_frame);
    frame(fitted, light, Qt::white);
    const double side = std::max(6.0, fitted.width() / 4);
    const QPointF corner = fitted.topRight();
    m_painter.save();
    m_painter.setClipRect(fitted, Qt::IntersectClip);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(QPen(Qt::white, 2));
    m_painter.setBrush(m_frame);
    m_painter.drawPolygon(
        QPolygonF({corner, corner - QPointF(side, 0), corner + QPointF(0, side)}));
    m_painter.restore();
}

void BoxPainter::pickedPalette(const QRect& rect, int room) {
    const QRectF fitted = m_pixels.fitted(rect);
    const double width = m_pixels.lineWidth(2);
    frame(fitted.adjusted(-width, -width, width, width), width, m_frame);
    const double height = room / 2.0;
    const QPointF tip(room * 0.7, fitted.center().y());
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_frame);
    m_painter.drawPolygon(QPolygonF({tip, tip + QPointF(-height * 0.8, -height / 2),
                                     tip + QPointF(-height * 0.8, height / 2)}));
    m_painter.restore();
}

void BoxPainter::cursor(const QRect& rect) {
    const double width = m_pixels.lineWidth(1);
    const double inset = 2 * width;
    const QRectF line = m_pixels.fitted(rect).adjusted(inset, inset, -inset, -inset);
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
    const QRectF fitted = m_pixels.fitted(rect);
    const double width = m_pixels.lineWidth(1);
    frame(fitted, width, Qt::black);
    frame(fitted.adjusted(width, width, -width, -width), width, Qt::white);
}

void BoxPainter::frame(const QRectF& rect, double width, const QBrush& brush) {
    const double inner = rect.height() - 2 * width;
    m_painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), width), brush);
    m_painter.fillRect(QRectF(rect.left(), rect.bottom() - width, rect.width(), width), brush);
    m_painter.fillRect(QRectF(rect.left(), rect.top() + width, width, inner), brush);
    m_painter.fillRect(QRectF(rect.right() - width, rect.top() + width, width, inner), brush);
}

} // namespace kestrel
