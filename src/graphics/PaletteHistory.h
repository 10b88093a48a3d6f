// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace kestrel {

/// One entry of a palette that was changed.
struct ColorChange {
    std::shared_ptr<PaletteProtocol> palette;
    std::size_t index = 0;
    ColorEntry before;
    ColorEntry after;
};

/// The changes of the palettes that are shown, step by step, to undo and redo.
class PaletteHistory {
public:
    using Step = std::vector<ColorChange>;

    /// Notes a step that was carried out; what was undone before can no longer be redone. Changes
    /// that changed nothing are left out, and so is a step without any other.
    void add(Step step);

    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }

    /// Puts the palettes back by one step, or forward again; only when canUndo() or canRedo().
    void undo();
    void redo();

    void clear();

private:
    std::vector<Step> m_steps;
    std::size_t m_done = 0;
};

} // namespace kestrel
