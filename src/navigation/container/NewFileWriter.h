// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace kestrel {

/// A file that was written for a new node. Both paths are empty for a project.
struct WrittenFile {
    std::filesystem::path file;
    std::filesystem::path formerContent; ///< the copy of the file that was there; empty if none was
};

/// Writes the file of a new node: empty text, a palette of 32 zero bytes, blank tiles; for a
/// project its folder and files, after appending its name to its path. An existing file is first
/// copied to its name followed by as many "~" as make that name free. Nothing, with nothing
/// changed, when the file cannot be written or copied, when its name can only be a folder's or
/// something other than a file has it, and for kinds without a file (also printed to standard
/// output).
std::optional<WrittenFile> writeNewFile(const std::shared_ptr<ProjectItem>& newItem,
                                        const ProjectItem& currentProject);

/// Removes the file again, or puts back the one that was there. New folders above it stay.
void takeBack(const WrittenFile& written);

} // namespace kestrel
