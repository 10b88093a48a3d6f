// SPDX-License-Identifier: MIT
#include "model/FileDescriptor.h"

#include "model/Paths.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace kestrel {

FileDescriptor::FileDescriptor(int descriptor)
    : m_descriptor(descriptor) {}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
        close();
        m_descriptor = std::exchange(other.m_descriptor, -1);
    }
    return *this;
}

FileDescriptor::~FileDescriptor() {
    close();
}

std::optional<std::size_t> FileDescriptor::read(char* buffer, std::size_t size) const {
    while (true) {
        const ssize_t count = ::read(m_descriptor, buffer, size);
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR) {
            return std::nullopt;
        }
    }
}

bool FileDescriptor::write(std::string_view content) const {
    while (!content.empty()) {
        const ssize_t count = ::write(m_descriptor, content.data(), content.size());
        if (count < 0) {
            if (errno != EINTR) {
                return false;
            }
            continue;
        }
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool FileDescriptor::flush() const {
    while (::fsync(m_descriptor) != 0) {
        if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool FileDescriptor::close() {
    const int descriptor = std::exchange(m_descriptor, -1);
    // Linux has closed the descriptor even when it reports an interruption: never try twice.
    return descriptor < 0 || ::close(descriptor) == 0 || errno == EINTR;
}

FileDescriptor openFile(const std::filesystem::path& path, int flags, mode_t mode) {
    if (!isUsablePath(path)) {
        return {};
    }
    while (true) {
        const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, mode);
        if (descriptor >= 0 || errno != EINTR) {
            return FileDescriptor(descriptor);
        }
    }
}

} // namespace kestrel
