// SPDX-License-Identifier: MIT
#include "model/FileReader.h"

#include "model/FileDescriptor.h"
#include "model/Paths.h"
#include "model/Reason.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <sys/stat.h>

namespace kestrel {

namespace {

/// A number of bytes as a person writes it: whole MiB where it is that.
std::string sizeText(std::uintmax_t bytes) {
    constexpr std::uintmax_t Mebibyte = 1024ULL * 1024;
    return bytes % Mebibyte == 0 ? std::to_string(bytes / Mebibyte) + " MiB"
                                 : std::to_string(bytes) + " bytes";
}

std::string tooLarge(std::uintmax_t limit) {
    return "it is larger than " + sizeText(limit);
}

/// The content of `file`, about `size` bytes; nothing when it is longer than `limit`.
std::optional<std::string> contentOf(const FileDescriptor& file, std::uintmax_t size,
                                     std::uintmax_t limit, std::string* reason) {
    std::string content;
    content.reserve(static_cast<std::size_t>(size));
    std::array<char, 65536> buffer;
    while (true) {
        const auto count = file.read(buffer.data(), buffer.size());
        if (!count) {
            giveReason(reason, systemReason());
            return std::nullopt;
        }
        if (*count == 0) {
            return content;
        }
        if (*count > limit - content.size()) { // it has grown since fstat
            giveReason(reason, tooLarge(limit));
            return std::nullopt;
        }
        content.append(buffer.data(), *count);
    }
}

} // namespace

std::optional<std::string> readFile(const std::filesystem::path& path, std::uintmax_t limit,
                                    std::string* reason) {
    if (!isUsablePath(path)) {
        giveReason(reason, "its path is empty or holds a NUL character");
        return std::nullopt;
    }
    // Without O_NONBLOCK the open itself would wait for a writer when the file is a fifo.
    const FileDescriptor file = openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) {
        giveReason(reason, systemReason());
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        giveReason(reason, S_ISDIR(status.st_mode) ? "it is a folder" : "it is no regular file");
        return std::nullopt;
    }
    const auto size = static_cast<std::uintmax_t>(status.st_size);
    if (size > std::min<std::uintmax_t>(limit, std::string().max_size())) {
        giveReason(reason, tooLarge(limit));
        return std::nullopt;
    }
    try {
        return contentOf(file, size, limit, reason);
    } catch (const std::bad_alloc&) {
        giveReason(reason, "there is not enough memory");
        return std::nullopt;
    }
}

std::optional<Dictionary> readJsonFile(const std::filesystem::path& path, bool* repeatedMembers,
                                       std::string* reason) {
    const std::optional<std::string> text = readFile(path, MaximumConfigurationSize, reason);
    if (!text) {
        return std::nullopt;
    }
    return parseJson(*text, repeatedMembers, reason);
}

std::optional<Dictionary> readJsonObject(const std::filesystem::path& path, bool* repeatedMembers,
                                         std::string* reason) {
    auto value = readJsonFile(path, repeatedMembers, reason);
    if (value && !value->is_object()) {
        giveReason(reason, std::string(NoJsonObject));
        return std::nullopt;
    }
    return value;
}

} // namespace kestrel
