// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileHistory.h"

#include <utility>

namespace kestrel {

TileHistory::TileHistory(std::size_t maximumChanges)
    : m_maximumChanges(maximumChanges) {}

void TileHistory::record(std::vector<TileChange> step) {
    std::erase_if(step, [](const TileChange& change) { return change.before == change.after; });
    if (step.empty()) {
        return;
    }
    for (; m_steps.size() > m_position; m_steps.pop_back()) {
        m_changes -= m_steps.back().size();
    }
    m_changes += step.size();
    m_steps.push_back(std::move(step));
    std::size_t forgotten = 0;
    for (; m_changes > m_maximumChanges && forgotten + 1 < m_steps.size(); ++forgotten) {
        m_changes -= m_steps[forgotten].size();
    }
    m_steps.erase(m_steps.begin(), m_steps.begin() + static_cast<std::ptrdiff_t>(forgotten));
    m_position = m_steps.size();
}

std::vector<int> TileHistory::undo(TileData& tiles) {
    std::vector<int> changed;
    if (canUndo()) {
        for (const TileChange& change : m_steps[--m_position]) {
            tiles.setTile(change.number, change.before);
            changed.push_back(static_cast<int>(change.number));
        }
    }
    return changed;
}

std::vector<int> TileHistory::redo(TileData& tiles) {
    std::vector<int> changed;
    if (canRedo()) {
        for (const TileChange& change : m_steps[m_position++]) {
            tiles.setTile(change.number, change.after);
            changed.push_back(static_cast<int>(change.number));
        }
    }
    return changed;
}

void TileHistory::clear() {
    m_steps.clear();
    m_position = 0;
    m_changes = 0;
}

} // namespace kestrel
