// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/LabelFormats.h"
#include "assembler/run/Options.h"
#include "assembler/text/Problem.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace nesasm {

/// The command line, read.
struct CommandLine {
    enum class Wish { assemble, help, version };
    enum class Colours { automatic, always, never };

    Wish wish = Wish::assemble;
    Options options; ///< all but includeList and form, which depend on the environment
    std::string output;
    LabelFormats labels;
    std::string listing;   ///< "" for none
    std::string sourceMap; ///< "" for none
    bool listsExpansions = false;
    bool isVerbose = false;
    bool wantsJson = false; ///< --messages json
    Colours colours = Colours::automatic;
};

/// Reads the arguments (without the program's name). The problem is the first one, as a
/// sentence; `line` then holds what was understood all the same.
Problem readCommandLine(std::span<const std::string_view> arguments, CommandLine& line);

/// What --help prints.
std::string helpText();

} // namespace nesasm
