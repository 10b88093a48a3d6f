// SPDX-License-Identifier: MIT
#include "assembler/statements/DataDirectives.h"

#include "assembler/state/QuotedOperand.h"
#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <array>

namespace nesasm {

namespace {

const std::uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data()); // the same bytes, seen as numbers
}

} // namespace

DataDirectives::DataDirectives(const Statement& statement, ExpressionParser& parser,
                               FieldWriter& fields, ImageWriter& writer, Reporter& reporter)
    : m_statement(statement)
    , m_parser(parser)
    , m_fields(fields)
    , m_writer(writer)
    , m_reporter(reporter) {}

void DataDirectives::data(Field field, Cursor p) {
    while (item(field, p)) {
        p.skipBlanks();
        if (*p != ',') {
            if (!p.isAtStatementEnd()) {
                m_reporter.error(p, "expected a comma or the end of the statement, found " +
                                        foundText(p));
            }
            return;
        }
        p = (p + 1).afterBlanks();
    }
}

bool DataDirectives::item(Field field, Cursor& p) {
    if (*p == '"' && field == Field::byte) {
        return string(p);
    }
    const Cursor start = p;
    if (!m_parser.parse(p, ExpressionParser::Prefix::lowHigh)) {
        return false;
    }
    m_fields.write({field, start, 0, 0, false});
    return true;
}

bool DataDirectives::string(Cursor& p) {
    const Cursor start = p;
    const QuotedText quoted = readQuoted(start, QuotedText::Backslash::escapes);
    const std::string text = quoted.hasEscapes ? quoted.text() : std::string();
    const std::string_view bytes = quoted.hasEscapes ? text : quoted.written;
    if (!bytes.empty()) { // the first bank is made by the first byte
        m_writer.emit(bytesOf(bytes), bytes.size(), start);
    }
    if (!quoted.isClosed) {
        reportUnclosed(QuotedKind::text, start, m_reporter);
    }
    p = quoted.end;
    return quoted.isClosed;
}

void DataDirectives::space(Cursor p) {
    const Cursor start = p;
    const auto count = m_parser.parseKnown(p, "the count of .ds", 0, 0xFFFF);
    if (count && m_reporter.expectEnd(p)) {
        fill(static_cast<std::size_t>(*count), 0, start);
    }
}

void DataDirectives::align(Cursor p) {
    const Cursor start = p;
    const auto unit = m_parser.parseKnown(p, "the step of .align", 1, 0x10000);
    if (unit) {
        const auto step = static_cast<std::uint32_t>(*unit);
        alignOrPadTo((step - m_statement.address % step) % step, start, p);
    }
}

void DataDirectives::pad(Cursor p) {
    const Cursor start = p;
    const auto address = m_parser.parseKnown(p, "the address of .pad", 0, 0x10000);
    if (!address) {
        return;
    }
    if (static_cast<std::uint32_t>(*address) < m_statement.address) {
        m_reporter.error(
            start, "the address of .pad is " +
                       counted(m_statement.address - static_cast<std::uint32_t>(*address), "byte") +
                       " before the current address");
        return;
    }
    alignOrPadTo(std::int64_t{*address} - m_statement.address, start, p);
}

void DataDirectives::alignOrPadTo(std::int64_t count, Cursor start, Cursor p) {
    std::int32_t byte = 0;
    if (*p == ',') {
        ++p;
        const auto given = m_parser.parseKnown(p, "the fill byte", -128, 255);
        if (!given) {
            return;
        }
        byte = *given;
    }
    if (m_reporter.expectEnd(p)) {
        fill(static_cast<std::size_t>(count), static_cast<std::uint8_t>(byte & 0xFF), start);
    }
}

void DataDirectives::fill(std::size_t count, std::uint8_t byte, Cursor start) {
    if (m_writer.image().isRam()) {
        if (const std::size_t excess = m_writer.image().reserve(count); excess != 0) {
            m_reporter.error(start, "there is no room for this: it goes " +
                                        counted(excess, "byte") +
                                        (m_writer.image().section() == Section::bss
                                             ? " beyond the end of .bss ($800)"
                                             : " beyond the end of .zp ($100)"));
        }
        return;
    }
    std::array<std::uint8_t, 256> bytes{};
    bytes.fill(byte);
    while (count != 0) {
        const std::size_t part = std::min(count, bytes.size());
        m_writer.emit(bytes.data(), part, start);
        count -= part;
    }
}

} // namespace nesasm
