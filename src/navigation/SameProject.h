#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// The project among `projects` that stands for the same one on disk as `project`: of the same name
/// in the same folder, and so with the same files. Nothing when there is none.
std::shared_ptr<ProjectItem> findSameProject(const ProjectItems& projects,
                                             const ProjectItem& project);

} // namespace kestrel
