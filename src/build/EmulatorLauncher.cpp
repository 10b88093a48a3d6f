// SPDX-License-Identifier: MIT
#include "build/EmulatorLauncher.h"

#include "build/DesktopEntry.h"
#include "build/ProgramSearch.h"
#include "build/QtText.h"
#include "build/StartFailure.h"
#include "model/Paths.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kestrel {

namespace {

constexpr const char* NotUtf8 = "a name is not valid UTF-8";

/// The path of a program that is named only, when it is found; else `program` as it is.
std::string located(const std::string& program) {
    const bool isName = program.find('/') == program.npos;
    const auto name = isName ? textFromUtf8(std::string_view(program)) : std::nullopt;
    const QString found = name ? findProgram(*name) : QString();
    return found.isEmpty() ? program : found.toStdString();
}

/// Puts a terminal before a command that wants one. Without any terminal the command starts as it
/// is: better an emulator without its text than none.
void wrapInTerminal(DesktopEntry::Command& command) {
    for (const char* name : {"x-terminal-emulator", "xterm", "konsole", "gnome-terminal"}) {
        const QString found = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!found.isEmpty()) {
            const char* option = std::string_view(name) == "gnome-terminal" ? "--" : "-e";
            command.arguments.insert(command.arguments.begin(),
                                     {option, std::move(command.program)});
            command.program = found.toStdString();
            return;
        }
    }
}

/// Gives the reason why the command could not be started; nothing when it was.
std::optional<std::string> start(const DesktopEntry::Command& command) {
    const auto program = textFromUtf8(std::string_view(command.program));
    const auto folder = textFromPath(command.workingFolder);
    QStringList arguments;
    for (const auto& argument : command.arguments) {
        const auto text = textFromUtf8(std::string_view(argument));
        if (!text) {
            return NotUtf8;
        }
        arguments.append(*text);
    }
    if (!program || !folder) {
        return NotUtf8;
    }
    if (program->isEmpty()) {
        return "no program is named";
    }
    QProcess process;
    process.setProgram(*program);
    process.setArguments(arguments);
    process.setWorkingDirectory(*folder);
    if (process.startDetached()) {
        return std::nullopt;
    }
    return reasonOf(process);
}

/// The same for a command that the user did not choose: the reason names what is at fault.
std::optional<std::string> startNamed(const DesktopEntry::Command& command) {
    auto reason = start(command);
    if (!reason || command.program.empty()) {
        return reason;
    }
    const bool hasFolder = command.workingFolder.empty() || existsAt(command.workingFolder);
    return (hasFolder ? command.program : pathText(command.workingFolder)) + ": " + *reason;
}

EmulatorLaunch launched(std::string name, const std::optional<std::string>& failure) {
    using State = EmulatorLaunch::State;
    return {failure ? State::failed : State::started, std::move(name), failure.value_or("")};
}

EmulatorLaunch openWithEntry(const std::filesystem::path& image,
                             const std::filesystem::path& file) {
    const auto entry = DesktopEntry::read(file);
    if (!entry) {
        return launched(pathText(file.stem()), pathText(file) + " describes no application");
    }
    const std::string name = entry->name().empty() ? pathText(file.stem()) : entry->name();
    auto command = entry->command(image);
    if (!command) {
        return launched(name, "the line Exec in " + pathText(file) + " is not correct");
    }
    command->program = located(command->program);
    if (command->inTerminal) {
        wrapInTerminal(*command);
    }
    return launched(name, startNamed(*command));
}

EmulatorLaunch open(const std::filesystem::path& image, const std::filesystem::path& emulator) {
#ifdef Q_OS_MACOS
    return launched(
        pathText(emulator.stem()),
        start({"/usr/bin/open", {"-a", pathText(emulator), pathText(image)}, {}, false}));
#else
    if (emulator.extension() == ".desktop") {
        return openWithEntry(image, emulator);
    }
    return launched(pathText(emulator.filename()),
                    start({located(pathText(emulator)), {pathText(image)}, {}, false}));
#endif
}

} // namespace

EmulatorLaunch openWithEmulator(const std::filesystem::path& image,
                                const std::filesystem::path& emulator) {
    const bool hasImage = existsAt(image);
    EmulatorLaunch launch = open(image, emulator);
    launch.hasImage = hasImage;
    return launch;
}

} // namespace kestrel
