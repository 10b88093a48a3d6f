// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::test {

/// What a program that was run to its end left: its exit status and what it printed.
struct ProgramRun {
    int status = -1;    ///< the exit status, 128 + signal number when a signal ended it, -1 when it
                        ///< could not be started
    std::string output; ///< all of standard output
    std::string errorOutput; ///< all of standard error

    /// Runs a program in a folder with exactly the given environment (entries NAME=VALUE), no shell
    /// and the null device as standard input.
    static ProgramRun of(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment,
                         const std::filesystem::path& folder);
};

} // namespace kestrel::test
