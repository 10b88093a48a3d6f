// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileHistory.h"
#include "chrcanvas/data/TilePicture.h"
#include "chrcanvas/data/TileShape.h"
#include "chrcanvas/data/TileStroke.h"

#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// Edits the selected tiles of a file and remembers each edit as one step to undo.
///
/// Coordinates are pixels of the selected tiles' shape. Operations give the numbers of the tiles
/// they changed; while a stroke is being drawn all but its own do nothing.
class TileEditor {
public:
    /// The tiles to edit, shared with whoever shows them; null for none. Forgets all steps.
    void setTileData(std::shared_ptr<TileData> tiles);
    const std::shared_ptr<TileData>& tileData() const { return m_tiles; }

    /// Numbers without a tile are kept and passed over.
    void setSelectedTiles(std::vector<int> tileNumbers);
    const std::vector<int>& selectedTiles() const { return m_selected; }

    /// The selected tiles that are there.
    const TileShape& shape() const { return m_shape; }

    /// The number of the tile at a pixel; TileShape::NoTile beside the tiles.
    int tileAt(int x, int y) const;
    /// The value of a pixel; nothing beside the tiles.
    std::optional<int> valueAt(int x, int y) const;

    bool isDrawing() const { return m_stroke.has_value(); }
    std::vector<int> beginStroke(int x, int y, int value);
    std::vector<int> continueStroke(int x, int y);
    /// Ends the stroke that is being drawn, if there is one; it becomes one step.
    void endStroke();

    bool canTransform(TileTransformation transformation) const;
    std::vector<int> transform(TileTransformation transformation);
    std::vector<int> fill(int x, int y, int value);

    /// Puts other bytes into tiles, as one step. Each tile is named once and its `before` is what
    /// it holds.
    std::vector<int> carryOut(std::vector<TileChange> changes);

    bool canUndo() const { return !isDrawing() && m_history.canUndo(); }
    bool canRedo() const { return !isDrawing() && m_history.canRedo(); }
    std::vector<int> undo();
    std::vector<int> redo();

private:
    void updateShape();

    std::shared_ptr<TileData> m_tiles;
    std::vector<int> m_selected;
    TileShape m_shape;
    TileHistory m_history;
    std::optional<TileStroke> m_stroke;
};

} // namespace kestrel
