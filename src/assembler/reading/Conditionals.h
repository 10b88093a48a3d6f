// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Position.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace nesasm {

/// The conditions that are open, and whether the present line counts.
class Conditionals {
public:
    /// What .elseif, .else and .endif may be told.
    enum class Answer { fine, noIf, afterElse };

    /// True when the present line is in a branch not taken.
    bool skips() const { return !m_open.empty() && m_open.back().state != State::taken; }

    /// `text` keeps the line that `position` points into when the next line overwrites it; it is
    /// empty for other lines, else its last byte is a line end.
    void open(bool condition, const Position& position, std::string text) {
        m_open.push_back(
            {condition ? State::taken : State::waiting, false, position, std::move(text)});
    }
    /// An .if inside a branch not taken: none of its branches is taken.
    void openSkipped(const Position& position, std::string text) {
        m_open.push_back({State::over, false, position, std::move(text)});
    }

    /// True when an .elseif at this place has to have its condition evaluated.
    bool wantsCondition(std::size_t outer) const {
        return m_open.size() > outer && m_open.back().state == State::waiting &&
               !m_open.back().elseSeen;
    }
    /// `outer`: how many were open where the present file or macro began; those are out of reach.
    Answer elseIf(bool condition, std::size_t outer);
    Answer otherwise(std::size_t outer);
    Answer close(std::size_t outer);

    std::size_t depth() const { return m_open.size(); }
    /// Where the innermost one begins; valid until another is opened or closed.
    Position innermost() const;
    void dropTo(std::size_t depth) {
        while (m_open.size() > depth) {
            m_open.pop_back();
        }
    }

private:
    enum class State {
        waiting, ///< no branch has been taken yet
        taken,   ///< this branch is taken
        over     ///< no further branch is taken
    };
    struct Open {
        State state;
        bool elseSeen;
        Position position;
        std::string text;
    };

    std::vector<Open> m_open;
};

} // namespace nesasm
