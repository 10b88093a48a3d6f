// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectFiles.h"
#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// Owns the files that describe projects: the registry, each project's project file and structure
/// file. Stateless and synchronous; failures show only in the results.
class FileProcessor {
public:
    /// The roots of all registered projects, in the registry's order. A project whose structure
    /// cannot be read is listed as an empty project node; one without a readable project file is
    /// left out.
    static ProjectItems loadRecentlyConfiguredProjects();

    /// Adds a project to the registry (made when missing). True when the registry was written.
    static bool saveToRecentlyConfiguredProjects(const std::shared_ptr<ProjectItem>& project);

    /// Rewrites the registry with exactly these projects. True when it was written.
    static bool saveRecentlyConfiguredProjects(const ProjectItems& projects);

    /// Writes a new project's build settings, project file and structure file; existing project and
    /// structure files stay. True when both contents could be serialised and the folder exists.
    static bool createFilesForNewProject(const std::shared_ptr<ProjectItem>& project);

    /// The object in the structure file that a project file names, or nothing.
    static std::optional<Dictionary>
    retrieveConfiguration(const std::filesystem::path& kstFilePath);

    /// Whether a file node's file exists: folder and name for an absolute node, project folder and
    /// the node's path (without its name) for any other.
    static bool isFilePresent(const std::shared_ptr<ProjectItem>& file,
                              const std::shared_ptr<ProjectItem>& project);

    /// Write a whole file after making its folder; true when it was written. Absent text gives an
    /// empty file.
    static bool saveTextFile(const std::filesystem::path& absolutePath,
                             const std::optional<std::string>& contents);
    static bool saveDataFile(const std::filesystem::path& absolutePath, std::string_view data);
};

} // namespace kestrel
