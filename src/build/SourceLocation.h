// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace kestrel {

/// Whether `name` names one entry of a folder: not empty, not "." or "..", no separator, no NUL
/// byte.
bool isPlainName(std::string_view name);

/// The folder that holds a file node's file: the node's path, joined to `projectFolder` if it is
/// relative. Nothing for a node without a file.
std::optional<std::filesystem::path> sourceFolder(const ProjectItem& entry,
                                                  const std::filesystem::path& projectFolder);

/// A file node's file: its folder joined with its name. Nothing for a node without a file or
/// without a plain name.
std::optional<std::filesystem::path> sourceFile(const ProjectItem& entry,
                                                const std::filesystem::path& projectFolder);

} // namespace kestrel
