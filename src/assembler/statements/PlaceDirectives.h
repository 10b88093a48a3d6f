// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

namespace nesasm {

/// The directives that say where things go: .bank .org, the sections, .rsset and the header's
/// fields.
class PlaceDirectives {
public:
    PlaceDirectives(Assembly& assembly, ExpressionParser& parser);

    // `p` is at the operand.
    void bank(Cursor p);
    void address(Cursor p);
    void reserveFrom(Cursor p);

    void code(Cursor p) { select(Section::code, p); }
    void data(Cursor p) { select(Section::data, p); }
    void zeroPage(Cursor p) { select(Section::zeroPage, p); }
    void bss(Cursor p) { select(Section::bss, p); }

    void prgUnits(Cursor p);
    void chrUnits(Cursor p);
    void mapper(Cursor p);
    void mirroring(Cursor p);

private:
    void select(Section section, Cursor p);
    void setField(std::uint32_t& field, const char* what, Cursor p);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
