// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace kestrel {

/// Where the builder finds the file of an entry in the build settings.
class SourceLocation {
public:
    /// Whether `name` names one entry of a folder: not empty, not "." or "..", no separator, no NUL
    /// byte.
    static bool isPlainName(std::string_view name);

    /// The folder that holds the entry's file. For a relative entry that is `projectFolder` joined
    /// with the entry's path. Nothing for an entry without a file.
    static std::optional<std::filesystem::path> folder(const ProjectItem& entry,
                                                       const std::filesystem::path& projectFolder);

    /// The entry's file: its folder joined with its name. Nothing for an entry without a file or
    /// without a plain name.
    static std::optional<std::filesystem::path> file(const ProjectItem& entry,
                                                     const std::filesystem::path& projectFolder);
};

} // namespace kestrel
