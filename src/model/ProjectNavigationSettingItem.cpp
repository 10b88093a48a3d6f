// SPDX-License-Identifier: MIT
#include "model/ProjectNavigationSettingItem.h"

#include <iterator>
#include <utility>

namespace kestrel {

ProjectNavigationSettingItem::ProjectNavigationSettingItem(std::string name,
                                                           std::filesystem::path path,
                                                           FileType type, ProjectType projectType)
    : m_itemName(std::move(name))
    , m_itemFileType(type)
    , m_projectType(projectType)
    , m_itemPath(std::move(path)) {}

ProjectNavigationSettingItem::~ProjectNavigationSettingItem() {
    // Takes children that are not shared apart one by one, so that a deep tree does not overflow
    // the call stack with nested destructors.
    ProjectItems open = std::move(m_subItems);
    while (!open.empty()) {
        const std::shared_ptr<ProjectItem> item = std::move(open.back());
        open.pop_back();
        if (item.use_count() == 1) {
            ProjectItems& children = item->subItems();
            std::move(children.begin(), children.end(), std::back_inserter(open));
            children.clear();
        }
    }
}

std::shared_ptr<ProjectItem> ProjectNavigationSettingItem::parent() const {
    return m_parent.lock();
}

void ProjectNavigationSettingItem::setParent(const std::shared_ptr<ProjectItem>& parent) {
    m_parent = parent;
}

ProjectType ProjectNavigationSettingItem::projectType() const {
    return m_projectType;
}

void ProjectNavigationSettingItem::setProjectType(ProjectType type) {
    m_projectType = type;
}

const std::string& ProjectNavigationSettingItem::itemName() const {
    return m_itemName;
}

void ProjectNavigationSettingItem::setItemName(std::string name) {
    m_itemName = std::move(name);
}

FileType ProjectNavigationSettingItem::itemFileType() const {
    return m_itemFileType;
}

void ProjectNavigationSettingItem::setItemFileType(FileType type) {
    m_itemFileType = type;
}

FilePathType ProjectNavigationSettingItem::itemPathType() const {
    return m_itemPathType;
}

void ProjectNavigationSettingItem::setItemPathType(FilePathType type) {
    m_itemPathType = type;
}

const std::filesystem::path& ProjectNavigationSettingItem::itemPath() const {
    return m_itemPath;
}

void ProjectNavigationSettingItem::setItemPath(std::filesystem::path path) {
    m_itemPath = std::move(path);
}

ProjectItems& ProjectNavigationSettingItem::subItems() {
    return m_subItems;
}

const ProjectItems& ProjectNavigationSettingItem::subItems() const {
    return m_subItems;
}

Dictionary ProjectNavigationSettingItem::toDictionary() const {
    return processValues(*this);
}

} // namespace kestrel
