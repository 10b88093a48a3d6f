// SPDX-License-Identifier: MIT
#pragma once

#include "model/FileDescriptor.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/stat.h>

namespace kestrel {

/// A file that is written beside the one it is to replace, under a short name of its own. Unless it
/// is renamed into place it is removed when the object goes.
class TemporaryFile {
public:
    /// A new empty file in `folder` (the working folder when empty); nothing when it cannot be
    /// made. The umask is taken off `mode`.
    static std::optional<TemporaryFile> create(const std::filesystem::path& folder, mode_t mode);

    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&& other) = delete;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    bool write(std::string_view content) const { return m_file.write(content); }

    /// Appends all that is left to read in `source`.
    bool copyFrom(const FileDescriptor& source) const;

    /// Takes over owner, group and exactly the permissions of `original`, as far as the user may.
    bool imitate(const struct stat& original) const;

    /// Flushes and closes it: its content is safe on the disk afterwards.
    bool finish();

    /// Moves it over `target`, which is in the same folder. It is no temporary file any more then.
    bool renameTo(const std::filesystem::path& target);

private:
    TemporaryFile(FileDescriptor file, std::filesystem::path path);

    FileDescriptor m_file;
    std::filesystem::path m_path; ///< empty once it is renamed or moved from
};

} // namespace kestrel
