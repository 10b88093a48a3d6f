// SPDX-License-Identifier: MIT
#include "assembler/state/Frames.h"

#include <cstdint>
#include <utility>

namespace nesasm {

void Frames::reportRunaway(const Line& line, SourceStack::Next problem) {
    const auto column = static_cast<std::uint32_t>(line.begin.afterBlanks() - line.begin);
    m_diagnostics.fatal({line.begin.data(), line.number, column, line.origin, line.order},
                        problem == SourceStack::Next::tooLong
                            ? "this line of a macro is too long with its arguments filled in"
                            : "macros, repetitions and files included again come to more lines "
                              "than can be assembled: is there one without end?");
}

Frame& Frames::enter(Origin origin, const Passage& passage) {
    const Line& line = m_statement.line;
    origin.parent = line.origin;
    origin.callLine = line.number;
    if (origin.kind == Origin::Kind::file && origin.parent != NoOrigin) {
        m_origins[origin.parent].kept = true;
        if (line.isShortLived) {
            origin.file = m_arena.keepLine(origin.file);
        }
    }
    Frame& frame = m_sources.push(origin.kind, passage, m_origins.add(origin));
    if (origin.kind == Origin::Kind::file) {
        frame.passage.fileName = origin.file;
    }
    frame.conditionals = m_conditionals.depth();
    frame.label = std::exchange(m_statement.label, 0);
    frame.totalBefore = m_statement.totalAtLabel;
    return frame;
}

void Frames::leave() {
    const OriginId origin = m_sources.top().origin;
    m_sources.pop();
    m_origins.release(origin);
}

} // namespace nesasm
