// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/RgbColor.h"

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRect>
#include <QString>

namespace kestrel {

/// Paints the boxes of a selector and the marks on them. Every mark is a shape, and every line runs
/// beside one of the opposite brightness, so that it shows on any colour.
class BoxPainter {
public:
    /// For a fresh painter. `font` is that of the widget; the text on a box is never larger.
    BoxPainter(QPainter& painter, const QFont& font, const QColor& frame);

    /// A box in its colour with `text` on it, crossed out for a colour that is to be avoided.
    void box(const QRect& rect, const RgbColor& color, const QString& text, bool crossedOut);

    /// The mark of the picked box: a frame around it and a filled corner.
    void picked(const QRect& rect);

    /// The mark of the picked palette: a frame around all its boxes and an arrow in the first
    /// `room` device-independent pixels of the row.
    void pickedPalette(const QRect& rect, int room);

    /// Where the keyboard is: a dashed line within the box.
    void cursor(const QRect& rect);

    /// The box under the pointer: a thin line within it.
    void hover(const QRect& rect);

    /// Black or white, whichever is easier to read on the colour.
    static QColor textColorOn(const RgbColor& color);

private:
    /// A frame whose outer edge is `rect`.
    void frame(const QRectF& rect, double width, const QBrush& brush);

    QPainter& m_painter;
    QFont m_font;
    QColor m_frame;
};

} // namespace kestrel
