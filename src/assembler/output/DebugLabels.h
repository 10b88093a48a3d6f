// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/FinishedProgram.h"
#include "assembler/values/SymbolTable.h"

#include <cstdint>
#include <string>
#include <vector>

namespace nesasm {

/// A name for a place in the console's memory or in the image, in a form that debuggers accept.
struct DebugLabel {
    enum class Memory : std::uint8_t { prgRom, chrRom, internalRam, workRam, other };

    std::string name; ///< letters, digits, _ and @ only, each name once
    SymbolId symbol = 0;
    Memory memory = Memory::other;
    std::uint32_t offset = 0;      ///< in that memory
    std::uint32_t address = 0;     ///< as the processor sees it
    std::uint32_t size = 1;        ///< in RAM the bytes reserved for it
    std::vector<std::string> also; ///< further names of the same place
};

/// The labels of a finished run, variables and constants that are used as addresses, in the order
/// of their definition. Of several names for one place the first is kept, with the others in it.
std::vector<DebugLabel> debugLabels(const FinishedProgram& program);

/// The name of a symbol in a form that debuggers accept: "reset@loop" for .loop under reset.
std::string debugName(const SymbolTable& symbols, SymbolId id);

} // namespace nesasm
