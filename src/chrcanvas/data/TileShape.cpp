// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileShape.h"

#include <algorithm>
#include <iterator>

namespace kestrel {

TileShape::TileShape(const std::vector<int>& tileNumbers, std::size_t tileCount) {
    const auto exists = [tileCount](int number) {
        return number >= 0 && static_cast<std::size_t>(number) < tileCount;
    };
    int left = TilesPerRow;
    int right = -1;
    int top = 0;
    int bottom = -1;
    for (const int number : tileNumbers) {
        if (exists(number)) {
            const int row = number / TilesPerRow;
            left = std::min(left, number % TilesPerRow);
            right = std::max(right, number % TilesPerRow);
            top = bottom < 0 ? row : std::min(top, row);
            bottom = std::max(bottom, row);
        }
    }
    if (right < 0) {
        return;
    }
    m_left = left;
    m_top = top;
    m_columns = right - left + 1;
    m_rows = bottom - top + 1;
    m_cells.assign(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows), NoTile);
    for (const int number : tileNumbers) {
        if (exists(number)) {
            const int cell = (number / TilesPerRow - top) * m_columns + number % TilesPerRow - left;
            int& entry = m_cells[static_cast<std::size_t>(cell)];
            m_count += entry == NoTile ? 1 : 0;
            entry = number;
        }
    }
}

int TileShape::tileAt(int column, int row) const {
    if (column < 0 || row < 0 || column >= m_columns || row >= m_rows) {
        return NoTile;
    }
    const int cell = row * m_columns + column;
    return m_cells[static_cast<std::size_t>(cell)];
}

int TileShape::firstCell() const {
    return isEmpty() ? NoTile : m_top * TilesPerRow + m_left;
}

int TileShape::lastCell() const {
    return isEmpty() ? NoTile : (m_top + m_rows - 1) * TilesPerRow + m_left + m_columns - 1;
}

std::optional<TileShape::Cell> TileShape::cellOf(int number) const {
    if (number < 0) {
        return std::nullopt;
    }
    const Cell cell{number % TilesPerRow - m_left, number / TilesPerRow - m_top};
    return tileAt(cell.column, cell.row) == number ? std::optional(cell) : std::nullopt;
}

std::vector<int> TileShape::tiles() const {
    std::vector<int> tiles;
    tiles.reserve(m_count);
    std::copy_if(m_cells.begin(), m_cells.end(), std::back_inserter(tiles),
                 [](int number) { return number != NoTile; });
    return tiles;
}

} // namespace kestrel
