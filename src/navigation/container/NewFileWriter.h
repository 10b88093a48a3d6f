// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace kestrel {

/// Writes a new item's first contents to disk.
class NewFileWriter {
public:
    /// The folder in which the file of `newItem` lies; nothing for one without a path.
    static std::optional<std::filesystem::path> folderOf(const ProjectItem& newItem,
                                                         const ProjectItem& currentProject);

    /// Writes the file of a new node: empty text, a palette of 32 zero bytes, blank tiles; for a
    /// project its folder and files, its name being appended to its path first. A file that is
    /// there already is kept beside the new one, with "~" appended to its name as often as it takes
    /// to find one that is free. False, with everything left as it was, when the file cannot be
    /// written or kept, when something other than a file is in the way, and, with a line on
    /// standard output, for kinds that have no file.
    static bool create(const std::shared_ptr<ProjectItem>& newItem,
                       const ProjectItem& currentProject);
};

} // namespace kestrel
