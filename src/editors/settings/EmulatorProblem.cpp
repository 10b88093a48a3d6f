// SPDX-License-Identifier: MIT
#include "editors/settings/EmulatorProblem.h"

#include "build/DesktopEntry.h"
#include "build/ProgramSearch.h"
#include "model/Paths.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace kestrel {

namespace {

QString say(const char* text) {
    return QCoreApplication::translate("EmulatorProblem", text);
}

std::optional<QString> ofDesktopEntry(const std::filesystem::path& file) {
    const auto entry = DesktopEntry::read(file);
    const auto command = entry ? entry->command("game.nes") : std::nullopt;
    if (!command) {
        return say("This emulator cannot be started: the file describes no application.");
    }
    const QString program = QFile::decodeName(QByteArray::fromStdString(command->program));
    if (findProgram(program).isEmpty()) {
        return say("This emulator cannot be started: its program “%1” is not installed.")
            .arg(program);
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> emulatorProblem(const std::filesystem::path& emulator) {
    // A bare name is looked for where the system keeps its programs.
    if (!emulator.has_parent_path() && emulator.extension() != ".desktop" &&
        !findProgram(QString::fromStdString(emulator.string())).isEmpty()) {
        return std::nullopt;
    }
    if (!existsAt(emulator)) {
        return say("This emulator cannot be started: there is no such file.");
    }
    const QFileInfo file(QFile::decodeName(QByteArray::fromStdString(emulator.string())));
#ifdef Q_OS_MACOS
    if (file.isDir() && emulator.extension() == ".app") {
        return std::nullopt;
    }
#endif
    if (!file.isFile()) {
        return say("This emulator cannot be started: this is no program.");
    }
    if (emulator.extension() == ".desktop") {
        return ofDesktopEntry(emulator);
    }
    if (!file.isExecutable()) {
        return say("This emulator cannot be started: the file may not be executed.");
    }
    return std::nullopt;
}

} // namespace kestrel
