// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <utility>
#include <vector>

namespace kestrel {

/// The edits of a file, step by step, to undo and redo.
///
/// A step is a list of changes; a `Change` names one thing by its members, and holds that thing's
/// value `before` and `after`. When all steps together have more changes than the limit the oldest
/// steps are forgotten, but never the last one.
template<class Change> class History {
public:
    using Step = std::vector<Change>;

    static constexpr std::size_t DefaultLimit = std::size_t{4} * 1024 * 1024;

    explicit History(std::size_t maximumChanges = DefaultLimit)
        : m_maximumChanges(maximumChanges) {}

    /// Records a step that has been carried out. Changes that changed nothing are left out; a step
    /// without any other is none. What had been undone can no longer be redone.
    void record(Step step) {
        std::erase_if(step, [](const Change& change) { return change.before == change.after; });
        if (step.empty()) {
            return;
        }
        for (; canRedo(); m_steps.pop_back()) {
            m_changes -= m_steps.back().size();
        }
        m_changes += step.size();
        m_steps.push_back(std::move(step));
        for (; m_changes > m_maximumChanges && m_steps.size() > 1; m_steps.pop_front()) {
            m_changes -= m_steps.front().size();
        }
        m_position = m_steps.size();
    }

    bool canUndo() const { return m_position > 0; }
    bool canRedo() const { return m_position < m_steps.size(); }

    /// Undoes one step: calls `put` with each of its changes, the last one first, and the value
    /// before it. Nothing without a step to undo.
    template<class Put> void undo(Put put) {
        if (canUndo()) {
            const Step& step = m_steps[--m_position];
            std::for_each(step.rbegin(), step.rend(),
                          [&](const Change& change) { put(change, change.before); });
        }
    }

    /// Redoes one step: calls `put` with each of its changes, the first one first, and the value
    /// after it. Nothing without a step to redo.
    template<class Put> void redo(Put put) {
        if (canRedo()) {
            for (const Change& change : m_steps[m_position++]) {
                put(change, change.after);
            }
        }
    }

    void clear() {
        m_steps.clear();
        m_position = 0;
        m_changes = 0;
    }

private:
    std::size_t m_maximumChanges;
    std::deque<Step> m_steps;
    std::size_t m_position = 0; ///< steps before it are done, the others undone
    std::size_t m_changes = 0;  ///< of all steps
};

} // namespace kestrel
