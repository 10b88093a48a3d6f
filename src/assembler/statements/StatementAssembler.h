// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/Directives.h"
#include "assembler/statements/ExpressionParser.h"
#include "assembler/statements/InstructionAssembler.h"

#include <string>
#include <string_view>

namespace nesasm {

/// Takes the lines one by one and hands each statement to the part that knows it.
class StatementAssembler {
public:
    explicit StatementAssembler(Assembly& assembly);

    /// Begins with the input file. Returns "" or why it cannot be read.
    std::string openInput(const std::string& name) { return m_directives.files().openInput(name); }
    void predefine(std::string_view name, std::int32_t value) {
        m_directives.definitions().predefine(name, value);
    }

    /// Assembles everything up to the end of the input, or to the error limit.
    void run();

private:
    void line();
    void assembleLine();
    void skippedLine();
    void statement(Cursor p, bool isFirstColumn);
    bool isKnownWord(std::string_view word, Cursor p);
    bool isNamed(std::string_view name, Cursor at, Cursor next);
    bool namesSymbol(Cursor p, Cursor next) const;
    void reportKeyword(std::string_view word, Cursor p, bool isDirective);
    void reportUnknown(std::string_view word, Cursor p, std::string_view label);
    std::string unknownText(std::string_view word, Cursor p, std::string_view label) const;
    void reportUnexpected(Cursor p, std::string_view label);
    void endFrame();

    Assembly& m_assembly;
    ExpressionParser m_parser;
    Directives m_directives;
    InstructionAssembler m_instructions;
};

} // namespace nesasm
