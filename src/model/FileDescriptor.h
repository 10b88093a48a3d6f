// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/types.h>

namespace kestrel {

/// Owns one open file of the system and closes it. Calls that a signal interrupts are taken up
/// again.
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

    /// Reads up to `size` bytes: how many there were, 0 at the end, nothing on an error.
    std::optional<std::size_t> read(char* buffer, std::size_t size) const;

    /// Writes all of `content`; false on an error, with an unknown part written.
    bool write(std::string_view content) const;

    /// Makes sure that what was written is on the disk.
    bool flush() const;

    /// Closes it now. False when an earlier write turns out to have failed.
    bool close();

private:
    int m_descriptor = -1;
};

/// Opens `path` as open(2) does, close-on-exec always added. Not open when that fails or the path
/// is not usable (isUsablePath).
FileDescriptor openFile(const std::filesystem::path& path, int flags, mode_t mode = 0);

} // namespace kestrel
