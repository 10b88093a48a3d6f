// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <string>
#include <variant>

namespace kestrel {

/// A project as its project file describes it.
struct OpenedProject {
    std::filesystem::path file;          ///< the project file, absolute
    std::filesystem::path folder;        ///< the folder that holds it, absolute
    std::filesystem::path structureFile; ///< the structure file that it names
    Dictionary structure;                ///< what that file holds
    std::shared_ptr<ProjectItem> root;   ///< the tree that this gives
};

/// Why a project cannot be opened: a sentence for the user.
struct ProjectProblem {
    std::string sentence;
};

/// Reads the project file at `path` and the structure file that it names, as the environment does.
/// A path without a folder is one in the current folder.
std::variant<OpenedProject, ProjectProblem> openProject(const std::filesystem::path& path);

} // namespace kestrel
