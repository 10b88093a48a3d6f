#include "assembler/FileReader.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nesasm {

namespace {

/// Closes a file descriptor at the end of its scope.
class Descriptor {
public:
    explicit Descriptor(int number)
        : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (m_number >= 0)
            close(m_number);
    }
    int number() const { return m_number; }

private:
    int m_number;
};

FileIdentity identityOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

/// Reads up to `size` bytes; returns how many came, or -1.
ssize_t readAll(int descriptor, char* bytes, std::size_t size) {
    std::size_t got = 0;
    while (got < size) {
        const ssize_t count = read(descriptor, bytes + got, size - got);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return -1;
        if (count == 0)
            break;
        got += static_cast<std::size_t>(count);
    }
    return static_cast<ssize_t>(got);
}

} // namespace

FileKind fileKind(const std::string& path) {
    struct stat status {};
    if (path.find('\0') != std::string::npos || stat(path.c_str(), &status) != 0)
        return FileKind::Missing;
    if (S_ISREG(status.st_mode))
        return FileKind::Regular;
    return S_ISDIR(status.st_mode) ? FileKind::Folder : FileKind::Other;
}

bool identify(const std::string& path, FileIdentity& identity) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return false;
    identity = identityOf(status);
    return true;
}

std::string readFile(const std::string& path, FileContents& contents) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (file.number() < 0)
        return std::strerror(errno);
    struct stat status {};
    if (fstat(file.number(), &status) != 0)
        return std::strerror(errno);
    if (S_ISDIR(status.st_mode))
        return "it is a folder";
    if (!S_ISREG(status.st_mode))
        return "it is not a regular file";
    if (status.st_size < 0 || static_cast<std::uint64_t>(status.st_size) > kLargestFile)
        return "it is larger than 256 MiB";
    const auto size = static_cast<std::size_t>(status.st_size);
    contents.bytes = std::make_unique_for_overwrite<char[]>(size + 1);
    const ssize_t got = readAll(file.number(), contents.bytes.get(), size);
    if (got < 0)
        return std::strerror(errno);
    contents.size = static_cast<std::size_t>(got);
    contents.bytes[contents.size] = '\n';
    contents.identity = identityOf(status);
    return {};
}

} // namespace nesasm
