// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"
#include "chrcanvas/data/PaletteType.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrel {

/// Decodes the bytes of a palette file into palettes, and encodes them. Holds no state.
class PaletteFactory {
public:
    /// The eight palettes in a file of exactly 32 bytes, each one an NESPalette: byte 4p + c is
    /// colour c of palette p, 0 to 3 for the background, 4 to 7 for sprites (nesdev wiki, "PPU
    /// palettes"). Nothing for any other size.
    static std::optional<std::pair<PaletteType, Palettes>> generate(std::string_view data);

    /// The file of a list of colour bytes; nothing for a number of them that the kind does not
    /// have (32 for the NES), or a kind that is not known.
    static std::optional<std::string> convert(const std::vector<std::uint8_t>& array,
                                              PaletteType type);
};

} // namespace kestrel
