#pragma once

#include "chrcanvas/ConsoleType.h"
#include "chrcanvas/TileData.h"

#include <optional>

namespace kestrel {

/// Makes tile data. Holds no state.
class ConsoleDataFactory {
public:
    /// Blank tiles for a console, or nothing for one that is not known. For the NES: 512 tiles,
    /// 8192 bytes, which is what one bank of pattern memory holds (nesdev wiki, "CHR ROM vs. CHR
    /// RAM").
    static std::optional<TileData> generate(ConsoleType type);
};

} // namespace kestrel
