// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/LabelFiles.h"
#include "assembler/run/CommandLine.h"
#include "assembler/text/Problem.h"

#include <string>
#include <vector>

namespace nesasm {

/// As a sentence: that two of the files that the command line asks for are the same one.
Problem sharedOutput(const CommandLine& line);

/// The listing and the label files that the command line asks for, of a run that has built.
std::vector<SideFile> sideFiles(const FinishedProgram& program, const CommandLine& line);

} // namespace nesasm
