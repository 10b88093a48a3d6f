// SPDX-License-Identifier: MIT
#include "chrcanvas/data/PaletteFactory.h"

#include "chrcanvas/data/NESPalette.h"

#include <cstddef>

namespace kestrel {

namespace {

constexpr std::size_t NesFileSize = 32;

} // namespace

std::optional<std::pair<PaletteType, Palettes>> PaletteFactory::generate(std::string_view data) {
    if (data.size() != NesFileSize) {
        return std::nullopt;
    }
    Palettes palettes;
    for (std::size_t offset = 0; offset < NesFileSize; offset += NESPalette::ColorCount) {
        palettes.push_back(NESPalette::fromData(data.substr(offset, NESPalette::ColorCount)));
    }
    return std::pair(PaletteType::nes, std::move(palettes));
}

std::optional<std::string> PaletteFactory::convert(const std::vector<std::uint8_t>& array,
                                                   PaletteType type) {
    if (type != PaletteType::nes || array.size() != NesFileSize) {
        return std::nullopt;
    }
    return std::string(array.begin(), array.end());
}

} // namespace kestrel
