// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/ConsoleType.h"
#include "chrcanvas/data/TileData.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace kestrel {

/// Makes the tile data of graphics files, existing and new ones. Holds no state.
class ConsoleDataFactory {
public:
    /// The most bytes that are taken as tiles.
    static constexpr std::size_t MaximumSize = std::size_t{4} * 1024 * 1024;

    /// The tiles of a file's whole content and the console they are for. Pattern data has no mark
    /// of its own, so any content that is a whole number of tiles, at least one, is taken up to
    /// MaximumSize; nothing for any other.
    static std::optional<std::pair<ConsoleType, TileData>> generate(const std::string& data);

    /// Blank tiles for a console, or nothing for one that is not known. For the NES: 512 tiles,
    /// 8192 bytes, which is what one bank of pattern memory holds (nesdev wiki, "CHR ROM vs. CHR
    /// RAM").
    static std::optional<TileData> generate(ConsoleType type);
};

} // namespace kestrel
