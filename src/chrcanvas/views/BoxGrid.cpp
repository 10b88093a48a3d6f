// SPDX-License-Identifier: MIT
#include "chrcanvas/views/BoxGrid.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace kestrel {

BoxGrid::BoxGrid(std::vector<int> counts, int boxesPerRow, int left, int boxSize)
    : m_counts(std::move(counts))
    , m_boxesPerRow(std::max(1, boxesPerRow))
    , m_left(left)
    , m_boxSize(boxSize) {
    for (int number = 0; number < paletteCount(); ++number) {
        m_firstRows.push_back(m_rows);
        m_rows += rowsOf(number);
    }
}

QSize BoxGrid::size() const {
    return {m_left + Gap + m_boxesPerRow * pitch(), Gap + m_rows * pitch()};
}

int BoxGrid::boxCount(int paletteNumber) const {
    return paletteNumber >= 0 && paletteNumber < paletteCount()
               ? m_counts[static_cast<std::size_t>(paletteNumber)]
               : 0;
}

int BoxGrid::boxCount() const {
    return std::accumulate(m_counts.begin(), m_counts.end(), 0);
}

std::optional<PaletteBox> BoxGrid::boxNumber(int index) const {
    for (int number = 0; index >= 0 && number < paletteCount(); ++number) {
        if (index < boxCount(number)) {
            return PaletteBox{number, index};
        }
        index -= boxCount(number);
    }
    return std::nullopt;
}

int BoxGrid::indexOf(PaletteBox box) const {
    return std::accumulate(m_counts.begin(), m_counts.begin() + box.number, box.box);
}

int BoxGrid::rowsOf(int paletteNumber) const {
    return (boxCount(paletteNumber) + m_boxesPerRow - 1) / m_boxesPerRow;
}

QRect BoxGrid::rect(PaletteBox box) const {
    const BoxPosition place = position(box);
    return {m_left + Gap + place.x * pitch(), Gap + place.y * pitch(), m_boxSize, m_boxSize};
}

QRect BoxGrid::paletteRect(int paletteNumber) const {
    const int count = boxCount(paletteNumber);
    if (count == 0) {
        return {};
    }
    const int lastOfFirstRow = std::min(count, m_boxesPerRow) - 1;
    return rect({paletteNumber, 0})
        .united(rect({paletteNumber, lastOfFirstRow}))
        .united(rect({paletteNumber, count - 1}));
}

BoxPosition BoxGrid::position(PaletteBox box) const {
    if (box.number < 0 || box.number >= paletteCount()) {
        return {};
    }
    return {box.box % m_boxesPerRow,
            m_firstRows[static_cast<std::size_t>(box.number)] + box.box / m_boxesPerRow};
}

std::optional<PaletteBox> BoxGrid::boxAt(BoxPosition position) const {
    if (position.x < 0 || position.x >= m_boxesPerRow || position.y < 0 || position.y >= m_rows) {
        return std::nullopt;
    }
    const auto next = std::upper_bound(m_firstRows.begin(), m_firstRows.end(), position.y);
    const int number = static_cast<int>(next - m_firstRows.begin()) - 1;
    const int firstRow = m_firstRows[static_cast<std::size_t>(number)];
    const int box = (position.y - firstRow) * m_boxesPerRow + position.x;
    if (box >= boxCount(number)) {
        return std::nullopt;
    }
    return PaletteBox{number, box};
}

std::optional<PaletteBox> BoxGrid::boxAt(QPoint point) const {
    const int x = point.x() - m_left - Gap / 2;
    const int y = point.y() - Gap / 2;
    if (x < 0 || y < 0) {
        return std::nullopt;
    }
    return boxAt(BoxPosition{x / pitch(), y / pitch()});
}

std::optional<PaletteBox> BoxGrid::lastInRow(int y) const {
    for (int x = m_boxesPerRow - 1; x >= 0; --x) {
        if (const auto box = boxAt(BoxPosition{x, y})) {
            return box;
        }
    }
    return std::nullopt;
}

} // namespace kestrel
