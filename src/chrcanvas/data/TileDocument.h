// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/History.h"
#include "chrcanvas/data/TileChange.h"
#include "chrcanvas/data/TileClip.h"
#include "chrcanvas/data/TileDocumentObserver.h"
#include "chrcanvas/data/TilePicture.h"
#include "chrcanvas/data/TileSelection.h"
#include "chrcanvas/data/TileShape.h"
#include "chrcanvas/data/TileStroke.h"

#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// A graphics file that is open: its tiles, which of them are selected, and the edits to undo.
///
/// All views of a file share one document and watch it. Edits act on the selected tiles, their
/// coordinates are pixels of shape(); each is one step to undo and tells the observers once, if it
/// changed anything. While a stroke is drawn no other edit does anything.
class TileDocument {
public:
    /// No tiles; tile 0 is selected as soon as there are any.
    TileDocument();
    TileDocument(const TileDocument&) = delete;
    TileDocument& operator=(const TileDocument&) = delete;

    /// Not owned; an observer removes itself before it goes.
    void addObserver(TileDocumentObserver& observer);
    void removeObserver(TileDocumentObserver& observer);

    /// The tiles, shared with whoever gave them; null for none. Setting them forgets all steps and
    /// tells nobody; the selection stays.
    const std::shared_ptr<TileData>& tileData() const { return m_tiles; }
    void setTileData(std::shared_ptr<TileData> tiles);
    std::size_t tileCount() const { return m_tiles ? m_tiles->tileCount() : 0; }

    /// The selected cells. Cells without a tile may be among them, and stay selected when other
    /// tiles are set.
    const TileSelection& selection() const { return m_selection; }
    std::vector<std::vector<int>> selectedRows() const { return m_selection.rows(tileCount()); }

    /// Selects cells, whose tiles become the selectedTiles(); ends the stroke. Without any tiles
    /// those stay.
    void select(const TileSelection& selection);
    /// Selects the rectangle between two cells; nothing unless both lie in rows that have tiles.
    void selectBlock(int first, int last);
    void selectAll();

    /// The tiles that are edited: those of the last select(), or others that were set since, of
    /// which the observers are not told. Numbers without a tile are kept and passed over.
    const std::vector<int>& selectedTiles() const { return m_selectedTiles; }
    void setSelectedTiles(std::vector<int> tileNumbers);

    /// Those of the selectedTiles() that there are, as they stand in the grid.
    const TileShape& shape() const { return m_shape; }
    /// The number of the tile at a pixel; TileShape::NoTile beside the tiles.
    int tileAt(int x, int y) const;
    /// The value of a pixel; nothing beside the tiles.
    std::optional<int> valueAt(int x, int y) const;

    /// One stroke of the pencil is one step, whose parts are told one by one as they are painted.
    bool isDrawing() const { return m_stroke.has_value(); }
    void beginStroke(int x, int y, int value);
    void continueStroke(int x, int y);
    void endStroke();

    bool canTransform(TileTransformation transformation) const;
    void transform(TileTransformation transformation);
    void fill(int x, int y, int value);
    void drawLine(int x, int y, int endX, int endY, int value);

    /// Whether there are tiles to copy, and to paste over.
    bool canCopy() const { return !isDrawing() && !m_shape.isEmpty(); }
    TileClip copy() const;
    /// Puts a clip in place of the tiles from the first selected one on, and selects what it
    /// covers.
    void paste(const TileClip& clip);

    /// Puts other bytes into tiles; those that are not there are passed over. Each is named once,
    /// and its `before` is what it holds.
    void carryOut(std::vector<TileChange> changes);

    /// What is undone or redone out of sight, beside the selected tiles, is selected.
    bool canUndo() const { return !isDrawing() && m_history.canUndo(); }
    bool canRedo() const { return !isDrawing() && m_history.canRedo(); }
    void undo();
    void redo();

private:
    void updateShape();
    void tellStroke();
    void tellTiles(const std::vector<int>& tileNumbers, const std::optional<GridRect>& area = {});
    void showChanged(const std::vector<int>& tileNumbers);
    void selectBlockOf(const std::vector<int>& tileNumbers);
    template<class Tell> void tell(Tell tellOne) const;

    std::vector<TileDocumentObserver*> m_observers;
    std::shared_ptr<TileData> m_tiles;
    TileSelection m_selection;
    std::vector<int> m_selectedTiles;
    TileShape m_shape;
    History<TileChange> m_history;
    std::optional<TileStroke> m_stroke;
};

} // namespace kestrel
