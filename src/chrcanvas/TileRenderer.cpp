#include "chrcanvas/TileRenderer.h"

#include <algorithm>
#include <cstring>

namespace kestrel {

TileRenderer::TileRenderer(const Colors& colors)
    : m_colors(colors) {
    for (unsigned bits = 0; bits < m_fourPixels.size(); ++bits) {
        for (unsigned x = 0; x < 4; ++x) {
            const unsigned low = bits >> (3 - x) & 1U;
            const unsigned high = bits >> (7 - x) & 1U;
            m_fourPixels[bits][x] = colors[low | high << 1];
        }
    }
}

void TileRenderer::draw(const TileBytes& tile, int zoom, std::uint32_t* out,
                        std::size_t stride) const {
    const auto size = static_cast<std::size_t>(zoom);
    for (int y = 0; y < TileSide; ++y) {
        const RowPlanes planes = rowPlanes(tile, y);
        const FourPixels& left = m_fourPixels[(planes.high & 0xF0U) | planes.low >> 4];
        const FourPixels& right = m_fourPixels[(planes.high & 0x0FU) << 4 | (planes.low & 0x0FU)];
        std::uint32_t* line = out;
        if (size == 1) {
            std::memcpy(line, left.data(), sizeof left);
            std::memcpy(line + 4, right.data(), sizeof right);
        } else {
            for (const FourPixels* half : {&left, &right}) {
                for (const std::uint32_t color : *half) {
                    line = std::fill_n(line, size, color);
                }
            }
        }
        for (std::size_t copy = 1; copy < size; ++copy) {
            std::memcpy(out + copy * stride, out, size * TileSide * sizeof *out);
        }
        out += size * stride;
    }
}

} // namespace kestrel
