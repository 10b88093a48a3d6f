// SPDX-License-Identifier: MIT
#pragma once

#include "model/BuildSettingsFile.h"
#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// A project's build settings: the files to build, the output folder and the emulator.
class BuildSettingsConfiguration {
public:
    BuildSettingsConfiguration() = default;
    BuildSettingsConfiguration(const BuildSettingsConfiguration&) = delete;
    BuildSettingsConfiguration& operator=(const BuildSettingsConfiguration&) = delete;
    virtual ~BuildSettingsConfiguration() = default;

    ProjectItems& assemblyFiles() { return contents().assemblyFiles; }
    std::optional<std::filesystem::path>& pathToEmulator() { return contents().pathToEmulator; }
    ProjectItems& paletteFiles() { return contents().paletteFiles; }
    ProjectItems& graphicFiles() { return contents().graphicFiles; }
    std::optional<std::filesystem::path>& outputFilePath() { return contents().outputFilePath; }
    virtual std::optional<std::filesystem::path>& projectPath() = 0;
    virtual std::shared_ptr<ProjectItem>& projectToBuild() = 0;

    /// All settings that are stored in the settings file.
    virtual BuildSettingsContents& contents() = 0;

    /// The tree in the project's structure file; nullptr when that cannot be read.
    virtual std::shared_ptr<ProjectItem> fetchProjectFileStructure() = 0;

    /// Always empty: direct matches are dropped and only nested results are returned.
    virtual std::vector<std::filesystem::path> assemblyFilesWithAbsolutePaths() = 0;

    /// Appends the node to the list of its kind, if there is one, and saves in any case.
    /// True when the settings were written.
    virtual bool addNewFile(const std::shared_ptr<ProjectItem>& projectItem) = 0;

    /// Writes the settings; true when that succeeds.
    virtual bool saveBuildSettings() = 0;

    /// The list that holds the files of this kind; nullptr for a kind that is in none.
    ProjectItems* listFor(FileType type) { return contents().listFor(type); }
};

} // namespace kestrel
