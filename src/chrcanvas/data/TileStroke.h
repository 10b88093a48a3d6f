// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/GridRect.h"
#include "chrcanvas/data/TileChange.h"
#include "chrcanvas/data/TileData.h"
#include "chrcanvas/data/TileShape.h"

#include <map>
#include <vector>

namespace kestrel {

/// One stroke of the pencil over a shape of tiles: samples joined by straight lines without gaps.
/// Coordinates are pixels of the shape; pixels outside it or in its gaps are passed over.
class TileStroke {
public:
    /// Paints with `value`, 0 to 3, in `tiles`, which must outlive the stroke.
    TileStroke(TileData& tiles, TileShape shape, int value, int x, int y);

    /// The tiles that the last step changed, each once, in ascending order.
    const std::vector<int>& changedTiles() const { return m_changed; }

    /// The bounds of the last step's line, in pixels of the shape; may reach outside it.
    const GridRect& area() const { return m_area; }

    /// Draws a line from the last sample to this one.
    void lineTo(int x, int y);

    /// All that the stroke changed, as one step of a history.
    std::vector<TileChange> changes() const;

private:
    void paint(int x, int y);

    TileData* m_tiles;
    TileShape m_shape;
    int m_value;
    int m_x;
    int m_y;
    std::map<std::size_t, TileBytes> m_before;
    std::vector<int> m_changed;
    GridRect m_area;
};

} // namespace kestrel
