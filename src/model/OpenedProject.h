// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <string>
#include <variant>

namespace kestrel {

/// What else a project file may contain than "ProjectStructure": listing the registered projects
/// accepts strings only, opening a project file anything.
enum class ProjectFileRule { stringsOnly, anyMembers };

/// The reasons why a project cannot be opened.
enum class ProjectFault {
    unreadableProjectFile, ///< the project file is missing, unreadable or against the rule
    noStructureNamed,      ///< the project file has no string "ProjectStructure"
    unreadableStructure,   ///< the structure file is missing, unreadable or no JSON object
    noProjectInStructure,  ///< the root in the structure file is no valid node
};

/// Why a project cannot be opened.
struct ProjectProblem {
    ProjectFault fault = ProjectFault::unreadableProjectFile;
    std::filesystem::path file; ///< the project file or the structure file
    std::string reason;         ///< what is wrong with it: a phrase without a full stop
};

/// The structure file that a project file names, and its content.
struct NamedStructure {
    std::filesystem::path file;
    Dictionary structure;
};

/// A project that was read from its project file.
struct OpenedProject {
    std::filesystem::path folder;      ///< the folder of the project file
    std::filesystem::path namedFolder; ///< the root's stored path; differs if the project moved
    std::filesystem::path structureFile;
    Dictionary structure; ///< the content of the structure file
    std::shared_ptr<ProjectItem> root;
};

/// Reads the structure file that the project file `file` names. Its path counts from `folder`.
std::variant<NamedStructure, ProjectProblem>
readNamedStructure(const std::filesystem::path& file, const std::filesystem::path& folder,
                   ProjectFileRule rule = ProjectFileRule::anyMembers);

/// Reads the project with the project file `file`. Relative paths of the structure file and of the
/// root count from `folder`.
std::variant<OpenedProject, ProjectProblem>
openProject(const std::filesystem::path& file, const std::filesystem::path& folder,
            ProjectFileRule rule = ProjectFileRule::anyMembers);

/// The root of the project with the project file `file`; nullptr when it cannot be opened.
std::shared_ptr<ProjectItem> openProjectTree(const std::filesystem::path& file);

} // namespace kestrel
