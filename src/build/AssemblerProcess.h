// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// How the assembler is to be started.
struct AssemblerRequest {
    std::filesystem::path assembler;
    std::vector<std::string> arguments;  ///< without the program's name
    std::filesystem::path includeFolder; ///< NES_INCLUDE, the only environment variable
};

/// How a run of the assembler ended.
struct AssemblerResult {
    std::optional<std::string> startFailure; ///< why it could not be started, as a sentence
    bool stopped = false;                    ///< ended because `mustStop` returned true
    int signal = 0;                          ///< what ended it, unless it ended by itself
    int exitStatus = 0;                      ///< with which it ended by itself
    std::optional<QString> output;           ///< nothing when it was not valid UTF-8
    bool hasOutput = false;                  ///< whether there was any, valid or not
    std::size_t errors = 0;                  ///< counted in the output, as MessageCounter does
    std::size_t warnings = 0;
    bool hasMoreErrors = false; ///< the assembler gave up at a limit of errors
};

/// Starts the assembler and waits for its end on the calling thread, which must be a Qt thread. Its
/// standard output is read while it runs; a grandchild that keeps the pipe open is not waited for.
/// Standard error and working folder are inherited, standard input is empty. `mustStop` is called
/// several times a second and with every piece of output; once it returns true the process group is
/// asked to end, with the assembler's Descendants outside of it, and what is left of them after a
/// third of a second is killed.
AssemblerResult runAssembler(const AssemblerRequest& request,
                             const std::function<bool()>& mustStop);

} // namespace kestrel
