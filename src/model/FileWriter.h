// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// Whether the last name of `path` can be that of a file: none is empty, "." or "..".
bool namesAFile(const std::filesystem::path& path);

/// Creates `folder` and all missing parents. True when it then is a folder or a link to one.
/// `reason` as for giveReason, here and below.
bool createFolders(const std::filesystem::path& folder, std::string* reason = nullptr);

/// Replaces or creates the file at `path` atomically: writes a temporary file in the same folder,
/// flushes it and renames it. Symbolic links are followed and stay, also one to a missing file. The
/// old file's permissions are kept; a new file gets 0666 less the umask. False, with the old file
/// unchanged and no temporary file left, when anything fails, when the file is not writable, or
/// when something other than a regular file has its name.
///
/// The assembler has code of its own for this (src/assembler/output/ImageFile): it uses the
/// standard library alone, reports a reason instead of false, and does not flush, because an image
/// is made again in milliseconds.
bool replaceFile(const std::filesystem::path& path, std::string_view content,
                 std::string* reason = nullptr);

/// Creates the parent folders of `path`, then calls replaceFile.
bool saveBytes(const std::filesystem::path& path, std::string_view content,
               std::string* reason = nullptr);

/// Copies the regular file at `path` to NAME.bak in its folder, or to .bak1, .bak2, ... if that
/// exists; a name too long is cut before the ending. An existing backup with the same bytes is
/// enough. The path of the backup, an empty one when nothing exists at `path`; nothing when no
/// backup could be made.
std::optional<std::filesystem::path> keepBackup(const std::filesystem::path& path,
                                                std::string* reason = nullptr);

/// The path of the first backup of `path`.
std::filesystem::path backupLocation(const std::filesystem::path& path);

/// A file to be replaced, and its new content.
struct PendingFile {
    std::filesystem::path path;
    std::string content;
};

/// Replaces several files, or none: writes every temporary file before the first rename, and undoes
/// the renames when one fails. Renames in the order of the list. True when all are replaced.
bool replaceFilesTogether(const std::vector<PendingFile>& files);

} // namespace kestrel
