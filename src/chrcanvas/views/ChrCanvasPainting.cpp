// SPDX-License-Identifier: MIT
// How the pixel editor draws itself.
#include "chrcanvas/views/ChrCanvas.h"
#include "widgets/ScreenPixels.h"

#include <QPainter>
#include <QPaintEvent>

#include <algorithm>

namespace kestrel {

namespace {

/// Below this zoom a grid of pixels would hide the picture.
constexpr int SmallestGridZoom = 6;
/// Grey enough to be seen on each of the colours, faint enough to leave them what they are.
constexpr QColor PixelGridColor(0x80, 0x80, 0x80, 0x70);

} // namespace

void ChrCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    countInScreenPixels(painter);
    for (const QRect& rect : event->region()) {
        const QRect screen = screenRect(*viewport(), rect);
        drawTiles(painter, screen);
        drawGrids(painter, screen);
    }
    drawCursor(painter);
}

void ChrCanvas::drawTiles(QPainter& painter, const QRect& screen) {
    const TileShape& shape = m_document->shape();
    TileArea area;
    area.origin = origin();
    area.columns = shape.columns();
    area.rows = shape.rows();
    area.zoom = m_zoom;
    area.tileAt = [this, &shape](int column, int row) -> const TileBytes* {
        const int number = shape.tileAt(column, row);
        return number == TileShape::NoTile ? nullptr
                                           : &tileData()->tile(static_cast<std::size_t>(number));
    };
    m_painter.draw(painter, area, screen, viewport()->palette().color(QPalette::Button));
}

void ChrCanvas::drawGrids(QPainter& painter, const QRect& screen) const {
    const TileShape& shape = m_document->shape();
    const int size = m_zoom * TileSide;
    const QPoint start = origin();
    const int width = thinLine(*viewport());
    // A tile's frame reaches over its edge, so the neighbours of what is painted count, too.
    const QRect wanted = screen.adjusted(-width, -width, width, width).translated(-start);
    const int top = std::max(0, wanted.top() / size);
    const int bottom = std::min(shape.rows() - 1, wanted.bottom() / size);
    const int left = std::max(0, wanted.left() / size);
    const int right = std::min(shape.columns() - 1, wanted.right() / size);
    const QColor tileGridColor = viewport()->palette().color(QPalette::Active, QPalette::Highlight);
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= right; ++column) {
            if (shape.tileAt(column, row) == TileShape::NoTile) {
                continue;
            }
            const QRect tile(start + QPoint(column, row) * size, QSize(size, size));
            for (int i = 1; m_pixelGrid && m_zoom >= SmallestGridZoom && i < TileSide; ++i) {
                painter.fillRect(tile.left() + i * m_zoom, tile.top(), width, size, PixelGridColor);
                painter.fillRect(tile.left(), tile.top() + i * m_zoom, size, width, PixelGridColor);
            }
            if (m_tileGrid) {
                drawOutline(painter, tile.adjusted(-width, -width, width, width), 2 * width,
                            tileGridColor);
            }
        }
    }
}

void ChrCanvas::drawCursor(QPainter& painter) const {
    if (!isCursorShown() || m_document->tileAt(m_cursor.x(), m_cursor.y()) == TileShape::NoTile) {
        return;
    }
    const int width = thinLine(*viewport());
    const QRect pixel = pixelsOnScreen(QRect(m_cursor, QSize(1, 1)));
    drawOutline(painter, pixel, width, Qt::black);
    drawOutline(painter, pixel.adjusted(width, width, -width, -width), width, Qt::white);
}

} // namespace kestrel
