// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileData.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kestrel {

/// Draws rows of tiles as 32-bit pixels, enlarged by a whole number, four pixels at a time from a
/// table that is made for the colours and the zoom.
class TileRenderer {
public:
    /// One 32-bit pixel for each value of a tile's pixels.
    using Colors = std::array<std::uint32_t, PixelValues>;

    /// `zoom` is 1 or more.
    explicit TileRenderer(const Colors& colors, int zoom = 1);

    const Colors& colors() const { return m_colors; }
    int zoom() const { return m_zoom; }

    /// Makes the table again, unless it is made for these already.
    void set(const Colors& colors, int zoom);

    /// Draws row `y` (0 to 7) of a tile, each pixel zoom() pixels wide.
    void drawRow(const TileBytes& tile, int y, std::uint32_t* out) const;

private:
    using FourPixels = std::array<std::uint32_t, 4>;

    std::uint32_t* copy(unsigned bits, std::uint32_t* out) const;

    Colors m_colors;
    int m_zoom = 0;
    /// Four enlarged pixels, as zoom() blocks, for each four bits of the high plane and four of the
    /// low one.
    std::vector<FourPixels> m_table;
};

} // namespace kestrel
