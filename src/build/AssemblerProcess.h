// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// One run of the assembler as a child process.
class AssemblerProcess {
public:
    struct Request {
        std::filesystem::path assembler;
        std::vector<std::string> arguments;  ///< without the program's name
        std::filesystem::path includeFolder; ///< the child's NES_INCLUDE, its only variable
    };

    struct Result {
        /// Why the assembler could not be started, as a sentence; nothing when it ran.
        std::optional<std::string> startFailure;
        bool stopped = false;          ///< it was ended because it had to stop
        std::optional<QString> output; ///< nothing when it was not valid UTF-8
    };

    /// Starts the assembler and waits for its end, on the calling thread, which must be one of
    /// Qt's. Its standard output is read while it runs; what it wrote up to its end is in the
    /// result, and a grandchild that keeps the pipe open is not waited for. Its standard error is
    /// the program's, its standard input is empty, its working folder is the program's. As soon as
    /// `mustStop` says so (asked several times a second and with every piece of output) it is
    /// killed with its process group.
    static Result run(const Request& request, const std::function<bool()>& mustStop);
};

} // namespace kestrel
