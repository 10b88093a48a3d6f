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
    void bank(const char* p);
    void address(const char* p);
    void reserveFrom(const char* p);

    void code(const char* p) { select(Section::code, p); }
    void data(const char* p) { select(Section::data, p); }
    void zeroPage(const char* p) { select(Section::zeroPage, p); }
    void bss(const char* p) { select(Section::bss, p); }

    void prgUnits(const char* p);
    void chrUnits(const char* p);
    void mapper(const char* p);
    void mirroring(const char* p);

private:
    void select(Section section, const char* p);
    void setField(std::uint32_t& field, const char* what, const char* p);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
