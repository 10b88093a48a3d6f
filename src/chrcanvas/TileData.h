#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace kestrel {

/// The tiles of one graphics file. NES pattern data: 16 bytes a tile of 8 x 8 pixels, the low bits
/// of its rows first, then the high bits (nesdev wiki, "PPU pattern tables").
class TileData {
public:
    static constexpr std::size_t BytesPerTile = 16;

    /// This many tiles, every pixel of value 0.
    explicit TileData(std::size_t tileCount);

    std::size_t tileCount() const;

    /// The bytes of the file; nothing when the tiles have no byte form.
    std::optional<std::string> toData() const;

private:
    std::string m_bytes;
};

} // namespace kestrel
