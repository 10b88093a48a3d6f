#pragma once

#include "assembler/CommandLine.h"
#include "assembler/LabelFiles.h"

#include <vector>

namespace nesasm {

/// The listing and the label files that the command line asks for, of a run that has built.
std::vector<SideFile> sideFiles(const Assembly& assembly, const CommandLine& line);

} // namespace nesasm
