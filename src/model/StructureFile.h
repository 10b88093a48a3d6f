// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace kestrel {

/// The path of a project's structure file: in the folder ".project" of the project's folder.
std::filesystem::path structureLocation(const ProjectItem& project);

/// The JSON object in the structure file; nothing when there is none.
std::optional<Dictionary> fetchStructure(const ProjectItem& project);

/// The tree that `structure` describes; nullptr when its root is no valid node. A relative path of
/// the root counts from `projectFolder`: from the working folder it would lead elsewhere.
std::shared_ptr<ProjectItem> projectFromStructure(const Dictionary& structure,
                                                  const std::filesystem::path& projectFolder);

/// The tree in the structure file of `project`; nullptr when it cannot be read.
std::shared_ptr<ProjectItem> structureTree(const ProjectItem& project);

/// Whether reading the file at `path` and writing it again would lose nothing: there is no file, or
/// every member in it is known, valid and not repeated.
bool understandsStructureFile(const std::filesystem::path& path);

/// Replaces the structure file by the tree below `project` and makes its folder when needed. Makes
/// a backup first when the old file has content that would be lost; without that backup nothing is
/// replaced. True when it was written; `reason` as for giveReason.
bool saveStructure(const ProjectItem& project, std::string* reason = nullptr);

/// The same; a failure goes into the log.
bool saveStructureOrLog(const ProjectItem& project);

/// Adds the nodes of an existing structure file to `project`, for a new project that is added over
/// an old one. The file's nodes come first. A node that both have (same name and kind, for files
/// also the same path) stays the one in `project`; groups are merged. True when `project` then has
/// everything that the file holds, also without a file.
bool adoptStructureFile(const std::shared_ptr<ProjectItem>& project);

/// Adds the nodes of an existing structure file to `project` and writes the file if `project` has
/// more. A file with content that would be lost is left alone until the next save.
void uniteWithStructureFile(const std::shared_ptr<ProjectItem>& project);

} // namespace kestrel
