// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// Creates `folder` with all missing parents. True when a folder (or a link to one) is there
/// afterwards.
bool createFolders(const std::filesystem::path& folder);

/// Replaces the file at `path` whole, or creates it: the content goes to a temporary file in the
/// same folder (through a symbolic link: in the folder of its target), is flushed and renamed over.
/// The old file's permissions are kept; a new file gets 0666 less the umask. A link to a file that
/// does not exist stays, and the file is created where it points. False, with the old file
/// untouched and no temporary file left, when anything fails; a file without write permission fails
/// too, and so does anything that is no regular file.
bool replaceFile(const std::filesystem::path& path, std::string_view content);

/// Creates the parent folders of `path`, then replaceFile.
bool saveBytes(const std::filesystem::path& path, std::string_view content);

/// Copies the regular file at `path` beside itself as NAME.bak, or .bak1, .bak2, ... where that is
/// taken; a name that would become too long is cut before the ending. A backup with the same bytes
/// is enough: no second one is made. True when a copy is there or nothing exists at `path`.
bool keepBackup(const std::filesystem::path& path);

/// Where the first backup of `path` lies.
std::filesystem::path backupLocation(const std::filesystem::path& path);

/// Several files replaced together: every temporary file is written before the first rename, and a
/// rename that fails puts the files already renamed back. The order of the list is the order of the
/// renames. True when all are replaced.
struct PendingFile {
    std::filesystem::path path;
    std::string content;
};
bool replaceFilesTogether(const std::vector<PendingFile>& files);

} // namespace kestrel
