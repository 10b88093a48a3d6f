// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// Writes the file of a new node: empty text, a palette of 32 zero bytes, blank tiles; for a
/// project its folder and files, after appending its name to its path. An existing file is first
/// copied to its name followed by as many "~" as make that name free. Returns false, with nothing
/// changed, when the file cannot be written or copied or when something other than a file has its
/// name, and for kinds without a file (also printed to standard output).
bool writeNewFile(const std::shared_ptr<ProjectItem>& newItem, const ProjectItem& currentProject);

} // namespace kestrel
