// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TilePicture.h"

#include <algorithm>
#include <utility>

namespace kestrel {

TilePicture::TilePicture(const TileData& tiles, const TileShape& shape)
    : m_width(shape.columns() * TileSide)
    , m_height(shape.rows() * TileSide)
    , m_pixels(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)) {
    for (int y = 0; y < m_height; ++y) {
        for (int column = 0; column < shape.columns(); ++column) {
            const int number = shape.tileAt(column, y / TileSide);
            if (number == TileShape::NoTile) {
                continue;
            }
            const PixelRow row =
                decodeRow(rowPlanes(tiles.tile(static_cast<std::size_t>(number)), y % TileSide));
            for (int x = 0; x < TileSide; ++x) {
                m_pixels[index(column * TileSide + x, y)] =
                    static_cast<std::uint8_t>(pixelInRow(row, x));
            }
        }
    }
}

std::size_t TilePicture::index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
           static_cast<std::size_t>(x);
}

void TilePicture::apply(TileTransformation transformation) {
    if (m_pixels.empty()) {
        return;
    }
    const auto moveRows = [this](std::ptrdiff_t newFirst) {
        for (auto row = m_pixels.begin(); row != m_pixels.end(); row += m_width) {
            std::rotate(row, row + newFirst, row + m_width);
        }
    };
    switch (transformation) {
    case TileTransformation::flipHorizontally:
        for (auto row = m_pixels.begin(); row != m_pixels.end(); row += m_width) {
            std::reverse(row, row + m_width);
        }
        break;
    case TileTransformation::flipVertically:
        for (int y = 0; y < m_height / 2; ++y) {
            const auto upper = m_pixels.begin() + static_cast<std::ptrdiff_t>(index(0, y));
            const auto lower =
                m_pixels.begin() + static_cast<std::ptrdiff_t>(index(0, m_height - 1 - y));
            std::swap_ranges(upper, upper + m_width, lower);
        }
        break;
    case TileTransformation::rotate:
        if (m_width == m_height) {
            std::vector<std::uint8_t> rotated(m_pixels.size());
            for (int y = 0; y < m_height; ++y) {
                for (int x = 0; x < m_width; ++x) {
                    rotated[index(m_height - 1 - y, x)] = m_pixels[index(x, y)];
                }
            }
            m_pixels = std::move(rotated);
        }
        break;
    case TileTransformation::shiftLeft:
        moveRows(1);
        break;
    case TileTransformation::shiftRight:
        moveRows(m_width - 1);
        break;
    case TileTransformation::shiftUp:
        std::rotate(m_pixels.begin(), m_pixels.begin() + m_width, m_pixels.end());
        break;
    case TileTransformation::shiftDown:
        std::rotate(m_pixels.begin(), m_pixels.end() - m_width, m_pixels.end());
        break;
    case TileTransformation::clear:
        std::fill(m_pixels.begin(), m_pixels.end(), std::uint8_t{0});
        break;
    }
}

void TilePicture::fill(const TileShape& shape, int x, int y, int value) {
    const int former = pixel(x, y);
    if (former == value || shape.tileAt(x / TileSide, y / TileSide) == TileShape::NoTile) {
        return;
    }
    std::vector<std::pair<int, int>> waiting;
    const auto visit = [&](int column, int row) {
        if (column >= 0 && row >= 0 && column < m_width && row < m_height &&
            pixel(column, row) == former &&
            shape.tileAt(column / TileSide, row / TileSide) != TileShape::NoTile) {
            m_pixels[index(column, row)] = static_cast<std::uint8_t>(value);
            waiting.emplace_back(column, row);
        }
    };
    visit(x, y);
    while (!waiting.empty()) {
        const auto [column, row] = waiting.back();
        waiting.pop_back();
        visit(column - 1, row);
        visit(column + 1, row);
        visit(column, row - 1);
        visit(column, row + 1);
    }
}

TileBytes TilePicture::encodedTile(int column, int row) const {
    TileBytes bytes{};
    for (int y = 0; y < TileSide; ++y) {
        PixelRow pixels = 0;
        for (int x = 0; x < TileSide; ++x) {
            pixels |= static_cast<PixelRow>(pixel(column * TileSide + x, row * TileSide + y))
                      << (8 * x);
        }
        const RowPlanes planes = encodeRow(pixels);
        bytes[static_cast<std::size_t>(y)] = planes.low;
        bytes[static_cast<std::size_t>(y) + std::size_t{TileSide}] = planes.high;
    }
    return bytes;
}

std::vector<TileChange> TilePicture::changes(const TileData& tiles, const TileShape& shape) const {
    std::vector<TileChange> changes;
    for (int row = 0; row < shape.rows(); ++row) {
        for (int column = 0; column < shape.columns(); ++column) {
            const int tile = shape.tileAt(column, row);
            if (tile == TileShape::NoTile) {
                continue;
            }
            const auto number = static_cast<std::size_t>(tile);
            const TileBytes after = encodedTile(column, row);
            if (after != tiles.tile(number)) {
                changes.push_back({number, tiles.tile(number), after});
            }
        }
    }
    return changes;
}

bool isPossible(TileTransformation transformation, const TileShape& shape) {
    switch (transformation) {
    case TileTransformation::clear:
        return !shape.isEmpty();
    case TileTransformation::rotate:
        return shape.isRectangle() && shape.columns() == shape.rows();
    case TileTransformation::flipHorizontally:
    case TileTransformation::flipVertically:
    case TileTransformation::shiftLeft:
    case TileTransformation::shiftRight:
    case TileTransformation::shiftUp:
    case TileTransformation::shiftDown:
        break;
    }
    return shape.isRectangle();
}

} // namespace kestrel
