// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileData.h"
#include "chrcanvas/data/TileRenderer.h"

#include <QColor>
#include <QImage>
#include <QPoint>

#include <functional>
#include <vector>

class QPainter;
class QRect;

namespace kestrel {

/// A grid of enlarged tiles on the screen.
struct TileArea {
    QPoint origin; ///< pixel of the screen where the grid's top left corner is
    int columns = 0;
    int rows = 0;
    int zoom = 1; ///< pixels of the screen that a tile's pixel is wide
    /// The tile in a cell of the grid; null for a gap.
    std::function<const TileBytes*(int column, int row)> tileAt;
    /// Lines between columns and below rows, that many pixels of the screen wide; 0 for none. What
    /// is below them shines through as far as their colour lets it.
    int lineWidth = 0;
    QColor lineColor;
};

/// Paints grids of tiles, of which it draws only what is asked for.
class TilePainter {
public:
    /// With one colour for each value of a pixel.
    explicit TilePainter(const TileRenderer::Colors& colors);
    void setColors(const TileRenderer::Colors& colors);

    /// Paints all of `screen`: tiles where there are any, `background` elsewhere. The painter
    /// counts in pixels of the screen.
    void draw(QPainter& painter, const TileArea& area, const QRect& screen,
              const QColor& background);

private:
    void drawCells(const TileArea& area, const QRect& cells, QRgb background);
    void drawRow(const TileArea& area, const QRect& cells, int row, QRgb background);

    TileRenderer m_renderer;
    QImage m_buffer; ///< kept for its memory, like the list
    std::vector<const TileBytes*> m_row;
};

} // namespace kestrel
