#pragma once

#include "chrcanvas/TileData.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace kestrel {

/// Draws tiles into 32-bit images, enlarged by whole numbers, with a table made for the colours:
/// four pixels a look-up.
class TileRenderer {
public:
    /// One 32-bit pixel for each value of a tile's pixels.
    using Colors = std::array<std::uint32_t, PixelValues>;

    explicit TileRenderer(const Colors& colors);

    const Colors& colors() const { return m_colors; }

    /// Draws a tile with its top left corner at `out`, each pixel as a square of `zoom` (1 or more)
    /// pixels; `stride` is the distance of the image's rows, in pixels.
    void draw(const TileBytes& tile, int zoom, std::uint32_t* out, std::size_t stride) const;

private:
    using FourPixels = std::array<std::uint32_t, 4>;

    Colors m_colors;
    std::array<FourPixels, 256>
        m_fourPixels{}; ///< index: four bits of the high plane, four of the low
};

} // namespace kestrel
