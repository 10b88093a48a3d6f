// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/SourceStack.h"
#include "assembler/values/SymbolTable.h"

#include <cstdint>

namespace nesasm {

/// The statement that is being assembled, and the line it stands on.
struct Statement {
    Line line;
    std::uint32_t address = 0; ///< where it began
    std::uint32_t bank = 0;    ///< in which it began
    /// The label on its line, whose size is measured; 0 for none.
    SymbolId label = 0;
    std::uint64_t totalAtLabel = 0; ///< Image::total() at that label
};

} // namespace nesasm
