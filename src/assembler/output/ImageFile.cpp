// SPDX-License-Identifier: MIT
#include "assembler/output/ImageFile.h"

#include "assembler/reading/FileReader.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace nesasm {

namespace {

constexpr std::string_view Mark = "NES\x1A";
constexpr int MostLinks = 40;

/// The path that `path` leads to when links are followed; the file need not exist.
std::string linkTarget(std::string path) {
    std::array<char, 4096> target{};
    for (int i = 0; i < MostLinks; ++i) {
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            break;
        }
        const std::string_view name(target.data(), static_cast<std::size_t>(length));
        path = name.starts_with('/') ? std::string(name) : joinPath(folderOf(path), name);
    }
    return path;
}

bool writeAll(int descriptor, const std::uint8_t* bytes, std::size_t size) {
    while (size != 0) {
        const ssize_t count = write(descriptor, bytes, size);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

/// The permissions that the file is to have: those of the file it replaces, or the usual ones.
mode_t permissionsFor(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) {
        return status.st_mode & 07777U;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666U & ~mask;
}

} // namespace

std::vector<std::uint8_t> imageFile(const Image& image) {
    const std::uint32_t banks = image.bankCount();
    std::vector<std::uint8_t> bytes;
    bytes.reserve(ImageHeaderSize + std::size_t{banks} * BankSize);
    bytes.assign(Mark.begin(), Mark.end());
    const Header& header = image.header;
    bytes.push_back(static_cast<std::uint8_t>(header.prg));
    bytes.push_back(static_cast<std::uint8_t>(header.chr));
    bytes.push_back(
        static_cast<std::uint8_t>((header.mirroring & 15U) | (header.mapper & 15U) << 4U));
    bytes.push_back(static_cast<std::uint8_t>(header.mapper & 0xF0U));
    bytes.resize(ImageHeaderSize);
    for (std::uint32_t bank = 0; bank < banks; ++bank) {
        const std::uint8_t* const content = image.bytes(bank);
        if (content != nullptr) {
            bytes.insert(bytes.end(), content, content + BankSize);
        } else {
            bytes.resize(bytes.size() + BankSize, 0xFF);
        }
    }
    return bytes;
}

Problem writeImageFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    const std::string target = linkTarget(path);
    const FileKind kind = fileKind(target);
    if (kind == FileKind::folder) {
        return "it is a folder";
    }
    if (kind == FileKind::other) {
        return "it is not a regular file";
    }
    if (kind == FileKind::regular && access(target.c_str(), W_OK) != 0) {
        return std::strerror(errno);
    }
    std::string temporary = joinPath(folderOf(target), ".nesasm-XXXXXX");
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0) {
        return std::strerror(errno);
    }
    bool isFine = writeAll(descriptor, bytes.data(), bytes.size()) &&
                  fchmod(descriptor, permissionsFor(target)) == 0;
    int problem = errno;
    if (close(descriptor) != 0 && isFine) {
        isFine = false;
        problem = errno;
    }
    if (isFine && rename(temporary.c_str(), target.c_str()) != 0) {
        isFine = false;
        problem = errno;
    }
    if (isFine) {
        return {};
    }
    unlink(temporary.c_str());
    return std::strerror(problem);
}

std::string writtenPath(const std::string& path) {
    const std::string target = linkTarget(path);
    const std::string folder = folderOf(target);
    const std::unique_ptr<char, decltype(&std::free)> found(
        realpath(folder.empty() ? "." : folder.c_str(), nullptr), &std::free);
    return found ? joinPath(found.get(), target.substr(target.rfind('/') + 1)) : target;
}

void removeOldImage(const std::string& path) {
    const std::string target = linkTarget(path);
    const int descriptor = open(target.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) {
        return;
    }
    std::array<char, 4> mark{};
    struct stat status {};
    const bool isImage = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
                         read(descriptor, mark.data(), mark.size()) == 4 &&
                         std::string_view(mark.data(), mark.size()) == Mark;
    close(descriptor);
    if (isImage) {
        unlink(target.c_str());
    }
}

std::uint32_t prgBankCount(const Image& image) {
    const std::uint32_t banks = image.bankCount();
    const Header& header = image.header;
    return header.prg != 0 ? std::min(header.prg * 2, banks) : banks - std::min(header.chr, banks);
}

} // namespace nesasm
