// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildSettingsConfiguration.h"

namespace kestrel {

/// The build settings of one NES project, read from and written to its build-settings file. Its
/// file lists have nodes of their own, not those of the navigation tree. Not thread-safe.
class NESBuildSettings final : public BuildSettingsConfiguration {
public:
    /// Empty settings for a placeholder project, which are never saved.
    NESBuildSettings();

    /// The settings in the file of `projectToBuild`. Without a readable file the lists are empty
    /// and there is neither emulator nor output folder; the project's folder is set in any case.
    explicit NESBuildSettings(std::shared_ptr<ProjectItem> projectToBuild);

    std::optional<std::filesystem::path>& projectPath() override { return m_projectPath; }
    std::shared_ptr<ProjectItem>& projectToBuild() override { return m_projectToBuild; }
    BuildSettingsContents& contents() override { return m_contents; }

    /// Reads the settings file of `currentProject`. Changes nothing when it cannot be read, or when
    /// its output folder or its emulator is not a string.
    void populateProperties(const ProjectItem& currentProject);

    /// The JSON object in the project's settings file; nothing when there is none.
    static std::optional<Dictionary>
    fetchBuildSettingsConfigurationFile(const ProjectItem& project);

    /// The same for the project's structure file.
    static std::optional<Dictionary>
    fetchProjectFileStructureConfigurationFile(const ProjectItem& project);

    std::shared_ptr<ProjectItem> fetchProjectFileStructure() override;

    /// Adds `newItem` to the settings file of `currentProject`. A node of a kind without a list is
    /// logged instead, and nothing is written.
    static void add(const std::shared_ptr<ProjectItem>& newItem,
                    const std::shared_ptr<ProjectItem>& currentProject);

    bool addNewFile(const std::shared_ptr<ProjectItem>& projectItem) override;

    /// Removes the first entry with the node's name from the list of its kind, and saves in any
    /// case. Paths are not compared.
    void removeFile(const std::shared_ptr<ProjectItem>& projectItem);

    /// Writes the settings file and logs "Did save build settings" or "Could not save build
    /// settings". The output folder written is always the project's own, not outputFilePath().
    bool saveBuildSettings() override;

    std::vector<std::filesystem::path> assemblyFilesWithAbsolutePaths() override;

private:
    std::shared_ptr<ProjectItem> m_projectToBuild;
    BuildSettingsContents m_contents;
    std::optional<std::filesystem::path> m_projectPath;
};

} // namespace kestrel
