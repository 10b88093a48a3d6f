// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/GridRect.h"
#include "chrcanvas/data/TileSelection.h"

#include <optional>
#include <vector>

namespace kestrel {

/// Hears what changes in a TileDocument.
class TileDocumentObserver {
public:
    TileDocumentObserver() = default;
    TileDocumentObserver(const TileDocumentObserver&) = delete;
    TileDocumentObserver& operator=(const TileDocumentObserver&) = delete;
    virtual ~TileDocumentObserver() = default;

    /// An edit changed these tiles and no others: at least one, each once. A pencil changed nothing
    /// outside of `area`, pixels of the document's shape; other edits have no area.
    virtual void tilesChanged(const std::vector<int>& tileNumbers,
                              const std::optional<GridRect>& area) = 0;

    /// Tiles were selected, if only the same again; `former` was selected before.
    virtual void selectionChanged(const TileSelection& former) = 0;
};

} // namespace kestrel
