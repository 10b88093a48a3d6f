// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// What the disk holds of a project beside its nodes in the tree.
class StoredProject {
public:
    /// The tree in the project's structure file; nothing when it cannot be read.
    static std::shared_ptr<ProjectItem> tree(const ProjectItem& project);

    /// Makes the project and its structure file hold what either of them does. A file that cannot
    /// be understood stays until the next save, which keeps a backup of it.
    static void uniteWith(const std::shared_ptr<ProjectItem>& project);

    /// Whether the registry lists a project of this name and folder.
    static bool isRegistered(const ProjectItem& project);
};

} // namespace kestrel
