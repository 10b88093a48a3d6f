// SPDX-License-Identifier: MIT
#include "build/BuildHints.h"

#include "build/MainAssemblyFile.h"
#include "build/QtText.h"
#include "build/ShownPath.h"
#include "build/SourceLocation.h"
#include "model/BuildSettingsFile.h"
#include "model/FileReader.h"
#include "model/Paths.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QString>

#include <cstddef>
#include <optional>
#include <string_view>

namespace kestrel {

namespace {

constexpr std::size_t MostFileHints = 5;

/// The name of the running program's file.
std::string programName() {
    return QFileInfo(QCoreApplication::applicationFilePath()).fileName().toStdString();
}

std::optional<std::string> setUpHint(const HintSubject& subject) {
    if (!subject.hasAssembler) {
        return "The assembler NESasm is neither beside " + programName() +
               " nor in the folder ../libexec/kestrel: Kestrel is not installed completely.";
    }
    if (!subject.outputFolder) {
        const std::string file = shown(subject.settingsFile);
        return existsAt(subject.settingsFile)
                   ? "The build settings " + file +
                         " cannot be understood: they need the texts \"output_folder\" and "
                         "\"emulator\"."
                   : "There are no build settings " + file + ".";
    }
    if (subject.outputFolder->empty()) {
        return "The build settings name no output folder.";
    }
    if (subject.projectName.find('/') != std::string::npos ||
        subject.projectName.find('\0') != std::string::npos) {
        return "The project's name " + shown(subject.projectName) +
               " cannot be the name of an image file.";
    }
    return "Needed are the folders " + shown(joined(subject.projectFolder, "tmp")) + " and " +
           shown(*subject.outputFolder) + ": may you write there?";
}

/// Why this file is not the main one; nothing when there is no more to say than that.
std::optional<std::string> sourceHint(const std::filesystem::path& file) {
    const auto bytes = readFile(file);
    if (!bytes) {
        return "The assembly file " + shown(file) + " cannot be read.";
    }
    const auto text = textFromUtf8(std::string_view(*bytes));
    if (!text) {
        return "The assembly file " + shown(file) + " is not valid UTF-8 text.";
    }
    // With as many spaces appended, the search reaches the end of the text.
    if (placesVectors(*text + QString(text->size(), u' '))) {
        return "In " + shown(file) + " the vectors stand too near the end to be found.";
    }
    return std::nullopt;
}

std::vector<std::string> mainFileHints(const HintSubject& subject) {
    std::vector<std::string> hints;
    if (!subject.listsSources) {
        hints.emplace_back("The build settings list no assembly file.");
    }
    for (const auto& file : subject.sources) {
        if (hints.size() == MostFileHints) {
            break;
        }
        if (auto hint = sourceHint(file)) {
            hints.push_back(std::move(*hint));
        }
    }
    hints.emplace_back(
        "The main file is the first listed one that holds \".org $FFFA\". Where lines end with "
        "CR LF, the last part of a file is not searched: a comment \"; .org $FFFA\" near the top "
        "of the main file helps.");
    return hints;
}

} // namespace

HintSubject hintSubject(BuildSettingsConfiguration& settings, bool hasAssembler) {
    const ProjectItem& project = *settings.projectToBuild();
    HintSubject subject;
    subject.hasAssembler = hasAssembler;
    subject.projectName = project.itemName();
    subject.projectFolder = project.itemPath();
    subject.settingsFile = buildSettingsLocation(project);
    subject.outputFolder = settings.outputFilePath();
    subject.listsSources = !settings.assemblyFiles().empty();
    for (const auto& entry : settings.assemblyFiles()) {
        if (auto file = sourceFile(*entry, subject.projectFolder)) {
            subject.sources.push_back(std::move(*file));
        }
    }
    return subject;
}

std::vector<std::string> buildHintsFor(const BuildError& error, const HintSubject& subject) {
    if (error.description == SetUpFailed) {
        if (auto hint = setUpHint(subject)) {
            return {std::move(*hint)};
        }
    }
    if (error.description == NoMainFile) {
        return mainFileHints(subject);
    }
    return {};
}

} // namespace kestrel
