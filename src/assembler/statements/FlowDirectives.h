// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

#include <optional>
#include <string>

namespace nesasm {

/// Conditions and messages: .if and its kin, .assert .fail .error .warning.
class FlowDirectives {
public:
    FlowDirectives(Assembly& assembly, ExpressionParser& parser);

    // The word begins at `at`, `p` is at the operand.
    void ifTrue(const char* at, const char* p);
    void ifDefined(const char* at, const char* p);
    void ifNotDefined(const char* at, const char* p);
    void elseIf(const char* at, const char* p);
    void otherwise(const char* at, const char* p);
    void endIf(const char* at, const char* p);

    void assertion(const char* at, const char* p);
    void fail(const char* at, const char* p);
    void error(const char* at, const char* p);
    void warning(const char* at, const char* p);

    /// Reports the conditions that the top frame opened and did not close.
    void closeFrame();

private:
    void open(bool condition, const char* at);
    bool skips() const { return m_assembly.conditionals.skips(); }
    bool isTrue(const char* p, const char* what);
    bool isDefined(const char* p);
    void report(Conditionals::Answer answer, const char* name, const char* at);
    std::optional<std::string> lastText(const char* p);
    std::optional<std::string> text(const char*& p);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
