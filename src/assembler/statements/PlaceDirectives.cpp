// SPDX-License-Identifier: MIT
#include "assembler/statements/PlaceDirectives.h"

#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

namespace nesasm {

namespace {

/// Where the program's addresses begin.
constexpr std::uint32_t PrgStart = 0x8000;

} // namespace

PlaceDirectives::PlaceDirectives(ExpressionParser& parser, ImageWriter& writer, Reporter& reporter)
    : m_parser(parser)
    , m_writer(writer)
    , m_reporter(reporter) {}

void PlaceDirectives::bank(Cursor p) {
    const auto number =
        m_parser.parseKnown(p, "the number of .bank", 0, static_cast<std::int32_t>(BankCount) - 1);
    if (number && m_reporter.expectEnd(p)) {
        m_writer.image().selectBank(static_cast<std::uint32_t>(*number));
    }
}

void PlaceDirectives::address(Cursor p) {
    const Cursor start = p;
    const auto value = m_parser.parseKnown(p, "the address of .org", 0, 0xFFFF);
    if (!value || !m_reporter.expectEnd(p)) {
        return;
    }
    const auto target = static_cast<std::uint32_t>(*value);
    if (m_writer.setAddress(target)) {
        return;
    }
    const bool isBss = m_writer.image().section() == Section::bss;
    m_reporter.error(start, "the address " + hexText(target) + " is outside " +
                                (isBss ? ".bss, which ends at $800" : ".zp, which ends at $100") +
                                (target >= PrgStart ? "; .code returns to the program" : ""));
}

void PlaceDirectives::select(Section section, Cursor p) {
    if (!m_reporter.expectEnd(p)) {
        return;
    }
    m_writer.selectSection(section);
}

void PlaceDirectives::prgUnits(Cursor p) {
    m_writer.image().header.position = m_reporter.keep(p);
    setField(m_writer.image().header.prg, "the value of .inesprg", p);
}

void PlaceDirectives::chrUnits(Cursor p) {
    m_writer.image().header.position = m_reporter.keep(p);
    setField(m_writer.image().header.chr, "the value of .ineschr", p);
}

void PlaceDirectives::mapper(Cursor p) {
    setField(m_writer.image().header.mapper, "the value of .inesmap", p);
}

void PlaceDirectives::mirroring(Cursor p) {
    setField(m_writer.image().header.mirroring, "the value of .inesmir", p);
}

void PlaceDirectives::setField(std::uint32_t& field, const char* what, Cursor p) {
    const auto value = m_parser.parseKnown(p, what, 0, 255);
    if (value && m_reporter.expectEnd(p)) {
        field = static_cast<std::uint32_t>(*value);
    }
}

} // namespace nesasm
