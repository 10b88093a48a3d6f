// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// The parsed command line of kestrel-build.
struct CommandLine {
    /// What to do; `refuse` for a wrong command line.
    enum class Action { build, relocate, findEmulator, showHelp, showVersion, refuse };

    Action action = Action::refuse;
    std::filesystem::path project; ///< as given; unless help, version or a refusal is to be shown
    std::vector<std::string> assemblerArguments; ///< passed on to the assembler; for `build`
    std::string problem;                         ///< a sentence for the user; for `refuse`

    /// Parses the arguments without the program's name. The first "--help" or "--version" wins over
    /// everything else, errors included.
    static CommandLine parse(const std::vector<std::string>& arguments);

    /// The text of "--help", with a line break at its end.
    static std::string_view helpText();
};

} // namespace kestrel
