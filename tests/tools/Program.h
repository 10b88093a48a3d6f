// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::test {

/// How a program that was run to its end came out.
struct Finished {
    int status = -1; ///< exit status, or 128 and the number of the signal that ended it
    std::string output;
    std::string errors;
};

/// One run of a program in a process of its own, with both its outputs collected.
struct Program {
    std::filesystem::path executable;
    std::vector<std::string> arguments;
    std::filesystem::path folder = "/";        ///< in which it is started
    std::vector<std::string> environment = {}; ///< NAME=VALUE, besides this program's own
    std::filesystem::path outputFile = {};     ///< where standard output goes instead
    bool closesOutput = false;                 ///< standard output is closed
    bool asOrdinaryUser = false;               ///< without root's rights

    /// Runs it to its end.
    Finished run() const;

    /// Starts it with its output at `outputDescriptor` and its errors where this program's go;
    /// gives the process.
    int start(int outputDescriptor, int errorDescriptor) const;
};

/// Waits for the end of a started process and gives its status as in Finished.
int statusOf(int process);

/// Lets an ordinary user own `path` and all below it; does nothing when not run as root.
void giveToOrdinaryUser(const std::filesystem::path& path);

} // namespace kestrel::test
