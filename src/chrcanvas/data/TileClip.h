// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileChange.h"
#include "chrcanvas/data/TileData.h"
#include "chrcanvas/data/TileShape.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// A rectangle of tiles that was copied, to be pasted elsewhere.
struct TileClip {
    int columns = 0;
    int rows = 0;
    std::vector<TileBytes> tiles; ///< row after row, columns * rows of them

    /// The tiles of a shape, gaps as blank tiles.
    static TileClip of(const TileData& tiles, const TileShape& shape);

    /// The form for a clipboard, and back: the number of columns as two bytes, the higher one
    /// first, then the tiles. Nothing for bytes of any other form.
    std::string toBytes() const;
    static std::optional<TileClip> fromBytes(const std::string& bytes);

    /// The changes, not made yet, that put the clip into `target` with its top left tile at
    /// `number`. Tiles right of the grid or after the last tile are left out.
    std::vector<TileChange> changesAt(const TileData& target, int number) const;

    bool operator==(const TileClip&) const = default;
};

} // namespace kestrel
