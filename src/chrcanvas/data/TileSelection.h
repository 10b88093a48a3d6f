// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/GridRect.h"
#include "chrcanvas/data/TileShape.h"

#include <cstddef>
#include <vector>

namespace kestrel {

/// The rectangle of cells that is selected in a grid of 16 tiles a row: from the cell where the
/// selection began to the one where it is now. Cells are counted like tiles.
class TileSelection {
public:
    static constexpr int None = -1;

    TileSelection() = default;

    /// The rectangle with these two cells at opposite corners.
    TileSelection(int anchor, int current);

    int anchor() const { return m_anchor; }
    int current() const { return m_current; }
    bool isEmpty() const { return m_current < 0; }

    /// Selects one cell.
    void set(int cell);
    /// Moves the corner opposite to where the selection began; begins there if nothing is selected.
    void extendTo(int cell);
    void clear();

    /// The selected cells: columns and rows.
    GridRect cells() const;

    /// The numbers of the selected tiles of `tileCount`, row by row; rows without tiles left out.
    std::vector<std::vector<int>> rows(std::size_t tileCount) const;

    bool operator==(const TileSelection&) const = default;

private:
    int m_anchor = None;
    int m_current = None;
};

} // namespace kestrel
