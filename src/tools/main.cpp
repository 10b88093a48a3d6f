// SPDX-License-Identifier: MIT
#include "build/SignalWatcher.h"
#include "tools/BuildCommand.h"
#include "tools/CommandLine.h"
#include "tools/EmulatorChoice.h"
#include "tools/Messages.h"
#include "tools/ProjectArgument.h"
#include "tools/ProjectRelocator.h"

#include <QCoreApplication>

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace {

/// The exit status.
enum Status { success = 0, failure = 1, refusal = 2 };

Status refuse(const std::string& problem) {
    kestrel::complain(problem);
    return refusal;
}

Status relocate(const kestrel::OpenedProject& project) {
    switch (kestrel::relocateProject(project)) {
    case kestrel::RelocationOutcome::notWritten:
        return failure;
    case kestrel::RelocationOutcome::notUnderstood:
        return refusal;
    case kestrel::RelocationOutcome::nothingToDo:
    case kestrel::RelocationOutcome::relocated:
        break;
    }
    return success;
}

Status findEmulator(const kestrel::OpenedProject& project) {
    switch (kestrel::chooseInstalledEmulator(project)) {
    case kestrel::EmulatorChoice::noneInstalled:
    case kestrel::EmulatorChoice::notWritten:
        return failure;
    case kestrel::EmulatorChoice::notUnderstood:
        return refusal;
    case kestrel::EmulatorChoice::hasOne:
    case kestrel::EmulatorChoice::made:
        break;
    }
    return success;
}

Status build(kestrel::OpenedProject project, const std::vector<std::string>& assemblerArguments,
             char* programName) {
    bool built = false;
    int signal = 0;
    {
        // Qt gets the program's name only, so that it takes no argument for one of its own.
        int argumentCount = 1;
        char* arguments[] = {programName, nullptr};
        const QCoreApplication application(argumentCount, arguments);
        const kestrel::SignalWatcher watcher;
        built = kestrel::BuildCommand(std::move(project), assemblerArguments).run();
        signal = watcher.caught();
    } // the destructors end a running assembler
    if (signal != 0) {
        kestrel::SignalWatcher::endBy(signal);
    }
    return built ? success : failure;
}

} // namespace

int main(int argc, char** argv) {
    using Action = kestrel::CommandLine::Action;
    kestrel::prepareStandardStreams();
    const std::vector<std::string> arguments(argc > 0 ? argv + 1 : argv, argv + argc);
    const auto commandLine = kestrel::CommandLine::parse(arguments);
    switch (commandLine.action) {
    case Action::showHelp:
        return kestrel::printText(kestrel::CommandLine::helpText()) ? success : failure;
    case Action::showVersion:
        return kestrel::printText("kestrel-build " KESTREL_VERSION "\n") ? success : failure;
    case Action::refuse:
        return refuse(commandLine.problem);
    case Action::build:
    case Action::relocate:
    case Action::findEmulator:
        break;
    }
    auto project = kestrel::openProjectArgument(commandLine.project);
    if (const auto* problem = std::get_if<std::string>(&project)) {
        return refuse(*problem);
    }
    auto& opened = std::get<kestrel::OpenedProject>(project);
    if (commandLine.action == Action::relocate) {
        return relocate(opened);
    }
    return commandLine.action == Action::findEmulator
               ? findEmulator(opened)
               : build(std::move(opened), commandLine.assemblerArguments, argv[0]);
}
