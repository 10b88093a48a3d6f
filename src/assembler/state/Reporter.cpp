// SPDX-License-Identifier: MIT
#include "assembler/state/Reporter.h"

#include "assembler/text/FoundText.h"

#include <cstdint>

namespace nesasm {

Position Reporter::at(Cursor place) const {
    return {m_line.begin.data(), m_line.number, static_cast<std::uint32_t>(place - m_line.begin),
            m_line.origin, m_line.order};
}

Position Reporter::keep(Cursor place) {
    Position position = at(place);
    m_origins[m_line.origin].kept = true;
    if (m_line.isShortLived) {
        position.line = m_arena.keepLine(m_line.begin.upTo(m_line.begin.lineEnd())).data();
    }
    return position;
}

void Reporter::reportRest(Cursor place, std::string_view remedy) {
    const bool isIndex =
        (lowered(*place) == 'x' || lowered(*place) == 'y') && !isWordPart(place[1]);
    std::string text = "expected the end of the statement, found " + foundText(place);
    if (!remedy.empty()) {
        text += remedy;
    } else if (isIndex) {
        text += "; a comma belongs before an index";
    } else {
        text +=
            *place == ':' ? "; only the definition of a label has a colon" : commentRemedy(place);
    }
    error(place, std::move(text));
}

} // namespace nesasm
