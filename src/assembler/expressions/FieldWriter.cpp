// SPDX-License-Identifier: MIT
#include "assembler/expressions/FieldWriter.h"

#include "assembler/expressions/WrittenOperand.h"

#include <array>
#include <string>

namespace nesasm {

namespace {

bool isPageEnd(std::int32_t address) {
    return (static_cast<std::uint32_t>(address) & 0xFFU) == 0xFFU;
}

/// What to do about an address that is not in the zero page, where it has to be.
const char* zeroPageRemedy(const Position& position, std::int32_t value) {
    if (position.line == nullptr || value <= 0xFF) {
        return "";
    }
    const char mark = position.line[position.column];
    return mark == '<'                  ? "; without the < the instruction takes any address"
           : mark == '[' || mark == '(' ? "; a pointer's two bytes must be there"
                                        : "";
}

/// What to write instead of a branch that does not reach.
std::string branchRemedy(const Position& position) {
    const Instruction* const branch = instructionBefore(position);
    const std::string target = writtenOperand(position);
    Mode mode = Mode::relative;
    // For a JMP a parenthesis has another meaning, and * another value.
    if (branch == nullptr || !branch->has(mode) || target.empty() ||
        target.find_first_of("(*") != std::string::npos) {
        return "; branch on the opposite condition over a JMP to the target instead";
    }
    constexpr unsigned ConditionBit = 0x20;
    const Instruction* const opposite =
        findOpcode(static_cast<std::uint8_t>(branch->opcode(mode) ^ ConditionBit), mode);
    return "; write " + std::string(opposite->name) + " *+5 and below it JMP " + target +
           " instead";
}

std::string remedyFor(Field field, const Position& position, std::int32_t value) {
    if (field == Field::relative) {
        return branchRemedy(position);
    }
    return field == Field::zeroPage ? zeroPageRemedy(position, value) : "";
}

} // namespace

void checkField(Diagnostics& diagnostics, const Position& position, Field field, std::int32_t value,
                std::uint32_t next) {
    if (!fits(field, value, next)) {
        if (field == Field::byte || field == Field::word) {
            diagnostics.warning(Warning::valueTruncated, position, misfitText(field, value, next));
        } else {
            diagnostics.error(position,
                              misfitText(field, value, next) + remedyFor(field, position, value));
        }
        return;
    }
    if (field == Field::jumpIndirect && isPageEnd(value)) {
        diagnostics.warning(
            Warning::jmpIndirectPageEnd, position,
            "the processor takes the high byte of this address from the start of the "
            "same page, not from the next one");
    }
}

FieldWriter::FieldWriter(ExpressionParser& parser, ImageWriter& writer, Reporter& reporter,
                         Deferred& deferred)
    : m_parser(parser)
    , m_writer(writer)
    , m_reporter(reporter)
    , m_deferred(deferred) {}

void FieldWriter::write(const FieldToWrite& what) {
    const Evaluation result = m_parser.evaluateNow();
    std::array<std::uint8_t, 3> bytes{what.opcode, 0, 0};
    const std::size_t before = what.hasOpcode ? 1 : 0;
    const std::size_t size = before + sizeOf(what.field);
    if (result.status == Evaluation::Status::known) {
        if (!fits(what.field, result.value, what.next) || what.field == Field::jumpIndirect) {
            checkField(m_reporter.diagnostics(), m_reporter.at(what.start), what.field,
                       result.value, what.next);
        }
        const auto value = encoded(what.field, result.value, what.next);
        bytes[before] = value[0];
        if (before + 1 < bytes.size()) {
            bytes[before + 1] = value[1];
        }
    }
    if (what.hasOpcode && what.field != Field::immediate) {
        m_parser.noteAddress();
    }
    m_writer.emit(bytes.data(), size, what.start);
    Image& image = m_writer.image();
    if (result.status != Evaluation::Status::unknown || image.isRam()) {
        return;
    }
    // Numbered after the bytes are in place: they themselves must not count as written over it.
    const std::uint32_t offset = image.offset() - sizeOf(what.field);
    m_deferred.fields.push_back({m_parser.defer(what.start), image.nextPatch(), what.next,
                                 static_cast<std::uint16_t>(image.bank()),
                                 static_cast<std::uint16_t>(offset), what.field});
}

} // namespace nesasm
