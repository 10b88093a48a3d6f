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

/// A grid of enlarged tiles, in device pixels.
struct TileArea {
    QPoint origin; ///< the grid's top left corner
    int columns = 0;
    int rows = 0;
    int zoom = 1; ///< the width of a tile's pixel
    /// The tile in a cell of the grid; null for a gap.
    std::function<const TileBytes*(int column, int row)> tileAt;
    /// The width of the lines between columns and below rows; 0 for none. Their colour may be
    /// partly transparent.
    int lineWidth = 0;
    QColor lineColor;
};

/// Paints the visible part of grids of tiles.
class TilePainter {
public:
    /// With one colour for each value of a pixel.
    explicit TilePainter(const TileRenderer::Colors& colors);
    void setColors(const TileRenderer::Colors& colors);

    /// Paints all of `screen`: tiles where there are any, `background` elsewhere. The painter
    /// counts in device pixels.
    void draw(QPainter& painter, const TileArea& area, const QRect& screen,
              const QColor& background);

private:
    void drawCells(const TileArea& area, const QRect& cells, QRgb background);
    void drawRow(const TileArea& area, const QRect& cells, int row, QRgb background);

    TileRenderer m_renderer;
    QImage m_buffer; ///< kept for its memory, like m_row
    std::vector<const TileBytes*> m_row;
};

} // namespace kestrel
