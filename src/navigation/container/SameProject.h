// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// The project in `projects` with the name and the folder, and so the files, of `project`; nullptr
/// when there is none.
std::shared_ptr<ProjectItem> findSameProject(const ProjectItems& projects,
                                             const ProjectItem& project);

/// Gives a project that the registry lists twice one tree: two trees of one structure file would
/// overwrite each other's changes.
void shareRepeatedProjects(ProjectItems& projects);

} // namespace kestrel
