// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/state/ImageWriter.h"
#include "assembler/state/Reporter.h"

namespace nesasm {

/// The directives that say where things go: .bank .org, the sections and the header's fields.
class PlaceDirectives {
public:
    PlaceDirectives(ExpressionParser& parser, ImageWriter& writer, Reporter& reporter);

    // `p` is at the operand.
    void bank(Cursor p);
    void address(Cursor p);

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

    ExpressionParser& m_parser;
    ImageWriter& m_writer;
    Reporter& m_reporter;
};

} // namespace nesasm
