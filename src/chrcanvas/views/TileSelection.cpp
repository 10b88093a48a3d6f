// SPDX-License-Identifier: MIT
#include "chrcanvas/views/TileSelection.h"

#include <algorithm>
#include <utility>

namespace kestrel {

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

QRect TileSelection::cells() const {
    if (isEmpty()) {
        return {};
    }
    const QPoint first(m_anchor % TilesPerRow, m_anchor / TilesPerRow);
    const QPoint last(m_current % TilesPerRow, m_current / TilesPerRow);
    return {QPoint(std::min(first.x(), last.x()), std::min(first.y(), last.y())),
            QPoint(std::max(first.x(), last.x()), std::max(first.y(), last.y()))};
}

std::vector<std::vector<int>> TileSelection::rows(std::size_t tileCount) const {
    std::vector<std::vector<int>> rows;
    const QRect selected = cells();
    for (int y = selected.top(); y <= selected.bottom(); ++y) {
        std::vector<int> row;
        for (int x = selected.left(); x <= selected.right(); ++x) {
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
