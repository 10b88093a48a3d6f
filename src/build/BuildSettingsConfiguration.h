// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// A project's build settings: what is assembled, where the image goes and which emulator runs it.
class BuildSettingsConfiguration {
public:
    BuildSettingsConfiguration() = default;
    BuildSettingsConfiguration(const BuildSettingsConfiguration&) = delete;
    BuildSettingsConfiguration& operator=(const BuildSettingsConfiguration&) = delete;
    virtual ~BuildSettingsConfiguration() = default;

    virtual ProjectItems& assemblyFiles() = 0;
    virtual std::optional<std::filesystem::path>& pathToEmulator() = 0;
    virtual ProjectItems& paletteFiles() = 0;
    virtual ProjectItems& graphicFiles() = 0;
    virtual std::optional<std::filesystem::path>& outputFilePath() = 0;
    virtual std::optional<std::filesystem::path>& projectPath() = 0;
    virtual std::shared_ptr<ProjectItem>& projectToBuild() = 0;

    /// The project's tree as its structure file has it; nothing when that cannot be read.
    virtual std::shared_ptr<ProjectItem> fetchProjectFileStructure() = 0;

    /// Always empty: the files found directly are dropped and only nested results are returned.
    virtual std::vector<std::filesystem::path> assemblyFilesWithAbsolutePaths() = 0;

    /// Appends the node to the list of its kind, if it has one, and saves in every case.
    virtual void addNewFile(const std::shared_ptr<ProjectItem>& projectItem) = 0;

    virtual void saveBuildSettings() = 0;

    /// The list that holds the files of this kind; null for a kind that is in none.
    ProjectItems* listFor(FileType type) {
        switch (type) {
        case FileType::text:
            return &assemblyFiles();
        case FileType::graphics:
            return &graphicFiles();
        case FileType::palette:
            return &paletteFiles();
        case FileType::project:
        case FileType::group:
        case FileType::empty:
        case FileType::unknown:
            break;
        }
        return nullptr;
    }
};

} // namespace kestrel
