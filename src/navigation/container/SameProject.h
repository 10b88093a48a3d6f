// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// The project among `projects` that stands for the same one on disk as `project`: of the same name
/// in the same folder, and so with the same files. Nothing when there is none.
std::shared_ptr<ProjectItem> findSameProject(const ProjectItems& projects,
                                             const ProjectItem& project);

/// Lets all rows of a project that the registry lists twice show the same nodes: two trees over one
/// structure file would overwrite each other's changes.
void shareRepeatedProjects(ProjectItems& projects);

} // namespace kestrel
