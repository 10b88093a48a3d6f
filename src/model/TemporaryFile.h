// SPDX-License-Identifier: MIT
#pragma once

#include "model/FileDescriptor.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/stat.h>

namespace kestrel {

/// A temporary file in the folder of the file that it will replace. The destructor removes it
/// unless it was renamed.
class TemporaryFile {
public:
    /// A new empty file in `folder` (the working folder when that is empty), with permissions
    /// `mode` less the umask. Nothing when it cannot be created.
    static std::optional<TemporaryFile> create(const std::filesystem::path& folder, mode_t mode);

    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&& other) = delete;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    bool write(std::string_view content) const { return m_file.write(content); }

    /// Appends the rest of `source`.
    bool copyFrom(const FileDescriptor& source) const;

    /// Sets owner, group and permissions to those of `original`, as far as the user may.
    bool imitate(const struct stat& original) const;

    /// Flushes and closes the file.
    bool finish();

    /// Renames the file to `target`, in the same folder. It is then no longer temporary.
    bool renameTo(const std::filesystem::path& target);

private:
    TemporaryFile(FileDescriptor file, std::filesystem::path path);

    FileDescriptor m_file;
    std::filesystem::path m_path; ///< empty once it is renamed or moved from
};

} // namespace kestrel
