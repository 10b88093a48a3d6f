// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {

/// A node with everything given at once.
std::shared_ptr<ProjectItem> makeNode(const std::string& name, const std::filesystem::path& path,
                                      FileType type, FilePathType pathType);

/// A project root in `folder`, and the usual kinds of children.
std::shared_ptr<ProjectItem> makeProject(const std::string& name,
                                         const std::filesystem::path& folder);
std::shared_ptr<ProjectItem> makeGroup(const std::string& name);
std::shared_ptr<ProjectItem> makeText(const std::string& name, const std::filesystem::path& folder);

/// Appends `child` to the children of `parent` and sets its back reference; gives the child.
std::shared_ptr<ProjectItem> addChild(const std::shared_ptr<ProjectItem>& parent,
                                      const std::shared_ptr<ProjectItem>& child);

/// The stored form of a node as text, without children.
std::string storedNode(const std::string& name, const std::string& type,
                       const std::string& members = R"("sub_items":[])");

/// The stored form of a tree of `depth` levels, one node a level.
std::string storedTree(int depth);

/// How many levels a tree of one node a level has.
int depthOf(std::shared_ptr<ProjectItem> node);

/// The names of what lies in `folder`, sorted.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace kestrel::test
