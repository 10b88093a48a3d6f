// SPDX-License-Identifier: MIT
#include "model/ProjectItemFactory.h"

#include "model/Log.h"
#include "model/ProjectNavigationSettingItem.h"
#include "model/Reason.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace kestrel {

namespace {

constexpr std::array<std::string_view, 4> RequiredMembers = {"name", "type", "path_type", "path"};

/// Why `dictionary` describes no node: the first member in the order of reading that is not there,
/// is no text, or has a value that is not one of the known.
std::string faultOf(const Dictionary& dictionary) {
    constexpr auto Replace = Dictionary::error_handler_t::replace;
    if (!dictionary.is_object()) {
        return "it is no object";
    }
    for (const std::string_view key : RequiredMembers) {
        const Dictionary* const value = member(dictionary, key);
        const std::string named = "its member \"" + std::string(key) + "\" is ";
        if (value == nullptr) {
            return named + "missing";
        }
        if (!value->is_string()) {
            return named + "no text but " + value->type_name();
        }
        const auto& text = value->get_ref<const std::string&>();
        if ((key == "type" && !fileTypeFrom(text)) ||
            (key == "path_type" && !filePathTypeFrom(text))) {
            return named + value->dump(-1, ' ', false, Replace) + ", which is none of the known";
        }
    }
    return {};
}

/// How the log names a stored node.
std::string nameOf(const Dictionary& dictionary) {
    const Dictionary* const name = member(dictionary, "name");
    return name == nullptr || !name->is_string()
               ? std::string("A stored node without a name")
               : "The stored node " +
                     name->dump(-1, ' ', false, Dictionary::error_handler_t::replace);
}

/// The node that `dictionary` describes, without its children; nullptr when it is invalid.
std::shared_ptr<ProjectItem> nodeFrom(const Dictionary& dictionary) {
    auto name = stringMember(dictionary, "name");
    const auto typeText = stringMember(dictionary, "type");
    const auto pathTypeText = stringMember(dictionary, "path_type");
    auto path = stringMember(dictionary, "path");
    if (!name || !typeText || !pathTypeText || !path) {
        return nullptr;
    }
    const auto type = fileTypeFrom(*typeText);
    const auto pathType = filePathTypeFrom(*pathTypeText);
    if (!type || !pathType) {
        return nullptr;
    }
    auto node = std::make_shared<ProjectNavigationSettingItem>(
        std::move(*name), std::filesystem::path(std::move(*path)), *type, ProjectType::nes);
    node->setItemPathType(*pathType);
    return node;
}

std::shared_ptr<ProjectItem> nodeOrLogLine(const Dictionary& dictionary,
                                           const std::shared_ptr<ProjectItem>& parent) {
    auto node = nodeFrom(dictionary);
    if (!node) {
        writeLog("FAILLLEED");
        logReason(nameOf(dictionary), faultOf(dictionary));
        return nullptr;
    }
    node->setParent(parent);
    return node;
}

/// The stored children of a node; nullptr when there are none or one is not an object.
const Dictionary* childrenOf(const Dictionary& dictionary) {
    const Dictionary* const list = member(dictionary, "sub_items");
    return list != nullptr && isArrayOfObjects(*list) ? list : nullptr;
}

/// A node whose children are still being read.
struct OpenNode {
    std::shared_ptr<ProjectItem> node;
    const Dictionary* children;
    std::size_t next = 0;
};

bool isKnownMember(const std::string& key) {
    static constexpr std::array<std::string_view, 6> Known = {"name", "path",         "path_type",
                                                              "type", "project_type", "sub_items"};
    return std::find(Known.begin(), Known.end(), key) != Known.end();
}

/// understandsWhole for a node but not its children.
bool understandsNode(const Dictionary& dictionary) {
    if (!nodeFrom(dictionary)) {
        return false;
    }
    const Dictionary* const projectType = member(dictionary, "project_type");
    if (projectType != nullptr && *projectType != rawValue(ProjectType::nes)) {
        return false;
    }
    if (member(dictionary, "sub_items") != nullptr && childrenOf(dictionary) == nullptr) {
        return false;
    }
    const auto& members = dictionary.get_ref<const Dictionary::object_t&>();
    return std::all_of(members.begin(), members.end(),
                       [](const auto& entry) { return isKnownMember(entry.first); });
}

} // namespace

std::shared_ptr<ProjectItem>
ProjectItemFactory::process(const Dictionary& dictionary,
                            const std::shared_ptr<ProjectItem>& parent) {
    auto root = nodeOrLogLine(dictionary, parent);
    if (!root) {
        return nullptr;
    }
    // Depth first in document order, without recursion.
    std::vector<OpenNode> open;
    open.push_back({root, childrenOf(dictionary)});
    while (!open.empty()) {
        OpenNode& current = open.back();
        if (current.children == nullptr || current.next == current.children->size()) {
            open.pop_back();
            continue;
        }
        const Dictionary& stored = (*current.children)[current.next++];
        if (auto child = nodeOrLogLine(stored, current.node)) {
            current.node->subItems().push_back(child);
            open.push_back({std::move(child), childrenOf(stored)});
        }
    }
    return root;
}

ProjectItems ProjectItemFactory::processList(const Dictionary& list) {
    ProjectItems items;
    if (!isArrayOfObjects(list)) {
        return items;
    }
    for (const Dictionary& stored : list) {
        if (auto item = process(stored, nullptr)) {
            items.push_back(std::move(item));
        }
    }
    return items;
}

bool ProjectItemFactory::understandsWhole(const Dictionary& dictionary) {
    std::vector<const Dictionary*> open = {&dictionary};
    while (!open.empty()) {
        const Dictionary& stored = *open.back();
        open.pop_back();
        if (!understandsNode(stored)) {
            return false;
        }
        if (const Dictionary* const children = childrenOf(stored)) {
            for (const Dictionary& child : *children) {
                open.push_back(&child);
            }
        }
    }
    return true;
}

} // namespace kestrel
