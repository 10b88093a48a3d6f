// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/LabelFiles.h"

namespace nesasm {

/// Lines, places and symbols in the format that ends in .dbg (source: the public documentation of
/// the ld65 debug format, version 2.0). The lines of the run must have been recorded. Sources are
/// named as seen from the file's folder where that is possible.
SideFile dbgFile(const FinishedProgram& program, const std::string& output);

} // namespace nesasm
