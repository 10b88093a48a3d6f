// SPDX-License-Identifier: MIT
#include "chrcanvas/views/TilePainter.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>

namespace kestrel {

namespace {

/// Lays a colour that is partly transparent over opaque pixels.
class Glaze {
public:
    explicit Glaze(const QColor& color)
        : m_rest(255U - static_cast<QRgb>(color.alpha()))
        , m_redAndBlue((color.rgb() & RedAndBlue) * static_cast<QRgb>(color.alpha()))
        , m_green((color.rgb() >> 8 & Green) * static_cast<QRgb>(color.alpha())) {}

    void over(QRgb* pixels, int count) const {
        std::transform(pixels, pixels + count, pixels, [this](QRgb pixel) {
            return 0xFF000000U | divided((pixel & RedAndBlue) * m_rest + m_redAndBlue, RedAndBlue) |
                   divided((pixel >> 8 & Green) * m_rest + m_green, Green) << 8;
        });
    }

private:
    static constexpr QRgb RedAndBlue = 0x00FF00FF;
    static constexpr QRgb Green = 0x000000FF;

    /// Each of the products that stand in `sums`, 16 bits apart, divided by 255 and rounded.
    static QRgb divided(QRgb sums, QRgb mask) {
        const QRgb half = mask & 0x00800080U;
        return (sums + half + ((sums + half) >> 8 & mask)) >> 8 & mask;
    }

    QRgb m_rest;
    QRgb m_redAndBlue;
    QRgb m_green;
};

} // namespace

TilePainter::TilePainter(const TileRenderer::Colors& colors)
    : m_renderer(colors) {}

void TilePainter::setColors(const TileRenderer::Colors& colors) {
    m_renderer.set(colors, m_renderer.zoom());
}

void TilePainter::draw(QPainter& painter, const TileArea& area, const QRect& screen,
                       const QColor& background) {
    const int size = area.zoom * TileSide;
    const QRect wanted =
        screen.translated(-area.origin) & QRect(0, 0, area.columns * size, area.rows * size);
    const QRect cells = wanted.isEmpty()
                            ? QRect()
                            : QRect(QPoint(wanted.left() / size, wanted.top() / size),
                                    QPoint(wanted.right() / size, wanted.bottom() / size));
    const QRect drawn = QRect(cells.topLeft() * size, cells.size() * size).translated(area.origin);
    for (const QRect& rect : QRegion(screen) - drawn) {
        painter.fillRect(rect, background);
    }
    if (m_buffer.width() < drawn.width() || m_buffer.height() < drawn.height()) {
        m_buffer = QImage(drawn.size().expandedTo(m_buffer.size()), QImage::Format_RGB32);
    }
    if (!cells.isEmpty() && !m_buffer.isNull()) {
        m_renderer.set(m_renderer.colors(), area.zoom);
        drawCells(area, cells, background.rgb());
        const QRect shown = drawn & screen;
        painter.drawImage(shown.topLeft(), m_buffer, shown.translated(-drawn.topLeft()));
    }
}

void TilePainter::drawCells(const TileArea& area, const QRect& cells, QRgb background) {
    const int size = area.zoom * TileSide;
    const int width = cells.width() * size;
    const Glaze line(area.lineColor);
    for (int row = cells.top(); row <= cells.bottom(); ++row) {
        drawRow(area, cells, row, background);
        const int below = (row - cells.top() + 1) * size;
        for (int y = below - area.lineWidth; y < below; ++y) {
            line.over(reinterpret_cast<QRgb*>(m_buffer.scanLine(y)), width);
        }
    }
}

void TilePainter::drawRow(const TileArea& area, const QRect& cells, int row, QRgb background) {
    const int size = area.zoom * TileSide;
    const int width = cells.width() * size;
    m_row.clear();
    for (int column = cells.left(); column <= cells.right(); ++column) {
        m_row.push_back(area.tileAt(column, row));
    }
    const Glaze line(area.lineColor);
    for (int y = 0; y < TileSide; ++y) {
        const int first = (row - cells.top()) * size + y * area.zoom;
        auto* const pixels = reinterpret_cast<QRgb*>(m_buffer.scanLine(first));
        QRgb* cell = pixels;
        int column = cells.left();
        for (const TileBytes* tile : m_row) {
            if (tile != nullptr) {
                m_renderer.drawRow(*tile, y, cell);
            } else {
                std::fill_n(cell, size, background);
            }
            cell += size;
            if (++column < area.columns) {
                line.over(cell - area.lineWidth, area.lineWidth);
            }
        }
        for (int copy = 1; copy < area.zoom; ++copy) {
            std::copy_n(pixels, width, reinterpret_cast<QRgb*>(m_buffer.scanLine(first + copy)));
        }
    }
}

} // namespace kestrel
