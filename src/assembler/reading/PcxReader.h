// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Problem.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nesasm {

/// Pictures with more pixels are refused: no image can hold that many tiles.
inline constexpr std::uint64_t MostPicturePixels = std::uint64_t{1} << 25U;

/// Reads an 8-bit PCX picture as NES tiles: 8x8 pixels each, row by row, 16 bytes a tile (eight
/// rows of the low plane, eight of the high one); a pixel's low two bits count. Sources: ZSoft,
/// "PCX Technical Reference Manual", for the file; nesdev wiki, "PPU pattern tables", for the
/// tiles.
Problem readPcxTiles(std::string_view file, std::vector<std::uint8_t>& tiles);

} // namespace nesasm
