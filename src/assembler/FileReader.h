#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace nesasm {

/// What makes a file the same file under another name.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t node = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// The whole of one regular file; one line feed stands behind its last byte, not counted in `size`.
struct FileContents {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    FileIdentity identity;

    std::string_view view() const { return {bytes.get(), size}; }
};

enum class FileKind { Missing, Regular, Folder, Other };

/// What lies at `path`, links followed.
FileKind fileKind(const std::string& path);

/// The identity of the file at `path`, links followed; false when there is none.
bool identify(const std::string& path, FileIdentity& identity);

/// Files above this size are refused: no source or data of an NES game comes near it.
inline constexpr std::size_t kLargestFile = std::size_t{256} << 20U;

/// Reads the regular file at `path`. Anything else (a folder, a device, a pipe) is refused without
/// waiting for it. Returns "" or why it could not be read, as part of a sentence.
std::string readFile(const std::string& path, FileContents& contents);

} // namespace nesasm
