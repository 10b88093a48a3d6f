#include "tools/CommandLine.h"

#include "tools/Messages.h"

namespace kestrel {

namespace {

constexpr std::string_view Help =
    R"(Usage: kestrel-build PROJECT.kst
       kestrel-build --relocate PROJECT.kst

Builds a Kestrel project as the environment does and prints what the assembler
says. A project that was moved or copied is built where it lies now.

  --relocate   write the project's present folder into its files; build nothing
  --help       print this text
  --version    print the version
  --           what follows is the project, also when it begins with "-"

Exit status: 0 the image was built, 1 the build failed, 2 wrong usage or a
project that cannot be read.
)";

CommandLine refusal(std::string problem) {
    return {CommandLine::Action::refuse, {}, std::move(problem)};
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
        return {asked, {}, {}};
    }
    CommandLine result{Action::build, {}, {}};
    std::vector<std::string> projects;
    bool optionsEnded = false;
    for (const std::string& argument : arguments) {
        if (optionsEnded || !isOption(argument)) {
            projects.push_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (argument == "--relocate") {
            result.action = Action::relocate;
        } else {
            return refusal("there is no option " + shown(argument) +
                           "; the options are --relocate, --help and --version.");
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
    result.project = projects.front();
    return result;
}

std::string_view CommandLine::helpText() {
    return Help;
}

} // namespace kestrel
