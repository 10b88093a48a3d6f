// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

namespace kestrel {

/// The only implementation of ProjectItem. A new node has no parent, no children and the path kind
/// `noPath`.
class ProjectNavigationSettingItem final : public ProjectItem {
public:
    ProjectNavigationSettingItem(std::string name, std::filesystem::path path, FileType type,
                                 ProjectType projectType);
    ~ProjectNavigationSettingItem() override;
    ProjectNavigationSettingItem(const ProjectNavigationSettingItem&) = delete;
    ProjectNavigationSettingItem& operator=(const ProjectNavigationSettingItem&) = delete;

    std::shared_ptr<ProjectItem> parent() const override;
    void setParent(const std::shared_ptr<ProjectItem>& parent) override;
    ProjectType projectType() const override;
    void setProjectType(ProjectType type) override;
    const std::string& itemName() const override;
    void setItemName(std::string name) override;
    FileType itemFileType() const override;
    void setItemFileType(FileType type) override;
    FilePathType itemPathType() const override;
    void setItemPathType(FilePathType type) override;
    const std::filesystem::path& itemPath() const override;
    void setItemPath(std::filesystem::path path) override;
    ProjectItems& subItems() override;
    const ProjectItems& subItems() const override;
    Dictionary toDictionary() const override;

private:
    std::weak_ptr<ProjectItem> m_parent;
    std::string m_itemName;
    FileType m_itemFileType;
    FilePathType m_itemPathType = FilePathType::noPath;
    ProjectType m_projectType;
    std::filesystem::path m_itemPath;
    ProjectItems m_subItems;
};

} // namespace kestrel
