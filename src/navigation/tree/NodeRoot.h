// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// The root of the tree that a node belongs to: the node reached by following `parent` as far as it
/// goes, which is the node itself when it has no parent. Nothing for no node.
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
