// SPDX-License-Identifier: MIT
#pragma once

#include "model/FileType.h"
#include "model/Json.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace kestrel {

class ProjectItem;
using ProjectItems = std::vector<std::shared_ptr<ProjectItem>>;

/// One node of a project tree: the project itself, a group, or a file. Nodes are shared; a node
/// owns its children and refers to its parent weakly.
class ProjectItem {
public:
    ProjectItem() = default;
    ProjectItem(const ProjectItem&) = delete;
    ProjectItem& operator=(const ProjectItem&) = delete;
    virtual ~ProjectItem() = default;

    /// The node that owns this one; nullptr for a project root.
    virtual std::shared_ptr<ProjectItem> parent() const = 0;
    virtual void setParent(const std::shared_ptr<ProjectItem>& parent) = 0;

    virtual ProjectType projectType() const = 0;
    virtual void setProjectType(ProjectType type) = 0;

    /// A project's name, a group's label, or a file's name with extension. UTF-8.
    virtual const std::string& itemName() const = 0;
    virtual void setItemName(std::string name) = 0;

    virtual FileType itemFileType() const = 0;
    virtual void setItemFileType(FileType type) = 0;

    virtual FilePathType itemPathType() const = 0;
    virtual void setItemPathType(FilePathType type) = 0;

    /// Its meaning depends on itemPathType(). A project root has the absolute path of its folder.
    virtual const std::filesystem::path& itemPath() const = 0;
    virtual void setItemPath(std::filesystem::path path) = 0;

    /// The children in the order in which they are shown and stored. Callers edit them in place.
    virtual ProjectItems& subItems() = 0;
    virtual const ProjectItems& subItems() const = 0;

    /// The stored form of this node, children included.
    virtual Dictionary toDictionary() const = 0;

    /// A hash of the name plus the number of the kind, wrapping at 64 bits. Nodes are found again
    /// by it; two nodes of the same name and kind have the same one, wherever they are.
    std::int64_t uniqueID() const;

    /// The stored form of `input` and, recursively, of its children.
    static Dictionary processValues(const ProjectItem& input);
};

} // namespace kestrel
