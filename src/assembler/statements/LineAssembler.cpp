// SPDX-License-Identifier: MIT
#include "assembler/statements/LineAssembler.h"

#include <cstdint>

namespace nesasm {

LineAssembler::LineAssembler(Statement& statement, Frames& frames, const Conditionals& conditionals,
                             Names& names, ImageWriter& writer, LineRecords& records,
                             StatementAssembler& statements, Directives& directives,
                             MacroDirectives& macros, FlowDirectives& flow)
    : m_statement(statement)
    , m_frames(frames)
    , m_conditionals(conditionals)
    , m_names(names)
    , m_writer(writer)
    , m_records(records)
    , m_statements(statements)
    , m_directives(directives)
    , m_macros(macros)
    , m_flow(flow) {}

void LineAssembler::run() {
    while (!m_frames.isDone()) {
        switch (m_frames.next(m_statement.line)) {
        case SourceStack::Next::line:
            line();
            break;
        case SourceStack::Next::endOfFrame:
            endFrame();
            break;
        case SourceStack::Next::tooLong:
        case SourceStack::Next::tooMuch:
            break; // that stops the run
        }
    }
}

void LineAssembler::endFrame() {
    m_flow.closeFrame();
    const Frame& frame = m_frames.sources().top();
    if (frame.label != 0) {
        m_names[frame.label].size =
            static_cast<std::uint32_t>(m_writer.image().total() - frame.totalBefore);
    }
    m_frames.leave();
}

void LineAssembler::line() {
    if (!m_records.isOn()) {
        assembleLine();
        return;
    }
    const SourceFile* const file = m_frames.sources().top().passage.file;
    if (m_conditionals.skips()) {
        m_records.add(m_statement.line, file);
        assembleLine();
        return;
    }
    m_records.begin(m_statement.line, file, m_writer.image());
    assembleLine();
    m_records.end(m_writer.image());
}

void LineAssembler::assembleLine() {
    if (m_conditionals.skips()) {
        skippedLine();
        return;
    }
    const Cursor begin = m_statement.line.begin;
    const Cursor p = begin.afterBlanks();
    if (p.isAtStatementEnd()) {
        return;
    }
    const Image& image = m_writer.image();
    m_statement.address = image.address();
    m_statement.bank = image.bank();
    m_statement.label = 0;
    m_statements.assemble(p, p == begin);
    if (image.hasOverwritten()) {
        m_writer.noteOverwriting();
    }
    if (m_statement.label != 0) {
        m_names[m_statement.label].size =
            static_cast<std::uint32_t>(image.total() - m_statement.totalAtLabel);
    }
}

void LineAssembler::skippedLine() {
    const auto directive = m_macros.directiveOf(m_statement.line.begin);
    if (!directive) {
        return;
    }
    switch (directive->keyword.role) {
    case DirectiveRole::macro:
        m_macros.skipBody(directive->at);
        break;
    case DirectiveRole::conditional:
        m_directives.run(directive->keyword.index, directive->at, directive->at.wordEnd());
        break;
    case DirectiveRole::ordinary:
    case DirectiveRole::equ:
    case DirectiveRole::rs:
    case DirectiveRole::endMacro:
    case DirectiveRole::repeat:
    case DirectiveRole::endRepeat:
    case DirectiveRole::late:
        break;
    }
}

} // namespace nesasm
