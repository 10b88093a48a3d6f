// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <cstddef>
#include <memory>

namespace kestrel {

/// A node that was removed from the navigation tree, with its former place.
struct RemovedItem {
    std::shared_ptr<ProjectItem> node;
    std::shared_ptr<ProjectItem> container; ///< its parent node; nullptr for a project root
    std::size_t position = 0;               ///< in the container's sub-items or the roots
    ProjectItems expanded;                  ///< the containers in it that were expanded
};

} // namespace kestrel
