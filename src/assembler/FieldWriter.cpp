#include "assembler/FieldWriter.h"

#include <array>

namespace nesasm {

namespace {

bool isPageEnd(std::int32_t address) {
    return (static_cast<std::uint32_t>(address) & 0xFFU) == 0xFFU;
}

/// What to do about an address that is not in the zero page, where it has to be.
const char* zeroPageRemedy(const Position& position, std::int32_t value) {
    if (position.line == nullptr || value <= 0xFF)
        return "";
    const char mark = position.line[position.column];
    return mark == '<'                  ? "; without the < the instruction takes any address"
           : mark == '[' || mark == '(' ? "; a pointer's two bytes lie there"
                                        : "";
}

} // namespace

void checkField(Diagnostics& diagnostics, const Position& position, Field field, std::int32_t value,
                std::uint32_t next) {
    if (!fits(field, value, next)) {
        if (field == Field::Byte || field == Field::Word)
            diagnostics.warning(Warning::ValueTruncated, position, misfitText(field, value, next));
        else
            diagnostics.error(
                position, misfitText(field, value, next) +
                              (field == Field::ZeroPage ? zeroPageRemedy(position, value) : ""));
        return;
    }
    if (field == Field::JumpIndirect && isPageEnd(value))
        diagnostics.warning(
            Warning::JmpIndirectPageEnd, position,
            "the processor takes the high byte of this address from the start of the "
            "same page, not from the next one");
}

void emitField(Assembly& assembly, ExpressionParser& parser, const FieldToWrite& what) {
    const Evaluation result = parser.evaluateNow();
    std::array<std::uint8_t, 3> bytes{what.opcode, 0, 0};
    const std::size_t before = what.hasOpcode ? 1 : 0;
    const std::size_t size = before + sizeOf(what.field);
    if (result.status == Evaluation::Status::Known) {
        if (!fits(what.field, result.value, what.next) || what.field == Field::JumpIndirect)
            checkField(assembly.diagnostics, assembly.at(what.start), what.field, result.value,
                       what.next);
        const auto value = encoded(what.field, result.value, what.next);
        bytes[before] = value[0];
        if (before + 1 < bytes.size())
            bytes[before + 1] = value[1];
    }
    if (what.hasOpcode && what.field != Field::Immediate)
        parser.noteAddress();
    assembly.emit(bytes.data(), size, what.start);
    if (result.status != Evaluation::Status::Unknown || assembly.image.isRam())
        return;
    // Numbered after the bytes are in place: they themselves must not count as written over it.
    const std::uint32_t offset = assembly.image.offset() - sizeOf(what.field);
    assembly.deferred.fields.push_back({parser.defer(what.start), assembly.image.nextPatch(),
                                        what.next,
                                        static_cast<std::uint16_t>(assembly.image.bank()),
                                        static_cast<std::uint16_t>(offset), what.field});
}

} // namespace nesasm
