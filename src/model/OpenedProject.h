// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <variant>

namespace kestrel {

/// What a project file may hold beside the path of its structure file. Listing the registered
/// projects takes files of strings only; opening one takes any.
enum class ProjectFileRule { stringsOnly, anyMembers };

/// The first thing that keeps a project from being opened.
enum class ProjectFault {
    unreadableProjectFile, ///< the project file cannot be read, or not as the rule asks
    noStructureNamed,      ///< the project file has no string "ProjectStructure"
    unreadableStructure,   ///< the structure file cannot be read or is no JSON object
    noProjectInStructure,  ///< the structure's root is no project node
};

/// Why a project cannot be opened.
struct ProjectProblem {
    ProjectFault fault = ProjectFault::unreadableProjectFile;
    std::filesystem::path file; ///< the project file or the structure file, whichever is at fault
};

/// The structure file that a project file names, and what it holds.
struct NamedStructure {
    std::filesystem::path file;
    Dictionary structure;
};

/// A project as its project file describes it.
struct OpenedProject {
    std::filesystem::path folder;        ///< the folder of the project file
    std::filesystem::path namedFolder;   ///< the root's path as stored: another folder if it moved
    std::filesystem::path structureFile; ///< the structure file that the project file names
    Dictionary structure;                ///< the content of that file
    std::shared_ptr<ProjectItem> root;   ///< the project tree in it
};

/// Reads the structure that the project file `file` names. `folder` is the project's folder, below
/// which the structure file lies.
std::variant<NamedStructure, ProjectProblem>
readNamedStructure(const std::filesystem::path& file, const std::filesystem::path& folder,
                   ProjectFileRule rule = ProjectFileRule::anyMembers);

/// Reads the project whose project file is `file`. A root without an absolute path gets one below
/// `folder`.
std::variant<OpenedProject, ProjectProblem>
openProject(const std::filesystem::path& file, const std::filesystem::path& folder,
            ProjectFileRule rule = ProjectFileRule::anyMembers);

/// The root of the project whose project file is `file`, in the folder that holds it; nullptr when
/// it cannot be opened.
std::shared_ptr<ProjectItem> openProjectTree(const std::filesystem::path& file);

} // namespace kestrel
