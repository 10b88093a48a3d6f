// SPDX-License-Identifier: MIT
#pragma once

#include "build/NESBuildSettings.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace kestrel {

/// Whether two nodes are the same file: in folder, path kind and name. The name alone is not
/// enough, since a project may contain several files of one name.
bool isSameFile(const ProjectItem& one, const ProjectItem& other);

/// The row of the file in `files`; -1 when it is not there.
int rowOf(const ProjectItem& file, const ProjectItems& files);

/// Puts the file into the build settings' list of `kind`, at the end unless it is there already,
/// and removes it from the others. The node's own kind is ignored.
void moveToListOf(FileType kind, const std::shared_ptr<ProjectItem>& file,
                  BuildSettingsConfiguration& settings);

/// An entry of the build settings' list of a kind, and its index there.
struct ListedFile {
    std::shared_ptr<ProjectItem> entry;
    FileType kind;
    std::size_t place;
};

/// Removes a file as NESBuildSettings::removeFile() does, and saves. Returns the entry that was
/// removed; nothing when none was, or when that could not be saved.
std::optional<ListedFile> takeOffList(const std::shared_ptr<ProjectItem>& file,
                                      NESBuildSettings& settings);

/// Puts a removed entry back where it was, at most at the end, and saves. Returns its index;
/// nothing when that could not be saved.
std::optional<std::size_t> putBackOnList(const ListedFile& removed, NESBuildSettings& settings);

} // namespace kestrel
