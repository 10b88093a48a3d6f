// SPDX-License-Identifier: MIT
#include "assembler/statements/Conditionals.h"

namespace nesasm {

Conditionals::Answer Conditionals::elseIf(bool condition, std::size_t outer) {
    if (m_open.size() <= outer)
        return Answer::NoIf;
    Open& open = m_open.back();
    if (open.elseSeen)
        return Answer::AfterElse;
    if (open.state == State::Taken)
        open.state = State::Over;
    else if (open.state == State::Waiting && condition)
        open.state = State::Taken;
    return Answer::Fine;
}

Conditionals::Answer Conditionals::otherwise(std::size_t outer) {
    const Answer answer = elseIf(true, outer);
    if (answer == Answer::Fine)
        m_open.back().elseSeen = true;
    return answer;
}

Position Conditionals::innermost() const {
    const Open& open = m_open.back();
    Position position = open.position;
    if (!open.text.empty())
        position.line = open.text.data();
    return position;
}

Conditionals::Answer Conditionals::close(std::size_t outer) {
    if (m_open.size() <= outer)
        return Answer::NoIf;
    m_open.pop_back();
    return Answer::Fine;
}

} // namespace nesasm
