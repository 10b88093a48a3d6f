// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Keywords.h"
#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

namespace nesasm {

/// The directives that say where things go: .bank .org, the sections, .rsset and the header's
/// fields.
class PlaceDirectives {
public:
    PlaceDirectives(Assembly& assembly, ExpressionParser& parser);

    /// `p` is behind the directive's name.
    void run(Directive directive, const char* p);

private:
    void bank(const char* p);
    void address(const char* p);
    void section(Directive directive, const char* p);
    void header(Directive directive, const char* p);
    void reserveFrom(const char* p);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
