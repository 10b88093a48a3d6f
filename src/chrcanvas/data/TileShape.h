// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace kestrel {

/// How many tiles a row has wherever tiles are shown, as pattern tables are usually laid out.
inline constexpr int TilesPerRow = 16;

/// The smallest rectangle of the grid of 16 tiles a row that holds all tiles of a list, with gaps
/// where a tile of the rectangle is not in the list.
class TileShape {
public:
    static constexpr int NoTile = -1;

    TileShape() = default;

    /// Numbers without a tile among `tileCount` tiles are skipped.
    TileShape(const std::vector<int>& tileNumbers, std::size_t tileCount);

    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    bool isEmpty() const { return m_columns == 0; }

    /// Whether there is at least one tile and no gap.
    bool isRectangle() const { return m_count != 0 && m_count == m_cells.size(); }

    /// The number of the tile in a cell of the rectangle, or NoTile for a gap and outside.
    int tileAt(int column, int row) const;

    /// The numbers of the rectangle's first and last cell, whether there are tiles or gaps; NoTile
    /// for both when the shape is empty.
    int firstCell() const;
    int lastCell() const;

    /// A column and a row of the rectangle.
    struct Cell {
        int column = 0;
        int row = 0;

        bool operator==(const Cell&) const = default;
    };

    /// The cell of a tile; nothing when it is not in the shape.
    std::optional<Cell> cellOf(int number) const;

    /// All tiles of the shape, row after row.
    std::vector<int> tiles() const;

    bool operator==(const TileShape&) const = default;

private:
    int m_left = 0; ///< the grid's column and row in which the rectangle begins
    int m_top = 0;
    int m_columns = 0;
    int m_rows = 0;
    std::size_t m_count = 0;
    std::vector<int> m_cells;
};

} // namespace kestrel
