// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/reading/Conditionals.h"
#include "assembler/reading/SourceStack.h"
#include "assembler/state/Names.h"
#include "assembler/state/Reporter.h"
#include "assembler/values/Deferred.h"

#include <optional>
#include <string>

namespace nesasm {

/// Conditions and messages: .if .ifdef .ifndef .elseif .else .endif, .assert .fail .error .warning.
class FlowDirectives {
public:
    FlowDirectives(ExpressionParser& parser, Names& names, Conditionals& conditionals,
                   const SourceStack& sources, Reporter& reporter, Deferred& deferred);

    // The word begins at `at`, `p` is at the operand.
    void ifTrue(Cursor at, Cursor p);
    void ifDefined(Cursor at, Cursor p);
    void ifNotDefined(Cursor at, Cursor p);
    void elseIf(Cursor at, Cursor p);
    void otherwise(Cursor at, Cursor p);
    void endIf(Cursor at, Cursor p);

    void assertion(Cursor at, Cursor p);
    void fail(Cursor at, Cursor p);
    void error(Cursor at, Cursor p);
    void warning(Cursor at, Cursor p);

    /// Reports the conditions that the top frame opened and did not close.
    void closeFrame();

private:
    void open(bool condition, Cursor at);
    bool skips() const { return m_conditionals.skips(); }
    bool isTrue(Cursor p, const char* what);
    bool isDefined(Cursor p);
    void report(Conditionals::Answer answer, const char* name, Cursor at);
    std::optional<std::string> lastText(Cursor p);
    std::optional<std::string> text(Cursor& p);

    ExpressionParser& m_parser;
    Names& m_names;
    Conditionals& m_conditionals;
    const SourceStack& m_sources;
    Reporter& m_reporter;
    Deferred& m_deferred;
};

} // namespace nesasm
