// SPDX-License-Identifier: MIT
#include "model/ProjectItem.h"

#include "model/Paths.h"

#include <cstddef>
#include <functional>
#include <utility>

namespace kestrel {

namespace {

/// The stored form of one node without its children.
Dictionary ownValues(const ProjectItem& item) {
    Dictionary values = Dictionary::object();
    appendMember(values, "name", item.itemName());
    appendMember(values, "path", pathText(item.itemPath()));
    appendMember(values, "path_type", rawValue(item.itemPathType()));
    appendMember(values, "type", rawValue(item.itemFileType()));
    appendMember(values, "project_type", rawValue(item.projectType()));
    return values;
}

/// A node whose children are still being written.
struct OpenNode {
    const ProjectItem* item;
    std::size_t next = 0;
    Dictionary children = Dictionary::array();
};

} // namespace

std::int64_t ProjectItem::uniqueID() const {
    const std::uint64_t name = std::hash<std::string>()(itemName());
    return static_cast<std::int64_t>(name + static_cast<std::uint64_t>(itemFileType()));
}

Dictionary ProjectItem::processValues(const ProjectItem& input) {
    // Depth first without recursion: a tree in memory may be too deep for the call stack.
    std::vector<OpenNode> open;
    open.push_back({&input});
    while (true) {
        OpenNode& node = open.back();
        const ProjectItems& children = node.item->subItems();
        if (node.next < children.size()) {
            if (const auto& child = children[node.next++]) {
                open.push_back({child.get()});
            }
            continue;
        }
        Dictionary values = ownValues(*node.item);
        appendMember(values, "sub_items", std::move(node.children));
        open.pop_back();
        if (open.empty()) {
            return values;
        }
        open.back().children.push_back(std::move(values));
    }
}

} // namespace kestrel
