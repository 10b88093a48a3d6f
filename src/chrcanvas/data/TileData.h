// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileCodec.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// One tile as it is stored: the low bits of its eight rows, then the high bits.
using TileBytes = std::array<std::uint8_t, 16>;

inline constexpr int TileSide = 8;    ///< pixels a tile is wide and high
inline constexpr int PixelValues = 4; ///< values that a pixel can have, from 0

/// The planes of row `y` of a tile.
constexpr RowPlanes rowPlanes(const TileBytes& tile, int y) {
    return {tile[static_cast<std::size_t>(y)],
            tile[static_cast<std::size_t>(y) + std::size_t{TileSide}]};
}

/// The tiles of one graphics file, edited in place. NES pattern data: 16 bytes a tile of 8 x 8
/// pixels (nesdev wiki, "PPU pattern tables").
class TileData {
public:
    static constexpr std::size_t BytesPerTile = std::tuple_size_v<TileBytes>;

    /// This many tiles, every pixel of value 0.
    explicit TileData(std::size_t tileCount);

    /// The tiles that `bytes` hold; bytes after the last whole tile are left out.
    explicit TileData(const std::string& bytes);

    std::size_t tileCount() const { return m_tiles.size(); }

    /// Whether there is a tile of this number.
    bool contains(int number) const;

    /// `number` is below tileCount(), in all of these.
    const TileBytes& tile(std::size_t number) const { return m_tiles[number]; }
    void setTile(std::size_t number, const TileBytes& bytes) { m_tiles[number] = bytes; }

    /// The value, 0 to 3, of the pixel `x` from the left and `y` from above, both below 8.
    int pixel(std::size_t number, int x, int y) const;
    void setPixel(std::size_t number, int x, int y, int value);

    /// The bytes of the file; nothing when the tiles have no byte form.
    std::optional<std::string> toData() const;

private:
    std::vector<TileBytes> m_tiles;
};

} // namespace kestrel
