#include "chrcanvas/TilePainter.h"

#include <QPainter>
#include <QRegion>

#include <cstddef>

namespace kestrel {

void TilePainter::draw(QPainter& painter, const TileRenderer& renderer, const TileArea& area,
                       const QRect& screen, const QColor& background) {
    const int size = area.zoom * TileSide;
    const QRect wanted =
        screen.translated(-area.origin) & QRect(0, 0, area.columns * size, area.rows * size);
    const QRect cells = wanted.isEmpty()
                            ? QRect()
                            : QRect(QPoint(wanted.left() / size, wanted.top() / size),
                                    QPoint(wanted.right() / size, wanted.bottom() / size));
    const QRect drawn = QRect(cells.topLeft() * size, cells.size() * size).translated(area.origin);
    QRegion empty = QRegion(screen) - drawn;
    if (m_buffer.width() < drawn.width() || m_buffer.height() < drawn.height()) {
        m_buffer = QImage(drawn.size().expandedTo(m_buffer.size()), QImage::Format_RGB32);
    }
    if (!cells.isEmpty() && !m_buffer.isNull()) {
        const auto stride =
            static_cast<std::size_t>(m_buffer.bytesPerLine()) / sizeof(std::uint32_t);
        for (int row = cells.top(); row <= cells.bottom(); ++row) {
            auto* line =
                reinterpret_cast<std::uint32_t*>(m_buffer.scanLine((row - cells.top()) * size));
            for (int column = cells.left(); column <= cells.right(); ++column) {
                if (const TileBytes* tile = area.tileAt(column, row)) {
                    renderer.draw(
                        *tile, area.zoom,
                        line + static_cast<std::ptrdiff_t>(size) * (column - cells.left()), stride);
                } else {
                    empty += QRect(area.origin + QPoint(column, row) * size, QSize(size, size));
                }
            }
        }
        painter.drawImage(drawn.topLeft(), m_buffer, QRect(QPoint(0, 0), drawn.size()));
    }
    for (const QRect& rect : empty) {
        painter.fillRect(rect, background);
    }
}

void drawOutline(QPainter& painter, const QRect& rect, int thickness, const QColor& color) {
    const QRect inside = rect.adjusted(thickness, thickness, -thickness, -thickness);
    for (const QRect& side : QRegion(rect) - inside) {
        painter.fillRect(side, color);
    }
}

} // namespace kestrel
