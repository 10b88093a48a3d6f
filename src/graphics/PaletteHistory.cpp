// SPDX-License-Identifier: MIT
#include "graphics/PaletteHistory.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace kestrel {

void PaletteHistory::add(Step step) {
    std::erase_if(step, [](const ColorChange& change) { return change.before == change.after; });
    if (step.empty()) {
        return;
    }
    m_steps.resize(m_done);
    m_steps.push_back(std::move(step));
    ++m_done;
}

void PaletteHistory::undo() {
    assert(canUndo());
    if (!canUndo()) {
        return;
    }
    --m_done;
    const Step& step = m_steps[m_done];
    std::for_each(step.rbegin(), step.rend(), [](const ColorChange& change) {
        change.palette->setEntry(change.index, change.before);
    });
}

void PaletteHistory::redo() {
    assert(canRedo());
    if (!canRedo()) {
        return;
    }
    for (const ColorChange& change : m_steps[m_done]) {
        change.palette->setEntry(change.index, change.after);
    }
    ++m_done;
}

void PaletteHistory::clear() {
    m_steps.clear();
    m_done = 0;
}

} // namespace kestrel
