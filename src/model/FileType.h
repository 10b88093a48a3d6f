// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace kestrel {

/// The kind of a node in a project tree. The numbers are part of a node's identity (uniqueID).
enum class FileType {
    project = 0,
    group = 1,
    empty = 2,
    unknown = 3,
    text = 4,
    palette = 5,
    graphics = 6,
};

/// How a node's `itemPath` is to be read.
enum class FilePathType {
    noPath = 0,   ///< no file on disk
    absolute = 1, ///< the absolute path of the folder that holds the file
    relative = 2, ///< a path below the project's folder
};

/// The kind of a project.
enum class ProjectType { nes };

/// The text of each kind in stored files, and the kind of a text: exact and case-sensitive, nothing
/// for any other text.
std::string_view rawValue(FileType type);
std::string_view rawValue(FilePathType type);
std::string_view rawValue(ProjectType type);
std::optional<FileType> fileTypeFrom(std::string_view raw);
std::optional<FilePathType> filePathTypeFrom(std::string_view raw);

} // namespace kestrel
