// SPDX-License-Identifier: MIT
#include "tools/ProjectRelocator.h"

#include "build/ShownPath.h"
#include "model/BuildSettingsFile.h"
#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Paths.h"
#include "tools/Messages.h"
#include "tools/Relocation.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kestrel {

namespace fs = std::filesystem;

namespace {

/// The new content of both files, in the order in which they are replaced.
std::optional<std::vector<PendingFile>> newFiles(const OpenedProject& project,
                                                 const Relocation& relocation,
                                                 std::optional<Dictionary> settings) {
    std::vector<PendingFile> files;
    if (settings) {
        relocation.applyToSettings(*settings);
        auto content = buildSettingsText(*settings);
        if (!content) {
            return std::nullopt;
        }
        files.push_back(
            {buildSettingsLocation(project.folder, project.root->itemName()), std::move(*content)});
    }
    Dictionary structure = project.structure;
    relocation.applyToNode(structure);
    structure["path"] = pathText(project.folder);
    auto content = serialiseJson(structure);
    if (!content) {
        return std::nullopt;
    }
    files.push_back({project.structureFile, std::move(*content)});
    return files;
}

/// Makes a backup of each file with repeated members, of which the new content has only the last.
bool keepWhatWouldBeLost(const std::vector<PendingFile>& files) {
    return std::all_of(files.begin(), files.end(), [](const PendingFile& file) {
        bool repeatedMembers = false;
        readJsonFile(file.path, &repeatedMembers);
        return !repeatedMembers || keepBackup(file.path);
    });
}

/// Replaces the files, unless one is a link to the project that this one was copied from.
bool write(const std::vector<PendingFile>& files, const Relocation& relocation) {
    for (const PendingFile& file : files) {
        if (relocation.leadsBack(file.path)) {
            complain(shown(file.path) + " is a link into the former folder " +
                     shown(relocation.former()) +
                     ": put a copy of the file in its place. Nothing was changed.");
            return false;
        }
    }
    if (!keepWhatWouldBeLost(files) || !replaceFilesTogether(files)) {
        complain("the project's files in " + shown(files.back().path.parent_path()) +
                 " could not be written: is there room, and may you write there? Run the same "
                 "command again afterwards.");
        return false;
    }
    return true;
}

} // namespace

RelocationOutcome relocateProject(const OpenedProject& project) {
    const auto relocation = Relocation::between(project.namedFolder, project.folder);
    if (!relocation) {
        printText("The project's files name the folder it lies in, " + shown(project.folder) +
                  ": nothing to do.\n");
        return RelocationOutcome::nothingToDo;
    }
    if (project.root->itemName().find('/') != std::string::npos) {
        complain("the project's name " + shown(project.root->itemName()) +
                 " holds a \"/\", so its build settings have no place. Nothing was changed.");
        return RelocationOutcome::notUnderstood;
    }
    const fs::path settingsFile = buildSettingsLocation(project.folder, project.root->itemName());
    auto settings = readJsonObject(settingsFile);
    if (existsAt(settingsFile) && !settings) {
        complain("the build settings " + shown(settingsFile) +
                 " cannot be read or are not a JSON object. Nothing was changed.");
        return RelocationOutcome::notUnderstood;
    }
    if (!settings) {
        complain("there are no build settings " + shown(settingsFile) +
                 "; only the structure file is relocated.");
    }
    const auto files = newFiles(project, *relocation, std::move(settings));
    if (!files) {
        complain(
            "the folder " + shown(project.folder) +
            " cannot be named in the project's files: its name is not valid UTF-8. Nothing was "
            "changed.");
        return RelocationOutcome::notWritten;
    }
    if (!write(*files, *relocation)) {
        return RelocationOutcome::notWritten;
    }
    printText("Relocated from " + shown(relocation->former()) + " to " + shown(project.folder) +
              ".\n");
    return RelocationOutcome::relocated;
}

} // namespace kestrel
