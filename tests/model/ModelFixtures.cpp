// SPDX-License-Identifier: MIT
#include "model/ModelFixtures.h"

#include "model/ProjectNavigationSettingItem.h"

#include <algorithm>

namespace kestrel::test {

std::shared_ptr<ProjectItem> makeNode(const std::string& name, const std::filesystem::path& path,
                                      FileType type, FilePathType pathType) {
    auto node = std::make_shared<ProjectNavigationSettingItem>(name, path, type, ProjectType::nes);
    node->setItemPathType(pathType);
    return node;
}

std::shared_ptr<ProjectItem> makeProject(const std::string& name,
                                         const std::filesystem::path& folder) {
    return makeNode(name, folder, FileType::project, FilePathType::absolute);
}

std::shared_ptr<ProjectItem> makeGroup(const std::string& name) {
    return makeNode(name, "groups", FileType::group, FilePathType::noPath);
}

std::shared_ptr<ProjectItem> makeText(const std::string& name,
                                      const std::filesystem::path& folder) {
    return makeNode(name, folder, FileType::text, FilePathType::absolute);
}

std::shared_ptr<ProjectItem> addChild(const std::shared_ptr<ProjectItem>& parent,
                                      const std::shared_ptr<ProjectItem>& child) {
    child->setParent(parent);
    parent->subItems().push_back(child);
    return child;
}

std::string storedNode(const std::string& name, const std::string& type,
                       const std::string& members) {
    return R"({"name":")" + name + R"(","path":"/x","path_type":"absolute_path","type":")" + type +
           R"(","project_type":"nes",)" + members + "}";
}

std::string storedTree(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i) {
        text += R"({"name":"n","path":"/x","path_type":"no_path","type":"group","sub_items":[)";
    }
    for (int i = 0; i < depth; ++i) {
        text += "]}";
    }
    return text;
}

int depthOf(std::shared_ptr<ProjectItem> node) {
    int depth = 0;
    while (node) {
        ++depth;
        node = node->subItems().empty() ? nullptr : node->subItems().front();
    }
    return depth;
}

std::vector<std::string> namesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace kestrel::test
