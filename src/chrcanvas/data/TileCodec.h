// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace kestrel {

/// One row of a tile as it is stored: bit 7 of each byte is the leftmost pixel, `low` holds bit 0
/// of the pixels' values and `high` bit 1 (nesdev wiki, "PPU pattern tables").
struct RowPlanes {
    std::uint8_t low = 0;
    std::uint8_t high = 0;

    bool operator==(const RowPlanes&) const = default;
};

/// Eight pixel values of 0 to 3: pixel x, from the left, stands in bits 8x to 8x + 7.
using PixelRow = std::uint64_t;

/// For each byte, its bits as a PixelRow of zeros and ones.
inline constexpr auto SpreadBits = [] {
    std::array<PixelRow, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (unsigned x = 0; x < 8; ++x) {
            table[byte] |= PixelRow{(byte >> (7 - x)) & 1U} << (8 * x);
        }
    }
    return table;
}();

constexpr PixelRow decodeRow(RowPlanes planes) {
    return SpreadBits[planes.low] | SpreadBits[planes.high] << 1;
}

/// Only the low two bits of each value count.
constexpr RowPlanes encodeRow(PixelRow row) {
    // The factor brings bit 8x to bit 63 - x for every x at once; no two products meet in one bit.
    constexpr PixelRow LowBits = 0x0101010101010101;
    constexpr PixelRow Gather = 0x8040201008040201;
    return {static_cast<std::uint8_t>(((row & LowBits) * Gather) >> 56),
            static_cast<std::uint8_t>(((row >> 1 & LowBits) * Gather) >> 56)};
}

constexpr int pixelInRow(PixelRow row, int x) {
    return static_cast<int>(row >> (8 * x) & 3U);
}

} // namespace kestrel
