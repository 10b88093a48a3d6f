// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileEditor.h"

#include <utility>

namespace kestrel {

void TileEditor::setTileData(std::shared_ptr<TileData> tiles) {
    m_stroke.reset();
    m_history.clear();
    m_tiles = std::move(tiles);
    updateShape();
}

void TileEditor::setSelectedTiles(std::vector<int> tileNumbers) {
    endStroke();
    m_selected = std::move(tileNumbers);
    updateShape();
}

void TileEditor::updateShape() {
    m_shape = TileShape(m_selected, m_tiles ? m_tiles->tileCount() : 0);
}

int TileEditor::tileAt(int x, int y) const {
    return x < 0 || y < 0 ? TileShape::NoTile : m_shape.tileAt(x / TileSide, y / TileSide);
}

std::optional<int> TileEditor::valueAt(int x, int y) const {
    const int tile = tileAt(x, y);
    return tile == TileShape::NoTile ? std::nullopt
                                     : std::optional(m_tiles->pixel(static_cast<std::size_t>(tile),
                                                                    x % TileSide, y % TileSide));
}

std::vector<int> TileEditor::beginStroke(int x, int y, int value) {
    endStroke();
    if (m_shape.isEmpty()) {
        return {};
    }
    m_stroke.emplace(*m_tiles, m_shape, value, x, y);
    return m_stroke->changedTiles();
}

std::vector<int> TileEditor::continueStroke(int x, int y) {
    if (!m_stroke) {
        return {};
    }
    m_stroke->lineTo(x, y);
    return m_stroke->changedTiles();
}

void TileEditor::endStroke() {
    if (m_stroke) {
        m_history.record(m_stroke->changes());
        m_stroke.reset();
    }
}

bool TileEditor::canTransform(TileTransformation transformation) const {
    return !isDrawing() && isPossible(transformation, m_shape);
}

std::vector<int> TileEditor::transform(TileTransformation transformation) {
    if (!canTransform(transformation)) {
        return {};
    }
    TilePicture picture(*m_tiles, m_shape);
    picture.apply(transformation);
    return carryOut(picture.changes(*m_tiles, m_shape));
}

std::vector<int> TileEditor::fill(int x, int y, int value) {
    if (isDrawing() || tileAt(x, y) == TileShape::NoTile) {
        return {};
    }
    TilePicture picture(*m_tiles, m_shape);
    picture.fill(m_shape, x, y, value);
    return carryOut(picture.changes(*m_tiles, m_shape));
}

std::vector<int> TileEditor::carryOut(std::vector<TileChange> changes) {
    std::vector<int> changed;
    if (isDrawing() || !m_tiles) {
        return changed;
    }
    std::erase_if(changes, [this](const TileChange& change) {
        return change.number >= m_tiles->tileCount() || change.before == change.after;
    });
    changed.reserve(changes.size());
    for (const TileChange& change : changes) {
        m_tiles->setTile(change.number, change.after);
        changed.push_back(static_cast<int>(change.number));
    }
    m_history.record(std::move(changes));
    return changed;
}

std::vector<int> TileEditor::undo() {
    return canUndo() ? m_history.undo(*m_tiles) : std::vector<int>();
}

std::vector<int> TileEditor::redo() {
    return canRedo() ? m_history.redo(*m_tiles) : std::vector<int>();
}

} // namespace kestrel
