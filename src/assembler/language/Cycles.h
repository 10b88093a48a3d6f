// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/InstructionTable.h"

#include <string>

namespace nesasm {

/// How long an instruction takes, such as "4", or "4+" when a page crossing or a branch that is
/// taken makes it longer; "" for a byte that is no opcode. Source: MOS Technology, "MCS6500
/// Microcomputer Family Programming Manual", appendix B.
std::string cyclesText(std::uint8_t opcode);

/// The least and the most.
struct CycleRange {
    unsigned least = 0;
    unsigned most = 0;
};

/// The same as numbers: at most, a branch is taken and leads to another page, and an index crosses
/// one. Both are 0 for a byte that is no opcode.
CycleRange cycleRange(std::uint8_t opcode);

} // namespace nesasm
