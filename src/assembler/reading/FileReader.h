// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Problem.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace nesasm {

/// Equal for two paths that lead to one file.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t node = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// The whole content of a regular file, followed by a line feed that `size` does not count.
struct FileContents {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    FileIdentity identity;

    std::string_view view() const { return {bytes.get(), size}; }
};

/// What there can be at a path.
enum class FileKind { missing, regular, folder, other };

/// The kind of file at `path`, links followed.
FileKind fileKind(const std::string& path);

/// The identity of the file at `path`, links followed; nothing when there is none.
std::optional<FileIdentity> identify(const std::string& path);

/// A regular file that is open for reading, also for only a part of it.
class DataFile {
public:
    DataFile() = default;
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;
    DataFile(DataFile&&) = delete;
    DataFile& operator=(DataFile&&) = delete;
    ~DataFile();

    /// Opens the file at `path`, once. Anything but a regular file (a folder, a device, a pipe) is
    /// refused without waiting for it.
    Problem open(const std::string& path);

    std::size_t size() const { return m_size; }
    const FileIdentity& identity() const { return m_identity; }

    /// Reads up to `count` bytes from `offset` on and sets `got` to how many there were.
    Problem read(std::size_t offset, char* bytes, std::size_t count, std::size_t& got) const;

private:
    int m_descriptor = -1;
    std::size_t m_size = 0;
    FileIdentity m_identity;
};

/// Files above this size are refused: no source or data of an NES game comes near it.
inline constexpr std::size_t LargestFile = std::size_t{256} << 20U;

/// Reads the whole of the regular file at `path`, as DataFile::open does.
Problem readFile(const std::string& path, FileContents& contents);

} // namespace nesasm
