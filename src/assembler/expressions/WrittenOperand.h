// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/InstructionTable.h"
#include "assembler/text/Position.h"

#include <string>

namespace nesasm {

/// The instruction in front of the operand at `position`, nullptr when there is none.
const Instruction* instructionBefore(const Position& position);

/// The operand at `position` as it is written, for a message; "" when it is too long for one.
std::string writtenOperand(const Position& position);

} // namespace nesasm
