// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/InstructionTable.h"

#include <string>

namespace nesasm {

/// How long an instruction takes, such as "4", or "4+" when a page crossing or a branch that is
/// taken makes it longer; "" for a byte that is no opcode. Source: MOS Technology, "MCS6500
/// Microcomputer Family Programming Manual", appendix B.
std::string cyclesText(std::uint8_t opcode);

} // namespace nesasm
