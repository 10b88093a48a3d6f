// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace nesasm {

/// The addressing modes of the 6502.
enum class Mode : std::uint8_t {
    implied,
    accumulator,
    immediate,
    zeroPage,
    zeroPageX,
    zeroPageY,
    absolute,
    absoluteX,
    absoluteY,
    indirect,
    indirectX,
    indirectY,
    relative
};
inline constexpr std::size_t ModeCount = 13;

/// One documented 6502 instruction: its opcode in each mode, NoOpcode where it has none.
/// Source of all encodings: MOS Technology, "MCS6500 Microcomputer Family Programming Manual",
/// appendix B.
struct Instruction {
    std::string_view name;
    std::array<std::uint16_t, ModeCount> opcodes;

    static constexpr std::uint16_t NoOpcode = 0x100;

    constexpr std::uint16_t opcode(Mode mode) const {
        return opcodes[static_cast<std::size_t>(mode)];
    }
    constexpr bool has(Mode mode) const { return opcode(mode) != NoOpcode; }
};

constexpr Instruction
makeInstruction(std::string_view name,
                std::initializer_list<std::pair<Mode, std::uint8_t>> encodings) {
    Instruction instruction{name, {}};
    instruction.opcodes.fill(Instruction::NoOpcode);
    for (const auto& [mode, opcode] : encodings) {
        instruction.opcodes[static_cast<std::size_t>(mode)] = opcode;
    }
    return instruction;
}

/// All instructions in alphabetical order.
// clang-format off
inline constexpr std::array<Instruction, 56> InstructionTable{
    makeInstruction("ADC", {{Mode::immediate, 0x69}, {Mode::zeroPage, 0x65},
        {Mode::zeroPageX, 0x75}, {Mode::absolute, 0x6D}, {Mode::absoluteX, 0x7D},
        {Mode::absoluteY, 0x79}, {Mode::indirectX, 0x61}, {Mode::indirectY, 0x71}}),
    makeInstruction("AND", {{Mode::immediate, 0x29}, {Mode::zeroPage, 0x25},
        {Mode::zeroPageX, 0x35}, {Mode::absolute, 0x2D}, {Mode::absoluteX, 0x3D},
        {Mode::absoluteY, 0x39}, {Mode::indirectX, 0x21}, {Mode::indirectY, 0x31}}),
    makeInstruction("ASL", {{Mode::accumulator, 0x0A}, {Mode::zeroPage, 0x06},
        {Mode::zeroPageX, 0x16}, {Mode::absolute, 0x0E}, {Mode::absoluteX, 0x1E}}),
    makeInstruction("BCC", {{Mode::relative, 0x90}}),
    makeInstruction("BCS", {{Mode::relative, 0xB0}}),
    makeInstruction("BEQ", {{Mode::relative, 0xF0}}),
    makeInstruction("BIT", {{Mode::zeroPage, 0x24}, {Mode::absolute, 0x2C}}),
    makeInstruction("BMI", {{Mode::relative, 0x30}}),
    makeInstruction("BNE", {{Mode::relative, 0xD0}}),
    makeInstruction("BPL", {{Mode::relative, 0x10}}),
    makeInstruction("BRK", {{Mode::implied, 0x00}}),
    makeInstruction("BVC", {{Mode::relative, 0x50}}),
    makeInstruction("BVS", {{Mode::relative, 0x70}}),
    makeInstruction("CLC", {{Mode::implied, 0x18}}),
    makeInstruction("CLD", {{Mode::implied, 0xD8}}),
    makeInstruction("CLI", {{Mode::implied, 0x58}}),
    makeInstruction("CLV", {{Mode::implied, 0xB8}}),
    makeInstruction("CMP", {{Mode::immediate, 0xC9}, {Mode::zeroPage, 0xC5},
        {Mode::zeroPageX, 0xD5}, {Mode::absolute, 0xCD}, {Mode::absoluteX, 0xDD},
        {Mode::absoluteY, 0xD9}, {Mode::indirectX, 0xC1}, {Mode::indirectY, 0xD1}}),
    makeInstruction("CPX", {{Mode::immediate, 0xE0}, {Mode::zeroPage, 0xE4},
        {Mode::absolute, 0xEC}}),
    makeInstruction("CPY", {{Mode::immediate, 0xC0}, {Mode::zeroPage, 0xC4},
        {Mode::absolute, 0xCC}}),
    makeInstruction("DEC", {{Mode::zeroPage, 0xC6}, {Mode::zeroPageX, 0xD6},
        {Mode::absolute, 0xCE}, {Mode::absoluteX, 0xDE}}),
    makeInstruction("DEX", {{Mode::implied, 0xCA}}),
    makeInstruction("DEY", {{Mode::implied, 0x88}}),
    makeInstruction("EOR", {{Mode::immediate, 0x49}, {Mode::zeroPage, 0x45},
        {Mode::zeroPageX, 0x55}, {Mode::absolute, 0x4D}, {Mode::absoluteX, 0x5D},
        {Mode::absoluteY, 0x59}, {Mode::indirectX, 0x41}, {Mode::indirectY, 0x51}}),
    makeInstruction("INC", {{Mode::zeroPage, 0xE6}, {Mode::zeroPageX, 0xF6},
        {Mode::absolute, 0xEE}, {Mode::absoluteX, 0xFE}}),
    makeInstruction("INX", {{Mode::implied, 0xE8}}),
    makeInstruction("INY", {{Mode::implied, 0xC8}}),
    makeInstruction("JMP", {{Mode::absolute, 0x4C}, {Mode::indirect, 0x6C}}),
    makeInstruction("JSR", {{Mode::absolute, 0x20}}),
    makeInstruction("LDA", {{Mode::immediate, 0xA9}, {Mode::zeroPage, 0xA5},
        {Mode::zeroPageX, 0xB5}, {Mode::absolute, 0xAD}, {Mode::absoluteX, 0xBD},
        {Mode::absoluteY, 0xB9}, {Mode::indirectX, 0xA1}, {Mode::indirectY, 0xB1}}),
    makeInstruction("LDX", {{Mode::immediate, 0xA2}, {Mode::zeroPage, 0xA6},
        {Mode::zeroPageY, 0xB6}, {Mode::absolute, 0xAE}, {Mode::absoluteY, 0xBE}}),
    makeInstruction("LDY", {{Mode::immediate, 0xA0}, {Mode::zeroPage, 0xA4},
        {Mode::zeroPageX, 0xB4}, {Mode::absolute, 0xAC}, {Mode::absoluteX, 0xBC}}),
    makeInstruction("LSR", {{Mode::accumulator, 0x4A}, {Mode::zeroPage, 0x46},
        {Mode::zeroPageX, 0x56}, {Mode::absolute, 0x4E}, {Mode::absoluteX, 0x5E}}),
    makeInstruction("NOP", {{Mode::implied, 0xEA}}),
    makeInstruction("ORA", {{Mode::immediate, 0x09}, {Mode::zeroPage, 0x05},
        {Mode::zeroPageX, 0x15}, {Mode::absolute, 0x0D}, {Mode::absoluteX, 0x1D},
        {Mode::absoluteY, 0x19}, {Mode::indirectX, 0x01}, {Mode::indirectY, 0x11}}),
    makeInstruction("PHA", {{Mode::implied, 0x48}}),
    makeInstruction("PHP", {{Mode::implied, 0x08}}),
    makeInstruction("PLA", {{Mode::implied, 0x68}}),
    makeInstruction("PLP", {{Mode::implied, 0x28}}),
    makeInstruction("ROL", {{Mode::accumulator, 0x2A}, {Mode::zeroPage, 0x26},
        {Mode::zeroPageX, 0x36}, {Mode::absolute, 0x2E}, {Mode::absoluteX, 0x3E}}),
    makeInstruction("ROR", {{Mode::accumulator, 0x6A}, {Mode::zeroPage, 0x66},
        {Mode::zeroPageX, 0x76}, {Mode::absolute, 0x6E}, {Mode::absoluteX, 0x7E}}),
    makeInstruction("RTI", {{Mode::implied, 0x40}}),
    makeInstruction("RTS", {{Mode::implied, 0x60}}),
    makeInstruction("SBC", {{Mode::immediate, 0xE9}, {Mode::zeroPage, 0xE5},
        {Mode::zeroPageX, 0xF5}, {Mode::absolute, 0xED}, {Mode::absoluteX, 0xFD},
        {Mode::absoluteY, 0xF9}, {Mode::indirectX, 0xE1}, {Mode::indirectY, 0xF1}}),
    makeInstruction("SEC", {{Mode::implied, 0x38}}),
    makeInstruction("SED", {{Mode::implied, 0xF8}}),
    makeInstruction("SEI", {{Mode::implied, 0x78}}),
    makeInstruction("STA", {{Mode::zeroPage, 0x85}, {Mode::zeroPageX, 0x95},
        {Mode::absolute, 0x8D}, {Mode::absoluteX, 0x9D}, {Mode::absoluteY, 0x99},
        {Mode::indirectX, 0x81}, {Mode::indirectY, 0x91}}),
    makeInstruction("STX", {{Mode::zeroPage, 0x86}, {Mode::zeroPageY, 0x96},
        {Mode::absolute, 0x8E}}),
    makeInstruction("STY", {{Mode::zeroPage, 0x84}, {Mode::zeroPageX, 0x94},
        {Mode::absolute, 0x8C}}),
    makeInstruction("TAX", {{Mode::implied, 0xAA}}),
    makeInstruction("TAY", {{Mode::implied, 0xA8}}),
    makeInstruction("TSX", {{Mode::implied, 0xBA}}),
    makeInstruction("TXA", {{Mode::implied, 0x8A}}),
    makeInstruction("TXS", {{Mode::implied, 0x9A}}),
    makeInstruction("TYA", {{Mode::implied, 0x98}}),
};
// clang-format on

/// The instruction of that name, whatever the case of its letters; nullptr when there is none.
const Instruction* findInstruction(std::string_view name);

/// The instruction and mode of an opcode; nullptr when it is none.
const Instruction* findOpcode(std::uint8_t opcode, Mode& mode);

/// The modes of an instruction as they are written, such as "LDA #n, LDA n, LDA <n".
std::string modesText(const Instruction& instruction);

} // namespace nesasm
