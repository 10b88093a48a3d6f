// SPDX-License-Identifier: MIT
#include "assembler/language/InstructionTable.h"

#include "assembler/text/Characters.h"

#include <algorithm>

namespace nesasm {

namespace {

/// How an operand of each mode is written; n is any expression.
constexpr std::array<std::string_view, ModeCount> OperandTexts{
    "",     " A",   " #n",  " <n",    " <n,x",  " <n,y", " n",
    " n,x", " n,y", " [n]", " [n,x]", " [n],y", " n"};

} // namespace

const Instruction* findInstruction(std::string_view name) {
    constexpr std::size_t NameLength = 3;
    if (name.size() != NameLength) {
        return nullptr;
    }
    const std::array<char, NameLength> upper{raised(name[0]), raised(name[1]), raised(name[2])};
    const std::string_view wanted(upper.data(), upper.size());
    const auto* const found = std::lower_bound(
        InstructionTable.begin(), InstructionTable.end(), wanted,
        [](const Instruction& each, std::string_view text) { return each.name < text; });
    return found != InstructionTable.end() && found->name == wanted ? found : nullptr;
}

const Instruction* findOpcode(std::uint8_t opcode, Mode& mode) {
    for (const Instruction& instruction : InstructionTable) {
        for (std::size_t i = 0; i < ModeCount; ++i) {
            mode = static_cast<Mode>(i);
            if (instruction.opcode(mode) == opcode) {
                return &instruction;
            }
        }
    }
    return nullptr;
}

std::string modesText(const Instruction& instruction) {
    std::string text;
    for (std::size_t i = 0; i < ModeCount; ++i) {
        if (!instruction.has(static_cast<Mode>(i))) {
            continue;
        }
        if (!text.empty()) {
            text += ", ";
        }
        text.append(instruction.name).append(OperandTexts[i]);
    }
    return text;
}

} // namespace nesasm
