// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Diagnostics.h"
#include "assembler/reading/Conditionals.h"
#include "assembler/reading/Origins.h"
#include "assembler/reading/SourceStack.h"
#include "assembler/state/Statement.h"
#include "assembler/text/Arena.h"

namespace nesasm {

/// Enters and leaves the files, macros and repetitions that statements ask for, and reads their
/// lines.
class Frames {
public:
    Frames(SourceStack& sources, Origins& origins, const Conditionals& conditionals,
           Diagnostics& diagnostics, Statement& statement, Arena& arena)
        : m_sources(sources)
        , m_origins(origins)
        , m_conditionals(conditionals)
        , m_diagnostics(diagnostics)
        , m_statement(statement)
        , m_arena(arena) {}

    SourceStack& sources() { return m_sources; }
    const SourceStack& sources() const { return m_sources; }

    /// True when the input has ended, or when the run has been stopped.
    bool isDone() const { return m_sources.empty() || m_diagnostics.limitReached(); }

    /// Reads the next line as SourceStack does; that a macro or repetition asks for too much is
    /// reported and stops the run.
    SourceStack::Next next(Line& line) {
        const SourceStack::Next next = m_sources.next(line);
        if (next != SourceStack::Next::line && next != SourceStack::Next::endOfFrame) {
            reportRunaway(line, next);
        }
        return next;
    }

    /// Enters what the present statement asks for. `origin` says what it is; this
    /// adds where it was asked for. The statement's label goes over to the frame: what that makes
    /// counts for its size.
    Frame& enter(Origin origin, const Passage& passage);

    /// Leaves the innermost frame, which has ended.
    void leave();

private:
    void reportRunaway(const Line& line, SourceStack::Next problem);

    SourceStack& m_sources;
    Origins& m_origins;
    const Conditionals& m_conditionals;
    Diagnostics& m_diagnostics;
    Statement& m_statement;
    Arena& m_arena;
};

} // namespace nesasm
