#pragma once

#include "assembler/Position.h"

#include <cstddef>
#include <vector>

namespace nesasm {

/// The conditions that are open, and whether the present line counts.
class Conditionals {
public:
    /// What .elseif, .else and .endif may be told.
    enum class Answer { Fine, NoIf, AfterElse };

    /// True when the present line is in a branch not taken.
    bool skips() const { return !m_open.empty() && m_open.back().state != State::Taken; }

    void open(bool condition, const Position& position) {
        m_open.push_back({condition ? State::Taken : State::Waiting, false, position});
    }
    /// An .if inside a branch not taken: none of its branches is taken.
    void openSkipped(const Position& position) { m_open.push_back({State::Over, false, position}); }

    /// True when an .elseif at this place has to have its condition evaluated.
    bool wantsCondition(std::size_t outer) const {
        return m_open.size() > outer && m_open.back().state == State::Waiting &&
               !m_open.back().elseSeen;
    }
    /// `outer`: how many were open where the present file or macro began; those are out of reach.
    Answer elseIf(bool condition, std::size_t outer);
    Answer otherwise(std::size_t outer);
    Answer close(std::size_t outer);

    std::size_t depth() const { return m_open.size(); }
    const Position& innermost() const { return m_open.back().position; }
    void dropTo(std::size_t depth) {
        while (m_open.size() > depth)
            m_open.pop_back();
    }

private:
    enum class State {
        Waiting, ///< no branch has been taken yet
        Taken,   ///< this branch is taken
        Over     ///< no further branch is taken
    };
    struct Open {
        State state;
        bool elseSeen;
        Position position;
    };

    std::vector<Open> m_open;
};

} // namespace nesasm
