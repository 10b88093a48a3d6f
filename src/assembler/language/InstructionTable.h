// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace nesasm {

enum class Mode : std::uint8_t {
    Implied,
    Accumulator,
    Immediate,
    ZeroPage,
    ZeroPageX,
    ZeroPageY,
    Absolute,
    AbsoluteX,
    AbsoluteY,
    Indirect,
    IndirectX,
    IndirectY,
    Relative
};
inline constexpr std::size_t kModeCount = 13;

/// One documented 6502 instruction: its opcode in each mode, kNoOpcode where it has none.
/// Source of all encodings: MOS Technology, "MCS6500 Microcomputer Family Programming Manual",
/// appendix B.
struct Instruction {
    std::string_view name;
    std::array<std::uint16_t, kModeCount> opcodes;

    static constexpr std::uint16_t kNoOpcode = 0x100;

    constexpr std::uint16_t opcode(Mode mode) const {
        return opcodes[static_cast<std::size_t>(mode)];
    }
    constexpr bool has(Mode mode) const { return opcode(mode) != kNoOpcode; }
};

constexpr Instruction
makeInstruction(std::string_view name,
                std::initializer_list<std::pair<Mode, std::uint8_t>> encodings) {
    Instruction instruction{name, {}};
    instruction.opcodes.fill(Instruction::kNoOpcode);
    for (const auto& [mode, opcode] : encodings)
        instruction.opcodes[static_cast<std::size_t>(mode)] = opcode;
    return instruction;
}

/// All instructions in alphabetical order.
// clang-format off
inline constexpr std::array<Instruction, 56> instructionTable{
    makeInstruction("ADC", {{Mode::Immediate, 0x69}, {Mode::ZeroPage, 0x65},
        {Mode::ZeroPageX, 0x75}, {Mode::Absolute, 0x6D}, {Mode::AbsoluteX, 0x7D},
        {Mode::AbsoluteY, 0x79}, {Mode::IndirectX, 0x61}, {Mode::IndirectY, 0x71}}),
    makeInstruction("AND", {{Mode::Immediate, 0x29}, {Mode::ZeroPage, 0x25},
        {Mode::ZeroPageX, 0x35}, {Mode::Absolute, 0x2D}, {Mode::AbsoluteX, 0x3D},
        {Mode::AbsoluteY, 0x39}, {Mode::IndirectX, 0x21}, {Mode::IndirectY, 0x31}}),
    makeInstruction("ASL", {{Mode::Accumulator, 0x0A}, {Mode::ZeroPage, 0x06},
        {Mode::ZeroPageX, 0x16}, {Mode::Absolute, 0x0E}, {Mode::AbsoluteX, 0x1E}}),
    makeInstruction("BCC", {{Mode::Relative, 0x90}}),
    makeInstruction("BCS", {{Mode::Relative, 0xB0}}),
    makeInstruction("BEQ", {{Mode::Relative, 0xF0}}),
    makeInstruction("BIT", {{Mode::ZeroPage, 0x24}, {Mode::Absolute, 0x2C}}),
    makeInstruction("BMI", {{Mode::Relative, 0x30}}),
    makeInstruction("BNE", {{Mode::Relative, 0xD0}}),
    makeInstruction("BPL", {{Mode::Relative, 0x10}}),
    makeInstruction("BRK", {{Mode::Implied, 0x00}}),
    makeInstruction("BVC", {{Mode::Relative, 0x50}}),
    makeInstruction("BVS", {{Mode::Relative, 0x70}}),
    makeInstruction("CLC", {{Mode::Implied, 0x18}}),
    makeInstruction("CLD", {{Mode::Implied, 0xD8}}),
    makeInstruction("CLI", {{Mode::Implied, 0x58}}),
    makeInstruction("CLV", {{Mode::Implied, 0xB8}}),
    makeInstruction("CMP", {{Mode::Immediate, 0xC9}, {Mode::ZeroPage, 0xC5},
        {Mode::ZeroPageX, 0xD5}, {Mode::Absolute, 0xCD}, {Mode::AbsoluteX, 0xDD},
        {Mode::AbsoluteY, 0xD9}, {Mode::IndirectX, 0xC1}, {Mode::IndirectY, 0xD1}}),
    makeInstruction("CPX", {{Mode::Immediate, 0xE0}, {Mode::ZeroPage, 0xE4},
        {Mode::Absolute, 0xEC}}),
    makeInstruction("CPY", {{Mode::Immediate, 0xC0}, {Mode::ZeroPage, 0xC4},
        {Mode::Absolute, 0xCC}}),
    makeInstruction("DEC", {{Mode::ZeroPage, 0xC6}, {Mode::ZeroPageX, 0xD6},
        {Mode::Absolute, 0xCE}, {Mode::AbsoluteX, 0xDE}}),
    makeInstruction("DEX", {{Mode::Implied, 0xCA}}),
    makeInstruction("DEY", {{Mode::Implied, 0x88}}),
    makeInstruction("EOR", {{Mode::Immediate, 0x49}, {Mode::ZeroPage, 0x45},
        {Mode::ZeroPageX, 0x55}, {Mode::Absolute, 0x4D}, {Mode::AbsoluteX, 0x5D},
        {Mode::AbsoluteY, 0x59}, {Mode::IndirectX, 0x41}, {Mode::IndirectY, 0x51}}),
    makeInstruction("INC", {{Mode::ZeroPage, 0xE6}, {Mode::ZeroPageX, 0xF6},
        {Mode::Absolute, 0xEE}, {Mode::AbsoluteX, 0xFE}}),
    makeInstruction("INX", {{Mode::Implied, 0xE8}}),
    makeInstruction("INY", {{Mode::Implied, 0xC8}}),
    makeInstruction("JMP", {{Mode::Absolute, 0x4C}, {Mode::Indirect, 0x6C}}),
    makeInstruction("JSR", {{Mode::Absolute, 0x20}}),
    makeInstruction("LDA", {{Mode::Immediate, 0xA9}, {Mode::ZeroPage, 0xA5},
        {Mode::ZeroPageX, 0xB5}, {Mode::Absolute, 0xAD}, {Mode::AbsoluteX, 0xBD},
        {Mode::AbsoluteY, 0xB9}, {Mode::IndirectX, 0xA1}, {Mode::IndirectY, 0xB1}}),
    makeInstruction("LDX", {{Mode::Immediate, 0xA2}, {Mode::ZeroPage, 0xA6},
        {Mode::ZeroPageY, 0xB6}, {Mode::Absolute, 0xAE}, {Mode::AbsoluteY, 0xBE}}),
    makeInstruction("LDY", {{Mode::Immediate, 0xA0}, {Mode::ZeroPage, 0xA4},
        {Mode::ZeroPageX, 0xB4}, {Mode::Absolute, 0xAC}, {Mode::AbsoluteX, 0xBC}}),
    makeInstruction("LSR", {{Mode::Accumulator, 0x4A}, {Mode::ZeroPage, 0x46},
        {Mode::ZeroPageX, 0x56}, {Mode::Absolute, 0x4E}, {Mode::AbsoluteX, 0x5E}}),
    makeInstruction("NOP", {{Mode::Implied, 0xEA}}),
    makeInstruction("ORA", {{Mode::Immediate, 0x09}, {Mode::ZeroPage, 0x05},
        {Mode::ZeroPageX, 0x15}, {Mode::Absolute, 0x0D}, {Mode::AbsoluteX, 0x1D},
        {Mode::AbsoluteY, 0x19}, {Mode::IndirectX, 0x01}, {Mode::IndirectY, 0x11}}),
    makeInstruction("PHA", {{Mode::Implied, 0x48}}),
    makeInstruction("PHP", {{Mode::Implied, 0x08}}),
    makeInstruction("PLA", {{Mode::Implied, 0x68}}),
    makeInstruction("PLP", {{Mode::Implied, 0x28}}),
    makeInstruction("ROL", {{Mode::Accumulator, 0x2A}, {Mode::ZeroPage, 0x26},
        {Mode::ZeroPageX, 0x36}, {Mode::Absolute, 0x2E}, {Mode::AbsoluteX, 0x3E}}),
    makeInstruction("ROR", {{Mode::Accumulator, 0x6A}, {Mode::ZeroPage, 0x66},
        {Mode::ZeroPageX, 0x76}, {Mode::Absolute, 0x6E}, {Mode::AbsoluteX, 0x7E}}),
    makeInstruction("RTI", {{Mode::Implied, 0x40}}),
    makeInstruction("RTS", {{Mode::Implied, 0x60}}),
    makeInstruction("SBC", {{Mode::Immediate, 0xE9}, {Mode::ZeroPage, 0xE5},
        {Mode::ZeroPageX, 0xF5}, {Mode::Absolute, 0xED}, {Mode::AbsoluteX, 0xFD},
        {Mode::AbsoluteY, 0xF9}, {Mode::IndirectX, 0xE1}, {Mode::IndirectY, 0xF1}}),
    makeInstruction("SEC", {{Mode::Implied, 0x38}}),
    makeInstruction("SED", {{Mode::Implied, 0xF8}}),
    makeInstruction("SEI", {{Mode::Implied, 0x78}}),
    makeInstruction("STA", {{Mode::ZeroPage, 0x85}, {Mode::ZeroPageX, 0x95},
        {Mode::Absolute, 0x8D}, {Mode::AbsoluteX, 0x9D}, {Mode::AbsoluteY, 0x99},
        {Mode::IndirectX, 0x81}, {Mode::IndirectY, 0x91}}),
    makeInstruction("STX", {{Mode::ZeroPage, 0x86}, {Mode::ZeroPageY, 0x96},
        {Mode::Absolute, 0x8E}}),
    makeInstruction("STY", {{Mode::ZeroPage, 0x84}, {Mode::ZeroPageX, 0x94},
        {Mode::Absolute, 0x8C}}),
    makeInstruction("TAX", {{Mode::Implied, 0xAA}}),
    makeInstruction("TAY", {{Mode::Implied, 0xA8}}),
    makeInstruction("TSX", {{Mode::Implied, 0xBA}}),
    makeInstruction("TXA", {{Mode::Implied, 0x8A}}),
    makeInstruction("TXS", {{Mode::Implied, 0x9A}}),
    makeInstruction("TYA", {{Mode::Implied, 0x98}}),
};
// clang-format on

/// The instruction and mode of an opcode; nullptr when it is none.
const Instruction* findOpcode(std::uint8_t opcode, Mode& mode);

/// The modes of an instruction as a person would write them, such as "LDA #n, LDA n, LDA <n".
std::string modesText(const Instruction& instruction);

} // namespace nesasm
