// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/Conditionals.h"
#include "assembler/reading/LineRecords.h"
#include "assembler/state/Frames.h"
#include "assembler/state/ImageWriter.h"
#include "assembler/state/Names.h"
#include "assembler/state/Statement.h"
#include "assembler/statements/Directives.h"
#include "assembler/statements/FlowDirectives.h"
#include "assembler/statements/MacroDirectives.h"
#include "assembler/statements/StatementAssembler.h"

namespace nesasm {

/// Takes the lines of the source one by one and has the statements of those that count assembled.
class LineAssembler {
public:
    LineAssembler(Statement& statement, Frames& frames, const Conditionals& conditionals,
                  Names& names, ImageWriter& writer, LineRecords& records,
                  StatementAssembler& statements, Directives& directives, MacroDirectives& macros,
                  FlowDirectives& flow);

    /// Assembles everything up to the end of the input, or to the error limit.
    void run();

private:
    void line();
    void assembleLine();
    void skippedLine();
    void endFrame();

    Statement& m_statement;
    Frames& m_frames;
    const Conditionals& m_conditionals;
    Names& m_names;
    ImageWriter& m_writer;
    LineRecords& m_records;
    StatementAssembler& m_statements;
    Directives& m_directives;
    MacroDirectives& m_macros;
    FlowDirectives& m_flow;
};

} // namespace nesasm
