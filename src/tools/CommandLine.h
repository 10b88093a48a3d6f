// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// What kestrel-build was asked to do.
struct CommandLine {
    enum class Action { build, relocate, showHelp, showVersion, refuse };

    Action action = Action::refuse;
    std::filesystem::path project;               ///< as given; for `build` and `relocate`
    std::vector<std::string> assemblerArguments; ///< further ones for the assembler; for `build`
    std::string problem;                         ///< a sentence for the user; for `refuse`

    /// Reads the arguments behind the program's name. "--help" and "--version" win over everything
    /// else, faults included; the first of the two counts.
    static CommandLine parse(const std::vector<std::string>& arguments);

    /// The text of "--help", with its last line break.
    static std::string_view helpText();
};

} // namespace kestrel
