// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"
#include "chrcanvas/data/TileRenderer.h"

namespace kestrel {

/// The first four colours of a palette as opaque pixels of a 32-bit image.
inline TileRenderer::Colors paletteColors(const PaletteProtocol& palette) {
    TileRenderer::Colors colors{};
    for (std::size_t value = 0; value < colors.size(); ++value) {
        const RgbColor color = palette.entry(value).color;
        colors[value] = 0xFF000000U | static_cast<std::uint32_t>(color.red) << 16 |
                        static_cast<std::uint32_t>(color.green) << 8 | color.blue;
    }
    return colors;
}

} // namespace kestrel
