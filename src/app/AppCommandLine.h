// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel {

/// What Kestrel was started with.
struct AppCommandLine {
    enum class Action { start, showHelp, showVersion, refuse };

    Action action = Action::start;
    std::string problem;                      ///< why it is refused
    std::vector<std::filesystem::path> files; ///< absolute, in the order given

    /// Reads the arguments, without the program's name; relative files count from `folder`.
    static AppCommandLine parse(const std::vector<std::string>& arguments,
                                const std::filesystem::path& folder);

    /// The same for what main() was given. On a system that shows windows through a display it
    /// is refused to start without one.
    static AppCommandLine fromMain(int argc, char** argv);

    /// What is to be printed for showHelp or showVersion.
    std::string text() const;
};

} // namespace kestrel
