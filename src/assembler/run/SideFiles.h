// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/LabelFormats.h"
#include "assembler/output/LabelFiles.h"
#include "assembler/output/SourceNames.h"
#include "assembler/run/CommandLine.h"
#include "assembler/text/Problem.h"

#include <string>
#include <vector>

namespace nesasm {

/// As a sentence: that two of the files that the command line and the source ask for are the same
/// one.
Problem sharedOutput(const CommandLine& line, const LabelFormats& ofSource = {});

/// The label files of these formats, of a run that has built the image at `output`. `names` tells
/// of which files the sources are copies.
std::vector<SideFile> labelFiles(const FinishedProgram& program, const std::string& output,
                                 const LabelFormats& formats, const SourceNames& names = {});

} // namespace nesasm
