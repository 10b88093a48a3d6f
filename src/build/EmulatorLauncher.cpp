// SPDX-License-Identifier: MIT
#include "build/EmulatorLauncher.h"

#include "build/DesktopEntry.h"
#include "build/ProgramSearch.h"
#include "build/QtText.h"
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

bool start(const DesktopEntry::Command& command) {
    const auto program = textFromUtf8(std::string_view(command.program));
    const auto folder = textFromPath(command.workingFolder);
    QStringList arguments;
    for (const auto& argument : command.arguments) {
        const auto text = textFromUtf8(std::string_view(argument));
        if (!text) {
            return false;
        }
        arguments.append(*text);
    }
    return program && folder && QProcess::startDetached(*program, arguments, *folder);
}

} // namespace

bool openWithEmulator(const std::filesystem::path& image, const std::filesystem::path& emulator) {
#ifdef Q_OS_MACOS
    return start({"/usr/bin/open", {"-a", pathText(emulator), pathText(image)}, {}, false});
#else
    if (emulator.extension() != ".desktop") {
        return start({located(pathText(emulator)), {pathText(image)}, {}, false});
    }
    const auto entry = DesktopEntry::read(emulator);
    auto command = entry ? entry->command(image) : std::nullopt;
    if (!command) {
        return false;
    }
    command->program = located(command->program);
    if (command->inTerminal) {
        wrapInTerminal(*command);
    }
    return start(*command);
#endif
}

} // namespace kestrel
