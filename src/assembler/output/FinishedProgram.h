// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/LineRecords.h"
#include "assembler/reading/Origins.h"
#include "assembler/reading/ProgramNotes.h"
#include "assembler/values/Image.h"
#include "assembler/values/SymbolTable.h"

#include <vector>

namespace nesasm {

/// What a run that has built leaves for the files beside the image; it lasts as long as the run's
/// assembler.
struct FinishedProgram {
    const Image& image;
    const SymbolTable& symbols;
    const Origins& origins;
    const std::vector<LineRecord>& lines; ///< empty unless they were to be recorded
    const ProgramNotes& notes;            ///< empty unless they were to be taken
};

} // namespace nesasm
