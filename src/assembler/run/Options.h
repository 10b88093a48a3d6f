// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/MessageForm.h"
#include "assembler/messages/WarningSwitches.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace nesasm {

/// What a run of the assembler is told, apart from where the image goes.
struct Options {
    std::string input;                                             ///< as named on the command line
    std::vector<std::string> includeFolders;                       ///< of -I, in order
    std::string includeList;                                       ///< the value of NES_INCLUDE
    std::vector<std::pair<std::string, std::int32_t>> definitions; ///< of -D
    std::size_t largestErrorCount = 20;                            ///< 0: no limit
    WarningSwitches warnings;
    MessageForm form = MessageForm::plain;
    bool recordsLines = false; ///< for a listing or for a debugger
    bool takesNotes = false;   ///< of uses of names and of reserved memory
    /// The bytes of source text, and 100 for each line, that macros, repetitions and files included
    /// again may come to, and what files cost that are sought and read again and again. A source
    /// that asks for more would run for long and fill no more image.
    std::uint64_t mostWork = std::uint64_t{1} << 29U;
};

} // namespace nesasm
