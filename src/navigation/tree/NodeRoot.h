// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// The root of a node's tree: the node without a parent that following `parent` leads to. Returns
/// nullptr for nullptr.
inline std::shared_ptr<ProjectItem> findParentFromItem(std::shared_ptr<ProjectItem> item) {
    while (item) {
        std::shared_ptr<ProjectItem> parent = item->parent();
        if (!parent) {
            break;
        }
        item = std::move(parent);
    }
    return item;
}

} // namespace kestrel
