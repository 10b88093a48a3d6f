#pragma once

#include "chrcanvas/TileData.h"
#include "chrcanvas/TileRenderer.h"

#include <QImage>
#include <QPoint>

#include <functional>

class QColor;
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
};

/// Paints grids of tiles, of which it draws only what is asked for.
class TilePainter {
public:
    /// Paints all of `screen`: tiles where there are any, `background` elsewhere. The painter
    /// counts in pixels of the screen.
    void draw(QPainter& painter, const TileRenderer& renderer, const TileArea& area,
              const QRect& screen, const QColor& background);

private:
    QImage m_buffer; ///< kept for its memory
};

/// Draws a frame just inside `rect`. The painter counts in pixels of the screen.
void drawOutline(QPainter& painter, const QRect& rect, int thickness, const QColor& color);

} // namespace kestrel
