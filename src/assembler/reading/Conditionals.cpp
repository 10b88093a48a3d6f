// SPDX-License-Identifier: MIT
#include "assembler/reading/Conditionals.h"

namespace nesasm {

Conditionals::Answer Conditionals::elseIf(bool condition, std::size_t outer) {
    if (m_open.size() <= outer) {
        return Answer::noIf;
    }
    Open& open = m_open.back();
    if (open.elseSeen) {
        return Answer::afterElse;
    }
    if (open.state == State::taken) {
        open.state = State::over;
    } else if (open.state == State::waiting && condition) {
        open.state = State::taken;
    }
    return Answer::fine;
}

Conditionals::Answer Conditionals::otherwise(std::size_t outer) {
    const Answer answer = elseIf(true, outer);
    if (answer == Answer::fine) {
        m_open.back().elseSeen = true;
    }
    return answer;
}

Position Conditionals::innermost() const {
    const Open& open = m_open.back();
    Position position = open.position;
    if (!open.text.empty()) {
        position.line = open.text.data();
    }
    return position;
}

Conditionals::Answer Conditionals::close(std::size_t outer) {
    if (m_open.size() <= outer) {
        return Answer::noIf;
    }
    m_open.pop_back();
    return Answer::fine;
}

} // namespace nesasm
