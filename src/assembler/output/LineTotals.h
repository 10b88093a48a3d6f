// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/FinishedProgram.h"

#include <cstdint>
#include <map>

namespace nesasm {

/// What all the times come to that the statement of a source line was assembled.
struct LineTotal {
    static constexpr std::uint32_t NoBank = 0xFFFFFFFFU;

    std::uint32_t address = 0; ///< where the first bytes went, or where it stood the first time
    std::uint32_t bank = 0;    ///< NoBank in .zp and .bss
    std::uint32_t times = 0;
    std::uint32_t bytes = 0; ///< of a macro's call with those of the macro
    std::uint32_t leastCycles = 0;
    std::uint32_t mostCycles = 0; ///< of one time; of a macro's call the sum of the macro
};

/// By line number, for each source file.
using LineTotals = std::map<const SourceFile*, std::map<std::uint32_t, LineTotal>>;

/// The lines of a finished run whose lines were recorded; lines without a statement are not there.
LineTotals lineTotals(const FinishedProgram& program);

} // namespace nesasm
