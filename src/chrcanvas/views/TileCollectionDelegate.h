// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace kestrel {

/// Receives the selection of a tile viewer.
class TileCollectionDelegate {
public:
    TileCollectionDelegate() = default;
    TileCollectionDelegate(const TileCollectionDelegate&) = delete;
    TileCollectionDelegate& operator=(const TileCollectionDelegate&) = delete;
    virtual ~TileCollectionDelegate() = default;

    /// The selected rectangle's tiles, row by row; no rows when nothing is selected. Rows that the
    /// last tile cuts short are shorter.
    virtual void selected(const std::vector<std::vector<int>>& tileNumbers) = 0;
};

} // namespace kestrel
