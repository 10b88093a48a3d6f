// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileData.h"

#include <cstddef>
#include <vector>

namespace kestrel {

/// One tile before and after an edit.
struct TileChange {
    std::size_t number = 0;
    TileBytes before{};
    TileBytes after{};
};

/// The edits of one set of tiles, to undo and redo; keeps nothing but the tiles that each of them
/// changed. When all steps together grow beyond `maximumChanges` tiles the oldest steps are
/// forgotten, but never the last one.
class TileHistory {
public:
    static constexpr std::size_t MaximumChanges = std::size_t{4} * 1024 * 1024;

    explicit TileHistory(std::size_t maximumChanges = MaximumChanges);

    /// Records one step, which has been carried out already. Tiles that did not change are left
    /// out; a step without any other is none. What had been undone cannot be redone any more.
    void record(std::vector<TileChange> step);

    bool canUndo() const { return m_position > 0; }
    bool canRedo() const { return m_position < m_steps.size(); }

    /// Undoes or redoes one step in `tiles`, which are the tiles that were edited; gives the
    /// numbers of the tiles that changed. Nothing happens when there is no such step.
    std::vector<int> undo(TileData& tiles);
    std::vector<int> redo(TileData& tiles);

    void clear();

private:
    std::size_t m_maximumChanges;
    std::vector<std::vector<TileChange>> m_steps;
    std::size_t m_position = 0; ///< steps before it are done, the others undone
    std::size_t m_changes = 0;  ///< tiles in all steps
};

} // namespace kestrel
