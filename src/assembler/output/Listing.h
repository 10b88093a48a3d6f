// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/FinishedProgram.h"

#include <string>

namespace nesasm {

/// The listing of a finished run whose lines were recorded: for each source line its number, the
/// bank and address, the bytes, ".." where a later line wrote over them, the cycles, and the
/// source; then all symbols with their uses. `showsExpansions`: the lines of macros and
/// repetitions, too, instead of their bytes after the line that called them.
std::string listingText(const FinishedProgram& program, bool showsExpansions);

} // namespace nesasm
