// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/LabelFiles.h"
#include "assembler/output/SourceNames.h"

#include <string_view>

namespace nesasm {

/// Lines, places and symbols in the format that ends in .dbg (source: the public documentation of
/// the ld65 debug format, version 2.0). The lines of the run must have been recorded. Sources are
/// named as seen from the file's folder where that is possible, copies by what `names` tells of
/// them. The name of the one module says that NESasm wrote the file.
SideFile dbgFile(const FinishedProgram& program, const std::string& output,
                 const SourceNames& names = {});

/// True when a file whose first line this is may be such a file.
bool isDbgStart(std::string_view line);
/// True when dbgFile made this text.
bool isOwnDbgText(std::string_view text);

} // namespace nesasm
