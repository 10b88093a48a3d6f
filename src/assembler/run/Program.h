// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Diagnostics.h"

#include <span>
#include <string_view>

namespace nesasm {

/// What the program takes from its environment.
struct Surroundings {
    std::string_view includeList; ///< NES_INCLUDE
    bool isTerminal = false;      ///< of the standard output
    bool refusesColours = false;  ///< NO_COLOR is set
};

/// The exit statuses of the program.
inline constexpr int Built = 0;
inline constexpr int SourceErrors = 1;
inline constexpr int WrongUse = 2;

/// The whole program: reads the arguments (without the program's name), assembles, writes the
/// image. All text goes to `sink`. Returns the exit status.
int runProgram(std::span<const std::string_view> arguments, const Surroundings& surroundings,
               const TextSink& sink);

} // namespace nesasm
