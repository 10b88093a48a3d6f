// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileClip.h"

#include <algorithm>
#include <cstring>

namespace kestrel {

namespace {

constexpr std::size_t PrefixSize = 2;

} // namespace

TileClip TileClip::of(const TileData& tiles, const TileShape& shape) {
    TileClip clip{shape.columns(), shape.rows(), {}};
    clip.tiles.reserve(static_cast<std::size_t>(clip.columns) *
                       static_cast<std::size_t>(clip.rows));
    for (int row = 0; row < clip.rows; ++row) {
        for (int column = 0; column < clip.columns; ++column) {
            const int number = shape.tileAt(column, row);
            clip.tiles.push_back(number == TileShape::NoTile
                                     ? TileBytes{}
                                     : tiles.tile(static_cast<std::size_t>(number)));
        }
    }
    return clip;
}

std::string TileClip::toBytes() const {
    std::string bytes;
    bytes.reserve(PrefixSize + tiles.size() * TileData::BytesPerTile);
    bytes.push_back(static_cast<char>(columns >> 8));
    bytes.push_back(static_cast<char>(columns & 0xFF));
    for (const TileBytes& tile : tiles) {
        bytes.append(tile.begin(), tile.end());
    }
    return bytes;
}

std::optional<TileClip> TileClip::fromBytes(const std::string& bytes) {
    if (bytes.size() <= PrefixSize || (bytes.size() - PrefixSize) % TileData::BytesPerTile != 0) {
        return std::nullopt;
    }
    const std::size_t count = (bytes.size() - PrefixSize) / TileData::BytesPerTile;
    const std::size_t columns = static_cast<std::size_t>(static_cast<unsigned char>(bytes[0]))
                                    << 8 |
                                static_cast<unsigned char>(bytes[1]);
    if (columns == 0 || columns > TilesPerRow || count % columns != 0) {
        return std::nullopt;
    }
    TileClip clip{static_cast<int>(columns), static_cast<int>(count / columns),
                  std::vector<TileBytes>(count)};
    std::memcpy(clip.tiles.data(), bytes.data() + PrefixSize, count * TileData::BytesPerTile);
    return clip;
}

std::vector<TileChange> TileClip::changesAt(const TileData& target, int number) const {
    std::vector<TileChange> changes;
    const int visible = std::min(columns, TilesPerRow - number % TilesPerRow);
    for (int row = 0; row < rows && target.contains(number + row * TilesPerRow); ++row) {
        for (int column = 0; column < visible; ++column) {
            const int place = number + row * TilesPerRow + column;
            if (target.contains(place)) {
                const auto at = static_cast<std::size_t>(place);
                changes.push_back(
                    {at, target.tile(at),
                     tiles[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                           static_cast<std::size_t>(column)]});
            }
        }
    }
    return changes;
}

} // namespace kestrel
