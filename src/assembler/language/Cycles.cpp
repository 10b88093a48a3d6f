// SPDX-License-Identifier: MIT
#include "assembler/language/Cycles.h"

#include <algorithm>

namespace nesasm {

namespace {

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

unsigned impliedCycles(std::string_view name) {
    if (name == "BRK") {
        return 7;
    }
    if (isOneOf(name, {"RTI", "RTS"})) {
        return 6;
    }
    if (isOneOf(name, {"PLA", "PLP"})) {
        return 4;
    }
    return isOneOf(name, {"PHA", "PHP"}) ? 3 : 2;
}

/// Cycles, and whether there may be more.
std::pair<unsigned, bool> cyclesOf(const Instruction& instruction, Mode mode) {
    const std::string_view name = instruction.name;
    // Those that write back what they read.
    const bool modifies = isOneOf(name, {"ASL", "LSR", "ROL", "ROR", "INC", "DEC"});
    const bool stores = name == "STA";
    switch (mode) {
    case Mode::implied:
        return {impliedCycles(name), false};
    case Mode::accumulator:
    case Mode::immediate:
        return {2, false};
    case Mode::zeroPage:
        return {modifies ? 5 : 3, false};
    case Mode::zeroPageX:
    case Mode::zeroPageY:
        return {modifies ? 6 : 4, false};
    case Mode::absolute:
        return {name == "JMP" ? 3 : name == "JSR" || modifies ? 6 : 4, false};
    case Mode::absoluteX:
    case Mode::absoluteY:
        return {modifies ? 7 : stores ? 5 : 4, !modifies && !stores};
    case Mode::indirect:
        return {5, false};
    case Mode::indirectX:
        return {6, false};
    case Mode::indirectY:
        return {stores ? 6 : 5, !stores};
    case Mode::relative:
        return {2, true};
    }
    return {0, false};
}

} // namespace

std::string cyclesText(std::uint8_t opcode) {
    Mode mode{};
    const Instruction* const instruction = findOpcode(opcode, mode);
    if (instruction == nullptr) {
        return {};
    }
    const auto [cycles, mayBeMore] = cyclesOf(*instruction, mode);
    return std::to_string(cycles) + (mayBeMore ? "+" : "");
}

CycleRange cycleRange(std::uint8_t opcode) {
    Mode mode{};
    const Instruction* const instruction = findOpcode(opcode, mode);
    if (instruction == nullptr) {
        return {};
    }
    const auto [cycles, mayBeMore] = cyclesOf(*instruction, mode);
    const unsigned more = mode == Mode::relative ? 2 : 1;
    return {cycles, mayBeMore ? cycles + more : cycles};
}

} // namespace nesasm
