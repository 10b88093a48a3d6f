// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileData.h"

#include <cstring>

namespace kestrel {

TileData::TileData(std::size_t tileCount)
    : m_tiles(tileCount) {}

TileData::TileData(const std::string& bytes)
    : m_tiles(bytes.size() / BytesPerTile) {
    if (!m_tiles.empty()) {
        std::memcpy(m_tiles.data(), bytes.data(), m_tiles.size() * BytesPerTile);
    }
}

bool TileData::contains(int number) const {
    return number >= 0 && static_cast<std::size_t>(number) < m_tiles.size();
}

int TileData::pixel(std::size_t number, int x, int y) const {
    return pixelInRow(decodeRow(rowPlanes(m_tiles[number], y)), x);
}

void TileData::setPixel(std::size_t number, int x, int y, int value) {
    TileBytes& tile = m_tiles[number];
    const auto row = static_cast<std::size_t>(y);
    const unsigned shift = 7U - static_cast<unsigned>(x);
    const unsigned mask = 1U << shift;
    const auto put = [&](std::uint8_t& plane, unsigned bit) {
        plane = static_cast<std::uint8_t>((plane & ~mask) | (bit & 1U) << shift);
    };
    put(tile[row], static_cast<unsigned>(value));
    put(tile[row + TileSide], static_cast<unsigned>(value) >> 1);
}

std::optional<std::string> TileData::toData() const {
    std::string bytes(m_tiles.size() * BytesPerTile, '\0');
    if (!m_tiles.empty()) {
        std::memcpy(bytes.data(), m_tiles.data(), bytes.size());
    }
    return bytes;
}

} // namespace kestrel
