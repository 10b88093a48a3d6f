// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileRenderer.h"

#include <cstring>

namespace kestrel {

namespace {

constexpr unsigned Combinations = 256;

} // namespace

TileRenderer::TileRenderer(const Colors& colors, int zoom)
    : m_colors(colors) {
    set(colors, zoom);
}

void TileRenderer::set(const Colors& colors, int zoom) {
    if (colors == m_colors && zoom == m_zoom) {
        return;
    }
    m_colors = colors;
    m_zoom = zoom;
    const auto size = static_cast<std::size_t>(zoom);
    m_table.resize(Combinations * size);
    auto block = m_table.begin();
    for (unsigned bits = 0; bits < Combinations; ++bits) {
        for (std::size_t x = 0; x < 4 * size; ++x) {
            const auto pixel = static_cast<unsigned>(x / size);
            const unsigned low = bits >> (3 - pixel) & 1U;
            const unsigned high = bits >> (7 - pixel) & 1U;
            block[static_cast<std::ptrdiff_t>(x / 4)][x % 4] = colors[low | high << 1];
        }
        block += zoom;
    }
}

std::uint32_t* TileRenderer::copy(unsigned bits, std::uint32_t* out) const {
    // Blocks of a fixed size are copied faster than runs whose length is not known beforehand.
    const FourPixels* block = m_table.data() + static_cast<std::ptrdiff_t>(bits) * m_zoom;
    for (int i = 0; i < m_zoom; ++i, ++block, out += block->size()) {
        std::memcpy(out, block->data(), sizeof *block);
    }
    return out;
}

void TileRenderer::drawRow(const TileBytes& tile, int y, std::uint32_t* out) const {
    const RowPlanes planes = rowPlanes(tile, y);
    out = copy((planes.high & 0xF0U) | planes.low >> 4, out);
    copy((planes.high & 0x0FU) << 4 | (planes.low & 0x0FU), out);
}

} // namespace kestrel
