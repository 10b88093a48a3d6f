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

/// Reads and writes the files that describe projects: the registry, project files and structure
/// files. Stateless and synchronous; reports failures only by its results.
class FileProcessor {
public:
    /// The roots of all registered projects, in the registry's order. A project with an unreadable
    /// structure gets an empty project node; one with an unreadable project file is left out.
    static ProjectItems loadRecentlyConfiguredProjects();

    /// Adds a project to the registry, which is created when missing. True when it was written.
    static bool saveToRecentlyConfiguredProjects(const std::shared_ptr<ProjectItem>& project);

    /// Rewrites the registry with exactly these projects. True when it was written.
    static bool saveRecentlyConfiguredProjects(const ProjectItems& projects);

    /// Writes a new project's build settings, project file and structure file. Existing project and
    /// structure files are not replaced. True when both could be serialised and the folder exists.
    static bool createFilesForNewProject(const std::shared_ptr<ProjectItem>& project);

    /// The JSON object in the structure file that a project file names; nothing when either cannot
    /// be read.
    static std::optional<Dictionary>
    retrieveConfiguration(const std::filesystem::path& kstFilePath);

    /// Whether a file node's file exists: at its path and name for an absolute node, at the project
    /// folder and its path, without its name, for any other.
    static bool isFilePresent(const std::shared_ptr<ProjectItem>& file,
                              const std::shared_ptr<ProjectItem>& project);

    /// Create or replace a file and create its folder. Absent text gives an empty file. True when
    /// the file was written; else `reason` says why, as for giveReason.
    static bool saveTextFile(const std::filesystem::path& absolutePath,
                             const std::optional<std::string>& contents,
                             std::string* reason = nullptr);
    static bool saveDataFile(const std::filesystem::path& absolutePath, std::string_view data,
                             std::string* reason = nullptr);
};

} // namespace kestrel
