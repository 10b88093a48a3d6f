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

std::optional<std::string> setUpHint(BuildSettingsConfiguration& settings, bool hasAssembler) {
    const ProjectItem& project = *settings.projectToBuild();
    if (!hasAssembler) {
        return "The assembler NESasm is neither beside " + programName() +
               " nor in the folder ../libexec/kestrel: Kestrel is not installed completely.";
    }
    if (!settings.outputFilePath()) {
        const std::string file = shown(buildSettingsLocation(project));
        return existsAt(buildSettingsLocation(project))
                   ? "The build settings " + file +
                         " cannot be understood: they need the texts \"output_folder\" and "
                         "\"emulator\"."
                   : "There are no build settings " + file + ".";
    }
    if (settings.outputFilePath()->empty()) {
        return "The build settings name no output folder.";
    }
    if (project.itemName().find('/') != std::string::npos ||
        project.itemName().find('\0') != std::string::npos) {
        return "The project's name " + shown(project.itemName()) +
               " cannot be the name of an image file.";
    }
    return "Needed are the folders " + shown(joined(project.itemPath(), "tmp")) + " and " +
           shown(*settings.outputFilePath()) + ": may you write there?";
}

/// Why this file is not the main one; nothing when there is no more to say than that.
std::optional<std::string> sourceHint(const ProjectItem& entry,
                                      const std::filesystem::path& projectFolder) {
    const auto file = sourceFile(entry, projectFolder);
    if (!file) {
        return std::nullopt;
    }
    const auto bytes = readFile(*file);
    if (!bytes) {
        return "The assembly file " + shown(*file) + " cannot be read.";
    }
    const auto text = textFromUtf8(std::string_view(*bytes));
    if (!text) {
        return "The assembly file " + shown(*file) + " is not valid UTF-8 text.";
    }
    // With as many spaces appended, the search reaches the end of the text.
    if (placesVectors(*text + QString(text->size(), u' '))) {
        return "In " + shown(*file) + " the vectors stand too near the end to be found.";
    }
    return std::nullopt;
}

std::vector<std::string> mainFileHints(BuildSettingsConfiguration& settings) {
    std::vector<std::string> hints;
    if (settings.assemblyFiles().empty()) {
        hints.emplace_back("The build settings list no assembly file.");
    }
    for (const auto& entry : settings.assemblyFiles()) {
        if (hints.size() == MostFileHints) {
            break;
        }
        if (auto hint = sourceHint(*entry, settings.projectToBuild()->itemPath())) {
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

std::vector<std::string> buildHintsFor(const BuildError& error,
                                       BuildSettingsConfiguration& settings, bool hasAssembler) {
    if (error.description == SetUpFailed) {
        if (auto hint = setUpHint(settings, hasAssembler)) {
            return {std::move(*hint)};
        }
    }
    if (error.description == NoMainFile) {
        return mainFileHints(settings);
    }
    return {};
}

} // namespace kestrel
