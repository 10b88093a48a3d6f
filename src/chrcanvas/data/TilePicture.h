// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileChange.h"
#include "chrcanvas/data/TileData.h"
#include "chrcanvas/data/TileShape.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kestrel {

/// The changes to a picture that a single command makes.
enum class TileTransformation {
    flipHorizontally,
    flipVertically,
    rotate, ///< by 90 degrees clockwise; only for square pictures
    shiftLeft,
    shiftRight,
    shiftUp,
    shiftDown, ///< shifts are by one pixel; what leaves comes in on the other side
    clear,     ///< every pixel to value 0
};

/// The pixels of a shape's tiles as one picture, to be transformed as a whole.
class TilePicture {
public:
    /// The picture of a shape's tiles; pixels in gaps have the value 0.
    TilePicture(const TileData& tiles, const TileShape& shape);

    int width() const { return m_width; }
    int height() const { return m_height; }

    /// `x` and `y` lie in the picture.
    int pixel(int x, int y) const { return m_pixels[index(x, y)]; }

    void apply(TileTransformation transformation);

    /// Flood fill: gives the 4-connected area of one value around a pixel another value. Does not
    /// cross gaps of `shape`, the one that the picture was made of.
    void fill(const TileShape& shape, int x, int y, int value);

    /// The changes, not made yet, that put the picture into the tiles of `shape`. Gaps and tiles
    /// that stay as they are, are left out.
    std::vector<TileChange> changes(const TileData& tiles, const TileShape& shape) const;

private:
    std::size_t index(int x, int y) const;
    TileBytes encodedTile(int column, int row) const;

    int m_width;
    int m_height;
    std::vector<std::uint8_t> m_pixels;
};

/// Whether a transformation makes sense for tiles of this shape: clearing for any tiles, all else
/// for rectangles without gaps, rotating for squares.
bool isPossible(TileTransformation transformation, const TileShape& shape);

} // namespace kestrel
