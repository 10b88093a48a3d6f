// SPDX-License-Identifier: MIT
#include "model/FileReader.h"

#include "model/FileDescriptor.h"
#include "model/Paths.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <sys/stat.h>

namespace kestrel {

namespace {

/// The content of `file`, about `size` bytes; nothing when it is longer than `limit`.
std::optional<std::string> contentOf(const FileDescriptor& file, std::uintmax_t size,
                                     std::uintmax_t limit) {
    std::string content;
    content.reserve(static_cast<std::size_t>(size));
    std::array<char, 65536> buffer;
    while (true) {
        const auto count = file.read(buffer.data(), buffer.size());
        if (!count) {
            return std::nullopt;
        }
        if (*count == 0) {
            return content;
        }
        if (*count > limit - content.size()) { // it has grown since fstat
            return std::nullopt;
        }
        content.append(buffer.data(), *count);
    }
}

} // namespace

std::optional<std::string> readFile(const std::filesystem::path& path, std::uintmax_t limit) {
    // Without O_NONBLOCK the open itself would wait for a writer when the file is a fifo.
    const FileDescriptor file = openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    const auto size = static_cast<std::uintmax_t>(status.st_size);
    if (size > std::min<std::uintmax_t>(limit, std::string().max_size())) {
        return std::nullopt;
    }
    try {
        return contentOf(file, size, limit);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

std::optional<Dictionary> readJsonFile(const std::filesystem::path& path, bool* repeatedMembers) {
    const std::optional<std::string> text = readFile(path, MaximumConfigurationSize);
    if (!text) {
        return std::nullopt;
    }
    return parseJson(*text, repeatedMembers);
}

std::optional<Dictionary> readJsonObject(const std::filesystem::path& path, bool* repeatedMembers) {
    auto value = readJsonFile(path, repeatedMembers);
    if (!value || !value->is_object()) {
        return std::nullopt;
    }
    return value;
}

} // namespace kestrel
