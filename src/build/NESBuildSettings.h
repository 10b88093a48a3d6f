// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildSettingsConfiguration.h"

namespace kestrel {

/// The build settings of one NES project, loaded from and saved to its build-settings file. The
/// file lists hold nodes of their own, not those of the navigation tree. Used on one thread at a
/// time.
class NESBuildSettings final : public BuildSettingsConfiguration {
public:
    /// An empty record for a placeholder project, which is never saved.
    NESBuildSettings();

    /// The record of `projectToBuild` as its file has it. With no readable file the lists are
    /// empty and emulator and output folder absent; the project's folder is set in any case.
    explicit NESBuildSettings(std::shared_ptr<ProjectItem> projectToBuild);

    std::optional<std::filesystem::path>& projectPath() override { return m_projectPath; }
    std::shared_ptr<ProjectItem>& projectToBuild() override { return m_projectToBuild; }
    BuildSettingsContents& contents() override { return m_contents; }

    /// Takes over what the settings file of `currentProject` holds. Nothing at all is assigned when
    /// the file cannot be read, or when its output folder or its emulator is no string.
    void populateProperties(const ProjectItem& currentProject);

    /// The object in the project's settings file; nothing when it cannot be read or is no object.
    static std::optional<Dictionary>
    fetchBuildSettingsConfigurationFile(const ProjectItem& project);

    /// The same for the project's structure file.
    static std::optional<Dictionary>
    fetchProjectFileStructureConfigurationFile(const ProjectItem& project);

    std::shared_ptr<ProjectItem> fetchProjectFileStructure() override;

    /// Adds `newItem` to the settings file of `currentProject`. A node that belongs to no list is
    /// logged and leaves the file alone.
    static void add(const std::shared_ptr<ProjectItem>& newItem,
                    const std::shared_ptr<ProjectItem>& currentProject);

    void addNewFile(const std::shared_ptr<ProjectItem>& projectItem) override;

    /// Removes the first entry of that name from the list of the node's kind and saves in every
    /// case. Paths are not compared.
    void removeFile(const std::shared_ptr<ProjectItem>& projectItem);

    /// Writes the settings file and logs "Did save build settings" or "Could not save build
    /// settings". The output folder written is always the project's own, whatever this record
    /// holds.
    void saveBuildSettings() override;

    std::vector<std::filesystem::path> assemblyFilesWithAbsolutePaths() override;

private:
    std::shared_ptr<ProjectItem> m_projectToBuild;
    BuildSettingsContents m_contents;
    std::optional<std::filesystem::path> m_projectPath;
};

} // namespace kestrel
