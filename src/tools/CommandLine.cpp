// SPDX-License-Identifier: MIT
#include "tools/CommandLine.h"

#include "build/ShownPath.h"

#include <optional>
#include <system_error>

namespace kestrel {

namespace {

constexpr std::string_view Help =
    R"(Usage: kestrel-build PROJECT.kst
       kestrel-build --relocate PROJECT.kst
       kestrel-build --find-emulator PROJECT.kst

Builds a Kestrel project as the environment does and prints what the assembler
says. A project that was moved or copied is built where it lies now.

  --relocate        write the project's present folder into its files; build
                    nothing
  --find-emulator   write the first installed emulator into its settings,
                    unless they name one; build nothing
  --listing FILE    have the assembler write a listing, too
  --expand-macros   list the lines of macros and repetitions in it
  --labels FORMAT   have it write labels for debuggers beside the image: mlb, nl
                    or dbg (may be repeated)
  -W NAME           have it turn a warning on, or off with -Wno-NAME; -Werror
                    makes errors of all warnings, -Werror=NAME of one
  -D NAME[=VALUE]   have it define a symbol
  --max-errors N    have it stop after so many errors (0: never)
  -v                have it say how full each bank is
  --help, -h        print this text
  --version         print the version
  --                what follows is the project, also when it begins with "-"

Exit status: 0 the image was built, 1 the build failed, 2 wrong usage or a
project that cannot be read.
)";

CommandLine refusal(std::string problem) {
    return {CommandLine::Action::refuse, {}, {}, std::move(problem)};
}

/// The name of the assembler's option with a value that `argument` begins with; nothing when it is
/// none.
std::optional<std::string_view> valuedAssemblerOption(std::string_view argument) {
    for (const std::string_view name : {"--listing", "--labels", "--max-errors"}) {
        if (argument == name || (argument.starts_with(name) && argument[name.size()] == '=')) {
            return name;
        }
    }
    for (const std::string_view name : {"-W", "-D"}) {
        if (argument.starts_with(name)) {
            return name;
        }
    }
    return std::nullopt;
}

bool isPlainAssemblerOption(std::string_view argument) {
    return argument == "-v" || argument == "--expand-macros";
}

/// The value of --listing as an absolute path: the build changes the working folder.
std::string absoluteText(const std::string& path) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    return error || path.empty() ? path : absolute.string();
}

/// The assembler's option at `index`, with its value, as arguments for the assembler. Moves `index`
/// if the value is the next argument. Nothing when the value is missing.
std::optional<std::vector<std::string>>
takeAssemblerOption(const std::vector<std::string>& arguments, std::size_t& index) {
    const std::string& argument = arguments[index];
    const auto name = valuedAssemblerOption(argument);
    if (!name) {
        return std::vector{argument};
    }
    std::string value;
    if (argument != *name) {
        value = argument.substr(name->size() + (name->starts_with("--") ? 1 : 0));
    } else if (++index < arguments.size()) {
        value = arguments[index];
    } else {
        return std::nullopt;
    }
    return std::vector{std::string(*name), *name == "--listing" ? absoluteText(value) : value};
}

/// The action other than a build that this argument asks for; nothing when it is none of those.
std::optional<CommandLine::Action> otherActionAsked(std::string_view argument) {
    if (argument == "--relocate") {
        return CommandLine::Action::relocate;
    }
    if (argument == "--find-emulator") {
        return CommandLine::Action::findEmulator;
    }
    return std::nullopt;
}

bool isOption(std::string_view argument) {
    return argument.size() > 1 && argument.front() == '-';
}

/// "--help" or "--version" before a "--", whichever comes first; else `refuse`.
CommandLine::Action informationAsked(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (argument == "--") {
            break;
        }
        if (argument == "--help" || argument == "-h") {
            return CommandLine::Action::showHelp;
        }
        if (argument == "--version") {
            return CommandLine::Action::showVersion;
        }
    }
    return CommandLine::Action::refuse;
}

} // namespace

CommandLine CommandLine::parse(const std::vector<std::string>& arguments) {
    if (const Action asked = informationAsked(arguments); asked != Action::refuse) {
        return {asked, {}, {}, {}};
    }
    CommandLine result{Action::build, {}, {}, {}};
    std::vector<std::string> projects;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsEnded || !isOption(argument)) {
            projects.push_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (const auto asked = otherActionAsked(argument)) {
            if (result.action != Action::build && result.action != *asked) {
                return refusal("--relocate and --find-emulator are two runs, please.");
            }
            result.action = *asked;
        } else if (isPlainAssemblerOption(argument) || valuedAssemblerOption(argument)) {
            const auto taken = takeAssemblerOption(arguments, i);
            if (!taken) {
                return refusal("the option " + shown(argument) + " needs a value after it.");
            }
            result.assemblerArguments.insert(result.assemblerArguments.end(), taken->begin(),
                                             taken->end());
        } else {
            return refusal("there is no option " + shown(argument) +
                           "; the options are --find-emulator, --relocate, --help and --version, "
                           "and those for the "
                           "assembler that --help lists.");
        }
    }
    if (projects.empty()) {
        return refusal("name the project file to build, for example: kestrel-build game.kst");
    }
    if (projects.size() > 1) {
        return refusal("one project at a time, please: " + shown(projects[0]) + " and " +
                       shown(projects[1]) + " were named.");
    }
    if (projects.front().empty()) {
        return refusal("the name of the project file is empty.");
    }
    if (result.action != Action::build && !result.assemblerArguments.empty()) {
        const std::string option =
            result.action == Action::relocate ? "--relocate" : "--find-emulator";
        return refusal("with " + option + " nothing is built, so " +
                       shown(result.assemblerArguments.front()) + " has no use.");
    }
    result.project = projects.front();
    return result;
}

std::string_view CommandLine::helpText() {
    return Help;
}

} // namespace kestrel
