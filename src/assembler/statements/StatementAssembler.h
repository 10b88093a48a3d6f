// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Vocabulary.h"
#include "assembler/state/Names.h"
#include "assembler/state/Reporter.h"
#include "assembler/statements/Definitions.h"
#include "assembler/statements/Directives.h"
#include "assembler/statements/InstructionAssembler.h"
#include "assembler/statements/MacroDirectives.h"
#include "assembler/text/Cursor.h"

#include <string>
#include <string_view>

namespace nesasm {

/// Tells by its words what a statement is, and hands it to the part that knows it.
class StatementAssembler {
public:
    StatementAssembler(Names& names, Reporter& reporter, InstructionAssembler& instructions,
                       Directives& directives, Definitions& definitions, MacroDirectives& macros);

    /// Assembles the statement that begins at `p`, with its labels.
    void assemble(Cursor p, bool isFirstColumn);

private:
    bool isKnownWord(std::string_view word, Cursor p);
    bool isNamed(std::string_view name, Cursor at, Cursor next);
    bool namesSymbol(Cursor p, Cursor next) const;
    void reportKeyword(std::string_view word, Cursor p, bool isDirective);
    void reportUnknown(std::string_view word, Cursor p, std::string_view label);
    std::string unknownText(std::string_view word, Cursor p, std::string_view label) const;
    void reportUnexpected(Cursor p, std::string_view label);

    const Vocabulary& m_vocabulary;
    Names& m_names;
    Reporter& m_reporter;
    InstructionAssembler& m_instructions;
    Directives& m_directives;
    Definitions& m_definitions;
    MacroDirectives& m_macros;
};

} // namespace nesasm
