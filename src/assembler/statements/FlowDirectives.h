// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Keywords.h"
#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

#include <optional>
#include <string>

namespace nesasm {

/// Conditions and messages: .if and its kin, .assert .fail .error .warning.
class FlowDirectives {
public:
    FlowDirectives(Assembly& assembly, ExpressionParser& parser);

    /// True for the directives that must be seen in a branch not taken.
    static bool isConditional(Directive directive);

    /// A conditional directive that begins at `at`, with `p` behind it.
    void condition(Directive directive, const char* at, const char* p);

    /// A directive that says something, or lets the build fail.
    void message(Directive directive, const char* at, const char* p);

    /// Reports the conditions that the top frame opened and did not close.
    void closeFrame();

private:
    bool isTrue(Directive directive, const char* p);
    bool isDefined(const char* p);
    void elseIf(const char* at, const char* p);
    void report(Conditionals::Answer answer, const char* name, const char* at);
    void assertion(const char* at, const char* p);
    std::optional<std::string> text(const char*& p);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
