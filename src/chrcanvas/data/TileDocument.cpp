// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileDocument.h"

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

std::vector<int> numbersOf(const std::vector<TileChange>& changes) {
    std::vector<int> numbers(changes.size());
    std::transform(changes.begin(), changes.end(), numbers.begin(),
                   [](const TileChange& change) { return static_cast<int>(change.number); });
    return numbers;
}

} // namespace

TileDocument::TileDocument()
    : m_selection(0, 0)
    , m_selectedTiles({0}) {}

void TileDocument::addObserver(TileDocumentObserver& observer) {
    m_observers.push_back(&observer);
}

void TileDocument::removeObserver(TileDocumentObserver& observer) {
    std::erase(m_observers, &observer);
}

template<class Tell> void TileDocument::tell(Tell tellOne) const {
    // Whoever is told may add or remove observers.
    const std::vector<TileDocumentObserver*> observers = m_observers;
    for (TileDocumentObserver* observer : observers) {
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end()) {
            tellOne(*observer);
        }
    }
}

void TileDocument::tellTiles(const std::vector<int>& tileNumbers,
                             const std::optional<GridRect>& area) {
    if (!tileNumbers.empty()) {
        tell([&](TileDocumentObserver& observer) { observer.tilesChanged(tileNumbers, area); });
    }
}

void TileDocument::tellStroke() {
    // Whoever is told may end the stroke.
    const std::vector<int> changed = m_stroke->changedTiles();
    tellTiles(changed, m_stroke->area());
}

void TileDocument::setTileData(std::shared_ptr<TileData> tiles) {
    m_stroke.reset();
    m_history.clear();
    m_tiles = std::move(tiles);
    updateShape();
}

void TileDocument::select(const TileSelection& selection) {
    const TileSelection former = std::exchange(m_selection, selection);
    if (m_tiles) {
        std::vector<int> numbers;
        for (const std::vector<int>& row : selectedRows()) {
            numbers.insert(numbers.end(), row.begin(), row.end());
        }
        setSelectedTiles(std::move(numbers));
    }
    tell([&former](TileDocumentObserver& observer) { observer.selectionChanged(former); });
}

void TileDocument::selectBlock(int first, int last) {
    const int rows = (static_cast<int>(tileCount()) + TilesPerRow - 1) / TilesPerRow;
    const int cells = rows * TilesPerRow;
    if (first >= 0 && last >= 0 && first < cells && last < cells) {
        select(TileSelection(first, last));
    }
}

void TileDocument::selectAll() {
    const int rows = (static_cast<int>(tileCount()) + TilesPerRow - 1) / TilesPerRow;
    selectBlock(0, rows * TilesPerRow - 1);
}

void TileDocument::setSelectedTiles(std::vector<int> tileNumbers) {
    endStroke();
    if (tileNumbers != m_selectedTiles) {
        m_selectedTiles = std::move(tileNumbers);
        updateShape();
    }
}

void TileDocument::updateShape() {
    m_shape = TileShape(m_selectedTiles, tileCount());
}

int TileDocument::tileAt(int x, int y) const {
    return x < 0 || y < 0 ? TileShape::NoTile : m_shape.tileAt(x / TileSide, y / TileSide);
}

std::optional<int> TileDocument::valueAt(int x, int y) const {
    const int tile = tileAt(x, y);
    if (tile == TileShape::NoTile) {
        return std::nullopt;
    }
    return m_tiles->pixel(static_cast<std::size_t>(tile), x % TileSide, y % TileSide);
}

void TileDocument::beginStroke(int x, int y, int value) {
    endStroke();
    if (!m_shape.isEmpty()) {
        m_stroke.emplace(*m_tiles, m_shape, value, x, y);
        tellStroke();
    }
}

void TileDocument::continueStroke(int x, int y) {
    if (m_stroke) {
        m_stroke->lineTo(x, y);
        tellStroke();
    }
}

void TileDocument::endStroke() {
    if (m_stroke) {
        m_history.record(m_stroke->changes());
        m_stroke.reset();
    }
}

bool TileDocument::canTransform(TileTransformation transformation) const {
    return !isDrawing() && isPossible(transformation, m_shape);
}

void TileDocument::transform(TileTransformation transformation) {
    if (canTransform(transformation)) {
        TilePicture picture(*m_tiles, m_shape);
        picture.apply(transformation);
        carryOut(picture.changes(*m_tiles, m_shape));
    }
}

void TileDocument::fill(int x, int y, int value) {
    if (!isDrawing() && tileAt(x, y) != TileShape::NoTile) {
        TilePicture picture(*m_tiles, m_shape);
        picture.fill(m_shape, x, y, value);
        carryOut(picture.changes(*m_tiles, m_shape));
    }
}

void TileDocument::drawLine(int x, int y, int endX, int endY, int value) {
    if (isDrawing() || m_shape.isEmpty()) {
        return;
    }
    TileStroke line(*m_tiles, m_shape, value, x, y);
    line.lineTo(endX, endY);
    std::vector<TileChange> changes = line.changes();
    const std::vector<int> changed = numbersOf(changes);
    m_history.record(std::move(changes));
    tellTiles(changed, line.area());
}

TileClip TileDocument::copy() const {
    return canCopy() ? TileClip::of(*m_tiles, m_shape) : TileClip();
}

void TileDocument::paste(const TileClip& clip) {
    if (!canCopy()) {
        return;
    }
    std::vector<TileChange> changes = clip.changesAt(*m_tiles, m_shape.firstCell());
    const std::vector<int> covered = numbersOf(changes);
    carryOut(std::move(changes));
    selectBlockOf(covered);
}

void TileDocument::carryOut(std::vector<TileChange> changes) {
    if (isDrawing() || !m_tiles) {
        return;
    }
    std::erase_if(changes, [this](const TileChange& change) {
        return change.number >= m_tiles->tileCount() || change.before == change.after;
    });
    for (const TileChange& change : changes) {
        m_tiles->setTile(change.number, change.after);
    }
    const std::vector<int> changed = numbersOf(changes);
    m_history.record(std::move(changes));
    tellTiles(changed);
}

void TileDocument::undo() {
    if (canUndo()) {
        std::vector<int> changed;
        m_history.undo([&](const TileChange& change, const TileBytes& bytes) {
            m_tiles->setTile(change.number, bytes);
            changed.push_back(static_cast<int>(change.number));
        });
        std::reverse(changed.begin(), changed.end());
        showChanged(changed);
    }
}

void TileDocument::redo() {
    if (canRedo()) {
        std::vector<int> changed;
        m_history.redo([&](const TileChange& change, const TileBytes& bytes) {
            m_tiles->setTile(change.number, bytes);
            changed.push_back(static_cast<int>(change.number));
        });
        showChanged(changed);
    }
}

void TileDocument::showChanged(const std::vector<int>& tileNumbers) {
    tellTiles(tileNumbers);
    if (std::any_of(tileNumbers.begin(), tileNumbers.end(),
                    [this](int number) { return !m_shape.cellOf(number); })) {
        selectBlockOf(tileNumbers);
    }
}

void TileDocument::selectBlockOf(const std::vector<int>& tileNumbers) {
    const TileShape block(tileNumbers, tileCount());
    selectBlock(block.firstCell(), block.lastCell());
}

} // namespace kestrel
