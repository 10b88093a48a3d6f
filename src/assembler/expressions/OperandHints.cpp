// SPDX-License-Identifier: MIT
#include "assembler/expressions/OperandHints.h"

#include "assembler/expressions/WrittenOperand.h"
#include "assembler/text/Text.h"

#include <optional>

namespace nesasm {

namespace {

/// The mode that does the same with an address in the zero page.
std::optional<Mode> zeroPageModeOf(Mode mode) {
    switch (mode) {
    case Mode::absolute:
        return Mode::zeroPage;
    case Mode::absoluteX:
        return Mode::zeroPageX;
    case Mode::absoluteY:
        return Mode::zeroPageY;
    case Mode::implied:
    case Mode::accumulator:
    case Mode::immediate:
    case Mode::zeroPage:
    case Mode::zeroPageX:
    case Mode::zeroPageY:
    case Mode::indirect:
    case Mode::indirectX:
    case Mode::indirectY:
    case Mode::relative:
        break;
    }
    return std::nullopt;
}

/// A number, or one byte of something: what immediate operands are mostly made of.
bool looksImmediate(std::span<const Operation> operations, const SymbolTable& symbols) {
    const OpCode last = operations.back().code;
    if (last == OpCode::low || last == OpCode::high) {
        return true;
    }
    if (operations.size() != 1 || last != OpCode::literal) {
        return false;
    }
    const Evaluation value = evaluate(operations, symbols);
    return value.status == Evaluation::Status::known && value.value >= 0 && value.value <= 0xFF;
}

} // namespace

OperandHints::OperandHints(Diagnostics& diagnostics, const SymbolTable& symbols, const Image& image)
    : m_diagnostics(diagnostics)
    , m_symbols(symbols)
    , m_image(image)
    , m_zeroPage(diagnostics.isOn(Warning::zeroPagePossible))
    , m_hash(diagnostics.isOn(Warning::missingHash)) {}

void OperandHints::look(const Instruction& instruction, Mode mode,
                        std::span<const Operation> operations, const Position& operand) {
    if (m_hash && mode == Mode::absolute && instruction.has(Mode::immediate) &&
        looksImmediate(operations, m_symbols)) {
        const std::string name(instruction.name);
        const std::string written = writtenOperand(operand);
        const std::string shown = written.empty() ? "n" : written;
        m_diagnostics.warning(Warning::missingHash, operand,
                              "without a # this is an address, not a value; for the value write " +
                                  name + " #" + shown + ", for the address " + name + " <" + shown);
        return;
    }
    if (!m_zeroPage) {
        return;
    }
    const Evaluation value = evaluate(operations, m_symbols);
    if (value.status == Evaluation::Status::known) {
        warnOfZeroPage(instruction, mode, value.value, operand);
    }
}

void OperandHints::lookLate(const DeferredField& field, std::int32_t value) {
    if (!m_zeroPage || field.field != Field::absolute || field.offset == 0) {
        return;
    }
    const std::uint8_t* const bytes = m_image.bytes(field.bank);
    Mode mode{};
    const Instruction* const instruction =
        bytes == nullptr ? nullptr : findOpcode(bytes[field.offset - 1], mode);
    if (instruction != nullptr) {
        warnOfZeroPage(*instruction, mode, value, field.expression.position);
    }
}

void OperandHints::warnOfZeroPage(const Instruction& instruction, Mode mode, std::int32_t value,
                                  const Position& position) {
    const auto shorter = zeroPageModeOf(mode);
    if (!shorter || !instruction.has(*shorter) || value < 0 || value > 0xFF) {
        return;
    }
    m_diagnostics.warning(
        Warning::zeroPagePossible, position,
        "the address " + hexText(static_cast<unsigned>(value), 2) +
            " is in the zero page: with a < before the operand the instruction is a byte shorter "
            "and faster");
}

} // namespace nesasm
