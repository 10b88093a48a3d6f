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

void PlaceDirectives::run(Directive directive, const char* p) {
    p = skipBlanks(p);
    switch (directive) {
    case Directive::bank:
        bank(p);
        break;
    case Directive::org:
        address(p);
        break;
    case Directive::rsSet:
        reserveFrom(p);
        break;
    case Directive::inesPrg:
    case Directive::inesChr:
    case Directive::inesMap:
    case Directive::inesMir:
        header(directive, p);
        break;
    default:
        section(directive, p);
        break;
    }
}

void PlaceDirectives::bank(const char* p) {
    const auto number =
        m_parser.parseKnown(p, "the number of .bank", 0, static_cast<std::int32_t>(BankCount) - 1);
    if (number && m_assembly.expectEnd(p)) {
        m_assembly.image.selectBank(static_cast<std::uint32_t>(*number));
    }
}

void PlaceDirectives::address(const char* p) {
    const char* const start = p;
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
    m_assembly.error(start, "the address " + hexText(target) + " is outside " +
                                (isBss ? ".bss, which ends at $800" : ".zp, which ends at $100") +
                                (target >= PrgStart ? "; .code returns to the program" : ""));
}

void PlaceDirectives::section(Directive directive, const char* p) {
    if (!m_assembly.expectEnd(p)) {
        return;
    }
    m_assembly.sectionErrorReported = false;
    switch (directive) {
    case Directive::data:
        m_assembly.image.selectSection(Section::data);
        break;
    case Directive::zp:
        m_assembly.image.selectSection(Section::zeroPage);
        break;
    case Directive::bss:
        m_assembly.image.selectSection(Section::bss);
        break;
    default:
        m_assembly.image.selectSection(Section::code);
        break;
    }
}

void PlaceDirectives::reserveFrom(const char* p) {
    const auto value = m_parser.parseKnown(p, "the address of .rsset", 0, 0xFFFF);
    if (value && m_assembly.expectEnd(p)) {
        m_assembly.reserveCounter = *value;
    }
}

void PlaceDirectives::header(Directive directive, const char* p) {
    struct Row {
        const char* what;
        std::uint32_t Header::*field;
    };
    const Row row = directive == Directive::inesPrg   ? Row{"the value of .inesprg", &Header::prg}
                    : directive == Directive::inesChr ? Row{"the value of .ineschr", &Header::chr}
                    : directive == Directive::inesMap
                        ? Row{"the value of .inesmap", &Header::mapper}
                        : Row{"the value of .inesmir", &Header::mirroring};
    if (directive == Directive::inesPrg || directive == Directive::inesChr) {
        m_assembly.headerPosition = m_assembly.keep(p);
    }
    const auto value = m_parser.parseKnown(p, row.what, 0, 255);
    if (value && m_assembly.expectEnd(p)) {
        m_assembly.image.header.*row.field = static_cast<std::uint32_t>(*value);
    }
}

} // namespace nesasm
