// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <cstddef>
#include <memory>

namespace kestrel {

/// A node that was removed from the navigation tree, and all that is needed to put it back.
struct RemovedItem {
    std::shared_ptr<ProjectItem> node;
    std::shared_ptr<ProjectItem> container; ///< whose sub-item it was; nothing for a project root
    std::size_t position = 0;               ///< among the container's sub-items, or the roots
    ProjectItems expanded;                  ///< which containers in it were expanded
};

} // namespace kestrel
