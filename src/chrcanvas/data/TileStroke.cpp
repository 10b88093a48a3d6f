// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileStroke.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kestrel {

TileStroke::TileStroke(TileData& tiles, TileShape shape, int value, int x, int y)
    : m_tiles(&tiles)
    , m_shape(std::move(shape))
    , m_value(value)
    , m_x(x)
    , m_y(y)
    , m_area{x, y, 1, 1} {
    paint(x, y);
}

void TileStroke::lineTo(int x, int y) {
    m_changed.clear();
    const int width = std::abs(x - m_x);
    const int height = std::abs(y - m_y);
    const int stepX = x < m_x ? -1 : 1;
    const int stepY = y < m_y ? -1 : 1;
    m_area = {std::min(x, m_x), std::min(y, m_y), width + 1, height + 1};
    // Bresenham's line: the error says on which side of the ideal line the present pixel lies.
    int error = width - height;
    while (m_x != x || m_y != y) {
        const int doubled = 2 * error;
        if (doubled > -height) {
            error -= height;
            m_x += stepX;
        }
        if (doubled < width) {
            error += width;
            m_y += stepY;
        }
        paint(m_x, m_y);
    }
}

void TileStroke::paint(int x, int y) {
    // Outside on the left or above, the division would round towards the first tile.
    const int tile =
        x < 0 || y < 0 ? TileShape::NoTile : m_shape.tileAt(x / TileSide, y / TileSide);
    if (tile == TileShape::NoTile) {
        return;
    }
    const auto number = static_cast<std::size_t>(tile);
    if (m_tiles->pixel(number, x % TileSide, y % TileSide) == m_value) {
        return;
    }
    m_before.try_emplace(number, m_tiles->tile(number));
    m_tiles->setPixel(number, x % TileSide, y % TileSide, m_value);
    const auto place = std::lower_bound(m_changed.begin(), m_changed.end(), tile);
    if (place == m_changed.end() || *place != tile) {
        m_changed.insert(place, tile);
    }
}

std::vector<TileChange> TileStroke::changes() const {
    std::vector<TileChange> changes;
    changes.reserve(m_before.size());
    for (const auto& [number, before] : m_before) {
        changes.push_back({number, before, m_tiles->tile(number)});
    }
    return changes;
}

} // namespace kestrel
