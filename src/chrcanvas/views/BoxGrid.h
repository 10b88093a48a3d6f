// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/BoxPosition.h"
#include "chrcanvas/data/PaletteBox.h"

#include <QRect>
#include <QSize>

#include <optional>
#include <vector>

namespace kestrel {

/// The layout of a selector's boxes: palettes below one another, each in as many rows as it needs.
/// In device-independent pixels.
class BoxGrid {
public:
    /// The space between two boxes, which the marks of either need.
    static constexpr int Gap = 4;

    /// `counts` are the numbers of boxes of the palettes; `boxesPerRow` is at least 1. The boxes
    /// begin at `left` and are `boxSize` wide and high.
    BoxGrid(std::vector<int> counts, int boxesPerRow, int left, int boxSize);

    QSize size() const;
    int boxSize() const { return m_boxSize; }
    int paletteCount() const { return static_cast<int>(m_counts.size()); }
    /// The number of boxes of a palette; 0 for one that is not there.
    int boxCount(int paletteNumber) const;
    /// The number of all boxes.
    int boxCount() const;
    /// The box at a place in the order of all boxes; nothing where there is none.
    std::optional<PaletteBox> boxNumber(int index) const;
    /// The place of a box, which is there, in that order.
    int indexOf(PaletteBox box) const;

    /// A box without the gap around it.
    QRect rect(PaletteBox box) const;
    /// All boxes of a palette, without the gap around them.
    QRect paletteRect(int paletteNumber) const;

    BoxPosition position(PaletteBox box) const;
    /// The box at a column and a row of the grid; nothing where there is none.
    std::optional<PaletteBox> boxAt(BoxPosition position) const;
    /// The box under a point; half of the gap belongs to each neighbour.
    std::optional<PaletteBox> boxAt(QPoint point) const;
    /// The last box of a row of the grid; nothing where there is no such row.
    std::optional<PaletteBox> lastInRow(int y) const;

private:
    int pitch() const { return m_boxSize + Gap; }
    int rowsOf(int paletteNumber) const;

    std::vector<int> m_counts;
    std::vector<int> m_firstRows;
    int m_boxesPerRow;
    int m_left;
    int m_boxSize;
    int m_rows = 0;
};

} // namespace kestrel
