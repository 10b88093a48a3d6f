// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildSettingsConfiguration.h"

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

} // namespace kestrel
