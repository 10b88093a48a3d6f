// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/types.h>

namespace kestrel {

/// Owns a POSIX file descriptor. Calls interrupted by a signal are repeated.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor);
    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

    /// Reads up to `size` bytes. Returns their number, 0 at the end, nothing on an error.
    std::optional<std::size_t> read(char* buffer, std::size_t size) const;

    /// Writes all of `content`; false on an error, with an unknown part written.
    bool write(std::string_view content) const;

    /// Waits until everything written is on the disk (fsync).
    bool flush() const;

    /// Closes the file. False when an earlier write failed after all.
    bool close();

private:
    int m_descriptor = -1;
};

/// Calls open(2) with O_CLOEXEC added. The result is not open when that fails or isUsablePath
/// refuses the path.
FileDescriptor openFile(const std::filesystem::path& path, int flags, mode_t mode = 0);

} // namespace kestrel
