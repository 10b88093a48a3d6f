// SPDX-License-Identifier: MIT
#include "assembler/reading/FileReader.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nesasm {

namespace {

FileIdentity identityOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

} // namespace

FileKind fileKind(const std::string& path) {
    struct stat status {};
    if (path.find('\0') != std::string::npos || stat(path.c_str(), &status) != 0) {
        return FileKind::missing;
    }
    if (S_ISREG(status.st_mode)) {
        return FileKind::regular;
    }
    return S_ISDIR(status.st_mode) ? FileKind::folder : FileKind::other;
}

std::optional<FileIdentity> identify(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return identityOf(status);
}

DataFile::~DataFile() {
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

Problem DataFile::open(const std::string& path) {
    m_descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (m_descriptor < 0) {
        return std::strerror(errno);
    }
    struct stat status {};
    if (fstat(m_descriptor, &status) != 0) {
        return std::strerror(errno);
    }
    if (S_ISDIR(status.st_mode)) {
        return "it is a folder";
    }
    if (!S_ISREG(status.st_mode)) {
        return "it is not a regular file";
    }
    if (status.st_size < 0 || static_cast<std::uint64_t>(status.st_size) > LargestFile) {
        return "it is larger than 256 MiB";
    }
    m_size = static_cast<std::size_t>(status.st_size);
    m_identity = identityOf(status);
    return {};
}

Problem DataFile::read(std::size_t offset, char* bytes, std::size_t count, std::size_t& got) const {
    for (got = 0; got < count;) {
        const ssize_t part =
            pread(m_descriptor, bytes + got, count - got, static_cast<off_t>(offset + got));
        if (part < 0 && errno == EINTR) {
            continue;
        }
        if (part < 0) {
            return std::strerror(errno);
        }
        if (part == 0) {
            break;
        }
        got += static_cast<std::size_t>(part);
    }
    return {};
}

Problem readFile(const std::string& path, FileContents& contents) {
    DataFile file;
    Problem problem = file.open(path);
    if (problem) {
        return problem;
    }
    contents.bytes = std::make_unique_for_overwrite<char[]>(file.size() + 1);
    problem = file.read(0, contents.bytes.get(), file.size(), contents.size);
    contents.bytes[contents.size] = '\n';
    contents.identity = file.identity();
    return problem;
}

} // namespace nesasm
