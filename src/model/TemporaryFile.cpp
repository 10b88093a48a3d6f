// SPDX-License-Identifier: MIT
#include "model/TemporaryFile.h"

#include "model/Paths.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/random.h>
#include <unistd.h>
#include <utility>

namespace kestrel {

namespace {

/// Names are random: a second try is rare, a hundredth means that something is wrong.
constexpr int MaximumTries = 100;

std::string randomName() {
    std::uint32_t number = 0;
    if (::getrandom(&number, sizeof number, 0) != static_cast<ssize_t>(sizeof number)) {
        number = static_cast<std::uint32_t>(::getpid());
    }
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), ".k%08x", static_cast<unsigned>(number));
    return text.data();
}

} // namespace

TemporaryFile::TemporaryFile(FileDescriptor file, std::filesystem::path path)
    : m_file(std::move(file))
    , m_path(std::move(path)) {}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : m_file(std::move(other.m_file))
    , m_path(std::move(other.m_path)) {
    other.m_path.clear();
}

TemporaryFile::~TemporaryFile() {
    if (!m_path.empty()) {
        ::unlink(m_path.c_str());
    }
}

std::optional<TemporaryFile> TemporaryFile::create(const std::filesystem::path& folder,
                                                   mode_t mode) {
    for (int i = 0; i < MaximumTries; ++i) {
        std::filesystem::path path = joined(folder, randomName());
        FileDescriptor file = openFile(path, O_WRONLY | O_CREAT | O_EXCL, mode);
        if (file.isOpen()) {
            return TemporaryFile(std::move(file), std::move(path));
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return std::nullopt;
}

bool TemporaryFile::copyFrom(const FileDescriptor& source) const {
    std::array<char, 65536> buffer;
    while (true) {
        const auto count = source.read(buffer.data(), buffer.size());
        if (!count) {
            return false;
        }
        if (*count == 0) {
            return true;
        }
        if (!write({buffer.data(), *count})) {
            return false;
        }
    }
}

bool TemporaryFile::imitate(const struct stat& original) const {
    struct stat present {};
    if (::fstat(m_file.get(), &present) != 0) {
        return false;
    }
    mode_t mode = original.st_mode & 07777U;
    const bool hasOwner = present.st_uid == original.st_uid && present.st_gid == original.st_gid;
    if (!hasOwner && ::fchown(m_file.get(), original.st_uid, original.st_gid) != 0) {
        // Only root may change the owner. Then set at least the group, and drop the set-user-ID
        // bit, which would now mean another user.
        if (::fchown(m_file.get(), static_cast<uid_t>(-1), original.st_gid) != 0) {
            mode &= 0777U;
        }
        mode &= ~static_cast<mode_t>(S_ISUID);
    }
    // Some file systems refuse fchmod even when it would change nothing.
    return (present.st_mode & 07777U) == mode || ::fchmod(m_file.get(), mode) == 0;
}

bool TemporaryFile::finish() {
    const bool flushed = m_file.flush();
    return m_file.close() && flushed;
}

bool TemporaryFile::renameTo(const std::filesystem::path& target) {
    if (!isUsablePath(target) || ::rename(m_path.c_str(), target.c_str()) != 0) {
        return false;
    }
    m_path.clear();
    return true;
}

} // namespace kestrel
