// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileSelection.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kestrel {

TileSelection::TileSelection(int anchor, int current)
    : m_anchor(anchor)
    , m_current(current) {}

void TileSelection::set(int cell) {
    m_anchor = cell;
    m_current = cell;
}

void TileSelection::extendTo(int cell) {
    m_current = cell;
    if (m_anchor < 0) {
        m_anchor = cell;
    }
}

void TileSelection::clear() {
    set(None);
}

GridRect TileSelection::cells() const {
    if (isEmpty()) {
        return {};
    }
    const int anchorColumn = m_anchor % TilesPerRow;
    const int anchorRow = m_anchor / TilesPerRow;
    const int column = m_current % TilesPerRow;
    const int row = m_current / TilesPerRow;
    return {std::min(anchorColumn, column), std::min(anchorRow, row),
            std::abs(anchorColumn - column) + 1, std::abs(anchorRow - row) + 1};
}

std::vector<std::vector<int>> TileSelection::rows(std::size_t tileCount) const {
    std::vector<std::vector<int>> rows;
    const GridRect selected = cells();
    for (int y = selected.y; y < selected.y + selected.height; ++y) {
        std::vector<int> row;
        for (int x = selected.x; x < selected.x + selected.width; ++x) {
            const int number = y * TilesPerRow + x;
            if (static_cast<std::size_t>(number) < tileCount) {
                row.push_back(number);
            }
        }
        if (row.empty()) {
            break;
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace kestrel
