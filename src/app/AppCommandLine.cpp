// SPDX-License-Identifier: MIT
#include "app/AppCommandLine.h"

#include "model/Paths.h"

#include <cstdlib>
#include <system_error>

namespace kestrel {

namespace {

bool hasDisplay() {
#if defined(__unix__) && !defined(__APPLE__)
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

} // namespace

AppCommandLine AppCommandLine::parse(const std::vector<std::string>& arguments,
                                     const std::filesystem::path& folder) {
    AppCommandLine line;
    bool onlyFiles = false;
    for (const std::string& argument : arguments) {
        if (!onlyFiles && argument == "--") {
            onlyFiles = true;
        } else if (!onlyFiles && (argument == "--help" || argument == "-h")) {
            line.action = Action::showHelp;
            return line;
        } else if (!onlyFiles && argument == "--version") {
            line.action = Action::showVersion;
            return line;
        } else if (!onlyFiles && argument.size() > 1 && argument.front() == '-') {
            line.action = Action::refuse;
            line.problem = "there is no option " + argument + "; --help lists them all.";
            return line;
        } else if (!argument.empty()) {
            const std::filesystem::path file(argument);
            line.files.push_back(file.is_absolute() ? file : joined(folder, argument));
        }
    }
    return line;
}

AppCommandLine AppCommandLine::fromMain(int argc, char** argv) {
    const std::vector<std::string> arguments(argc > 0 ? argv + 1 : argv, argv + argc);
    std::error_code error;
    AppCommandLine line = parse(arguments, std::filesystem::current_path(error));
    if (line.action == Action::start && !hasDisplay()) {
        line.action = Action::refuse;
        line.problem = "there is no display to open a window on: neither DISPLAY nor "
                       "WAYLAND_DISPLAY is set. Start it from a desktop session; kestrel-build "
                       "builds projects without a window.";
    }
    return line;
}

std::string AppCommandLine::text() const {
    if (action == Action::showVersion) {
        return "Kestrel " KESTREL_VERSION "\n";
    }
    return "Kestrel: make games for the NES.\n"
           "\n"
           "usage: Kestrel [PROJECT.kst ...]\n"
           "\n"
           "Opens the window, with these projects added to its list. When Kestrel runs already,\n"
           "they are added there.\n"
           "\n"
           "  --help, -h  show this text\n"
           "  --version   show the version\n"
           "  --          what follows is a project, also when it begins with \"-\"\n";
}

} // namespace kestrel
