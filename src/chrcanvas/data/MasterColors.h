// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/ColorEntry.h"

#include <cstddef>
#include <cstdint>

namespace kestrel {

/// How many colours the console's picture processor has.
inline constexpr std::size_t MasterColorCount = 64;

/// The index of the colour that a byte of palette memory stands for: its low 6 bits (nesdev wiki,
/// "PPU palettes").
constexpr std::uint8_t masterIndex(std::uint8_t key) {
    return key & 0x3F;
}

/// The entry of a byte of palette memory; the byte itself is kept whole.
ColorEntry masterColor(std::uint8_t key);

} // namespace kestrel
