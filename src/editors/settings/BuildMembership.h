// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildSettingsConfiguration.h"

namespace kestrel {

/// Decides which list of the build settings a file stands in. A file is the same when folder, path
/// kind and name are; the name alone does not tell, since a project may hold several of one name.
class BuildMembership {
public:
    static bool isSameFile(const ProjectItem& one, const ProjectItem& other);

    /// The place of the file in `files`; -1 when it is not there.
    static int placeOf(const ProjectItem& file, const ProjectItems& files);

    /// Lists the file under `kind`, at the end unless it stands there already, and in no other
    /// list. The node's own kind is not looked at.
    static void moveTo(FileType kind, const std::shared_ptr<ProjectItem>& file,
                       BuildSettingsConfiguration& settings);
};

} // namespace kestrel
