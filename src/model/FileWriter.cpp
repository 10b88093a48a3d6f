// SPDX-License-Identifier: MIT
#include "model/FileWriter.h"

#include "model/FileDescriptor.h"
#include "model/Paths.h"
#include "model/Reason.h"
#include "model/TemporaryFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kestrel {

namespace {

constexpr mode_t NewFileMode = 0666;
constexpr int MaximumLinks = 40; // as the kernel's own limit

/// A file that will be replaced, with links followed, and its present status.
struct Target {
    std::filesystem::path path;
    struct stat status {};
    bool exists = false;

    mode_t mode() const { return exists ? status.st_mode & 0777U : NewFileMode; }
};

/// `path` with links followed; the result need not exist. Nothing for a ring of links.
std::optional<std::filesystem::path> resolvedLinks(std::filesystem::path path) {
    for (int i = 0; i < MaximumLinks; ++i) {
        std::error_code error;
        if (!std::filesystem::is_symlink(std::filesystem::symlink_status(path, error))) {
            return path;
        }
        const std::filesystem::path pointee = std::filesystem::read_symlink(path, error);
        if (error) {
            return std::nullopt;
        }
        path = pointee.is_absolute() ? pointee : joined(path.parent_path(), pointee.native());
    }
    return std::nullopt;
}

/// The file that replacing `path` would replace; nothing when it may not or cannot be replaced.
std::optional<Target> writableTarget(const std::filesystem::path& path, std::string* reason) {
    if (!isUsablePath(path)) {
        giveReason(reason, "its path is empty or holds a NUL character");
        return std::nullopt;
    }
    const auto resolved = resolvedLinks(path);
    if (!resolved || !resolved->has_filename()) {
        giveReason(reason, resolved ? "its path names a folder" : "it is a ring of links");
        return std::nullopt;
    }
    Target target{*resolved};
    target.exists = ::stat(target.path.c_str(), &target.status) == 0;
    if (!target.exists && errno != ENOENT && errno != ENAMETOOLONG) {
        giveReason(reason, systemReason()); // something may exist that cannot be examined
        return std::nullopt;
    }
    if (target.exists && !S_ISREG(target.status.st_mode)) {
        giveReason(reason, S_ISDIR(target.status.st_mode) ? "a folder has its name"
                                                          : "what has its name is no regular file");
        return std::nullopt;
    }
    // A rename needs write permission for the folder only, so the file's own is checked here.
    if (target.exists && ::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0) {
        giveReason(reason, systemReason());
        return std::nullopt;
    }
    return target;
}

/// A flushed temporary file with `content`, ready to be renamed over `target`.
std::optional<TemporaryFile> prepared(const Target& target, std::string_view content,
                                      std::string* reason) {
    auto file = TemporaryFile::create(target.path.parent_path(), target.mode());
    if (!file || (target.exists && !file->imitate(target.status)) || !file->write(content) ||
        !file->finish()) {
        giveReason(reason, systemReason());
        return std::nullopt;
    }
    return file;
}

/// A flushed temporary copy, in `folder`, of the regular file `path`.
std::optional<TemporaryFile> copied(const std::filesystem::path& path,
                                    const std::filesystem::path& folder,
                                    std::string* reason = nullptr) {
    const FileDescriptor source = openFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    if (!source.isOpen() || ::fstat(source.get(), &status) != 0) {
        giveReason(reason, systemReason());
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        giveReason(reason, "the original is no regular file");
        return std::nullopt;
    }
    auto file = TemporaryFile::create(folder, status.st_mode & 0777U);
    if (!file || !file->imitate(status) || !file->copyFrom(source) || !file->finish()) {
        giveReason(reason, systemReason());
        return std::nullopt;
    }
    return file;
}

/// Flushes the folder of `path`, so that a rename in it survives a power cut. Some file systems
/// cannot do that, so a failure is ignored.
void flushFolder(const std::filesystem::path& path) {
    const std::filesystem::path folder = path.parent_path();
    const FileDescriptor file =
        openFile(folder.empty() ? std::filesystem::path(".") : folder, O_RDONLY | O_DIRECTORY);
    if (file.isOpen()) {
        file.flush();
    }
}

bool haveSameBytes(const std::filesystem::path& one, const std::filesystem::path& other) {
    const FileDescriptor first = openFile(one, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    const FileDescriptor second = openFile(other, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat firstStatus {};
    struct stat secondStatus {};
    if (!first.isOpen() || !second.isOpen() || ::fstat(first.get(), &firstStatus) != 0 ||
        ::fstat(second.get(), &secondStatus) != 0 || !S_ISREG(secondStatus.st_mode) ||
        firstStatus.st_size != secondStatus.st_size) {
        return false;
    }
    std::array<char, 65536> left;
    std::array<char, 65536> right;
    while (true) {
        const auto leftCount = first.read(left.data(), left.size());
        const auto rightCount = second.read(right.data(), right.size());
        if (!leftCount || leftCount != rightCount ||
            !std::equal(left.begin(), left.begin() + *leftCount, right.begin())) {
            return false;
        }
        if (*leftCount == 0) {
            return true;
        }
    }
}

/// `path` with `ending` added to its name, which is cut between characters if it gets too long.
std::filesystem::path withEnding(const std::filesystem::path& path, const std::string& ending) {
    constexpr std::size_t LongestName = 255;
    std::string name = path.filename().native();
    if (name.size() + ending.size() > LongestName) {
        std::size_t length = LongestName - ending.size();
        while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U) {
            --length; // inside a UTF-8 sequence
        }
        name.resize(length);
    }
    return joined(path.parent_path(), name + ending);
}

/// The `number`th name for a backup of `path`, counted from 0.
std::filesystem::path backupName(const std::filesystem::path& path, int number) {
    return withEnding(path, number == 0 ? ".bak" : ".bak" + std::to_string(number));
}

/// One of the files that are replaced together.
struct Replacement {
    Target target;
    TemporaryFile content;
    std::optional<TemporaryFile> former; ///< a copy of the old file, when there was one
};

std::optional<Replacement> preparedReplacement(const PendingFile& file) {
    auto target = writableTarget(file.path, nullptr);
    if (!target) {
        return std::nullopt;
    }
    auto former = target->exists ? copied(target->path, target->path.parent_path()) : std::nullopt;
    auto content = prepared(*target, file.content, nullptr);
    if (!content || target->exists != former.has_value()) {
        return std::nullopt;
    }
    return Replacement{std::move(*target), std::move(*content), std::move(former)};
}

void putBack(Replacement& replacement) {
    if (replacement.former) {
        replacement.former->renameTo(replacement.target.path);
    } else {
        ::unlink(replacement.target.path.c_str());
    }
    flushFolder(replacement.target.path);
}

} // namespace

bool namesAFile(const std::filesystem::path& path) {
    const std::filesystem::path name = path.filename();
    return !name.empty() && name != "." && name != "..";
}

bool createFolders(const std::filesystem::path& folder, std::string* reason) {
    if (!isUsablePath(folder)) {
        giveReason(reason, "its path is empty or holds a NUL character");
        return false;
    }
    std::error_code created;
    std::filesystem::create_directories(folder, created);
    std::error_code error;
    if (std::filesystem::is_directory(folder, error) && !error) {
        return true;
    }
    const auto notFolder = std::make_error_code(std::errc::not_a_directory);
    giveReason(reason, (created ? created : notFolder).message());
    return false;
}

bool replaceFile(const std::filesystem::path& path, std::string_view content, std::string* reason) {
    const auto target = writableTarget(path, reason);
    if (!target) {
        return false;
    }
    auto file = prepared(*target, content, reason);
    if (!file) {
        return false;
    }
    if (!file->renameTo(target->path)) {
        giveReason(reason, systemReason());
        return false;
    }
    flushFolder(target->path);
    return true;
}

bool saveBytes(const std::filesystem::path& path, std::string_view content, std::string* reason) {
    const std::filesystem::path folder = path.parent_path();
    return (folder.empty() || createFolders(folder, reason)) && replaceFile(path, content, reason);
}

std::filesystem::path backupLocation(const std::filesystem::path& path) {
    return backupName(path, 0);
}

std::optional<std::filesystem::path> keepBackup(const std::filesystem::path& path,
                                                std::string* reason) {
    const auto fail = [reason](const std::filesystem::path& backup, const std::string& why) {
        giveReason(reason, "the backup " + backup.string() + " could not be made: " + why);
        return std::nullopt;
    };
    if (!existsAt(path)) {
        return std::filesystem::path();
    }
    for (int number = 0;; ++number) {
        const std::filesystem::path backup = backupName(path, number);
        // An empty file reserves the name, so that no other program's backup is overwritten.
        FileDescriptor reserved = openFile(backup, O_WRONLY | O_CREAT | O_EXCL, 0600);
        if (!reserved.isOpen()) {
            if (errno != EEXIST) {
                return fail(backup, systemReason());
            }
            if (haveSameBytes(path, backup)) {
                return backup;
            }
            continue;
        }
        reserved.close();
        std::string why;
        auto copy = copied(path, backup.parent_path(), &why);
        if (!copy || !copy->renameTo(backup)) {
            fail(backup, copy ? systemReason() : why);
            ::unlink(backup.c_str());
            return std::nullopt;
        }
        flushFolder(backup);
        return backup;
    }
}

bool replaceFilesTogether(const std::vector<PendingFile>& files) {
    std::vector<Replacement> replacements;
    replacements.reserve(files.size());
    for (const PendingFile& file : files) {
        auto replacement = preparedReplacement(file);
        if (!replacement) {
            return false;
        }
        replacements.push_back(std::move(*replacement));
    }
    for (std::size_t i = 0; i < replacements.size(); ++i) {
        if (replacements[i].content.renameTo(replacements[i].target.path)) {
            flushFolder(replacements[i].target.path);
            continue;
        }
        while (i-- > 0) {
            putBack(replacements[i]);
        }
        return false;
    }
    return true;
}

} // namespace kestrel
