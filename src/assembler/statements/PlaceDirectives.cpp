// SPDX-License-Identifier: MIT
#include "assembler/statements/PlaceDirectives.h"

#include "assembler/text/Characters.h"
#include "assembler/text/Text.h"

namespace nesasm {

namespace {

/// Where the program's addresses begin.
constexpr std::uint32_t PrgStart = 0x8000;

} // namespace

PlaceDirectives::PlaceDirectives(Assembly& assembly, ExpressionParser& parser)
    : m_assembly(assembly)
    , m_parser(parser) {}

void PlaceDirectives::bank(Cursor p) {
    const auto number =
        m_parser.parseKnown(p, "the number of .bank", 0, static_cast<std::int32_t>(BankCount) - 1);
    if (number && m_assembly.expectEnd(p)) {
        m_assembly.image.selectBank(static_cast<std::uint32_t>(*number));
    }
}

void PlaceDirectives::address(Cursor p) {
    const Cursor start = p;
    const auto value = m_parser.parseKnown(p, "the address of .org", 0, 0xFFFF);
    if (!value || !m_assembly.expectEnd(p)) {
        return;
    }
    m_assembly.noteMove();
    const auto target = static_cast<std::uint32_t>(*value);
    if (m_assembly.image.setAddress(target)) {
        return;
    }
    const bool isBss = m_assembly.image.section() == Section::bss;
    m_assembly.error(start, "the address " + hexText(target) + " lies outside of " +
                                (isBss ? ".bss, which ends at $800" : ".zp, which ends at $100") +
                                (target >= PrgStart ? "; .code leads back to the program" : ""));
}

void PlaceDirectives::select(Section section, Cursor p) {
    if (!m_assembly.expectEnd(p)) {
        return;
    }
    m_assembly.sectionErrorReported = false;
    m_assembly.image.selectSection(section);
}

void PlaceDirectives::reserveFrom(Cursor p) {
    const auto value = m_parser.parseKnown(p, "the address of .rsset", 0, 0xFFFF);
    if (value && m_assembly.expectEnd(p)) {
        m_assembly.reserveCounter = *value;
    }
}

void PlaceDirectives::prgUnits(Cursor p) {
    m_assembly.headerPosition = m_assembly.keep(p);
    setField(m_assembly.image.header.prg, "the value of .inesprg", p);
}

void PlaceDirectives::chrUnits(Cursor p) {
    m_assembly.headerPosition = m_assembly.keep(p);
    setField(m_assembly.image.header.chr, "the value of .ineschr", p);
}

void PlaceDirectives::mapper(Cursor p) {
    setField(m_assembly.image.header.mapper, "the value of .inesmap", p);
}

void PlaceDirectives::mirroring(Cursor p) {
    setField(m_assembly.image.header.mirroring, "the value of .inesmir", p);
}

void PlaceDirectives::setField(std::uint32_t& field, const char* what, Cursor p) {
    const auto value = m_parser.parseKnown(p, what, 0, 255);
    if (value && m_assembly.expectEnd(p)) {
        field = static_cast<std::uint32_t>(*value);
    }
}

} // namespace nesasm
