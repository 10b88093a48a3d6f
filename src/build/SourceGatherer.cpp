// SPDX-License-Identifier: MIT
#include "build/SourceGatherer.h"

#include "build/SourceLocation.h"
#include "model/FileDescriptor.h"
#include "model/Paths.h"
#include "model/Reason.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace kestrel {

namespace {

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Opens the temporary folder; not when it is a link.
FileDescriptor openFolder(const std::filesystem::path& path) {
    return openFile(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
}

/// Why openFolder failed for `path`, from errno and from what is there.
std::string folderProblem(const std::filesystem::path& path) {
    std::string reason = systemReason();
    struct stat info {};
    if (::lstat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode)) {
        return S_ISLNK(info.st_mode) ? "that is a link" : "that is no folder";
    }
    return reason;
}

bool isThere(int folder, const std::string& name) {
    struct stat found {};
    return ::fstatat(folder, name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0;
}

/// Why the file at the other end of a copy cannot be read, from errno.
std::string readFailure() {
    return "it cannot be read: " + systemReason();
}

/// Copies all bytes; why not, when that fails.
std::optional<std::string> copyBytes(const FileDescriptor& source, FileDescriptor& target) {
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto got = source.read(buffer.data(), buffer.size());
        if (!got) {
            return readFailure();
        }
        const bool fits =
            *got == 0 ? target.close() : target.write(std::string_view(buffer.data(), *got));
        if (!fits) {
            return systemReason();
        }
        if (*got == 0) {
            return std::nullopt;
        }
    }
}

/// Copies the regular file `source` to a new file in `folder`; why not, when that fails. Removes an
/// incomplete copy, which would assemble to a wrong image.
std::optional<std::string> copyToNewFile(const std::filesystem::path& source, int folder,
                                         const std::string& name) {
    // Non-blocking: a FIFO must not block the build.
    const FileDescriptor from = openFile(source, O_RDONLY | O_NONBLOCK);
    struct stat info {};
    if (!from.isOpen() || ::fstat(from.get(), &info) != 0) {
        return readFailure();
    }
    if (!S_ISREG(info.st_mode)) {
        return "it is no ordinary file";
    }
    const mode_t mode = (info.st_mode & 0777U) | S_IRUSR | S_IWUSR;
    FileDescriptor to(
        ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!to.isOpen()) {
        return systemReason();
    }
    auto failure = copyBytes(from, to);
    if (failure) {
        ::unlinkat(folder, name.c_str(), 0);
    }
    return failure;
}

/// What became of the copies, by the names that they have in the temporary folder `folder`.
class Copies {
public:
    explicit Copies(int folder)
        : m_folder(folder) {}

    void copy(const std::filesystem::path& source, const std::string& name) {
        if (isInPlace(source, name)) {
            return; // removing the destination would remove the source
        }
        std::optional<std::string> removalFailure;
        if (::unlinkat(m_folder, name.c_str(), 0) != 0 && errno != ENOENT) { // leaves folders alone
            removalFailure = systemReason();
        }
        const auto failure = copyToNewFile(source, m_folder, name);
        if (!failure) {
            m_failed.erase(name);
        } else {
            fail(source, name, removalFailure && !isMissing(source) ? *removalFailure : *failure);
        }
    }

    /// Leaves the file out for this reason, unless it needs no copy.
    void leaveOut(const std::filesystem::path& source, const std::string& name,
                  const std::string& reason) {
        if (!isInPlace(source, name)) {
            fail(source, name, isMissing(source) ? readFailure() : reason);
        }
    }

    std::vector<UncopiedFile> failed() const {
        std::vector<UncopiedFile> files;
        for (const auto& [name, file] : m_failed) {
            files.push_back(file);
        }
        return files;
    }

private:
    /// Whether the destination is the source itself. Of a name that failed before, it is the file
    /// that was to stay.
    bool isInPlace(const std::filesystem::path& source, const std::string& name) {
        struct stat from {};
        struct stat to {};
        const bool isSame = ::stat(source.c_str(), &from) == 0 &&
                            ::fstatat(m_folder, name.c_str(), &to, 0) == 0 && isSameFile(from, to);
        if (isSame) {
            m_failed.erase(name);
        }
        return isSame;
    }

    static bool isMissing(const std::filesystem::path& source) {
        struct stat info {};
        return ::stat(source.c_str(), &info) != 0 && (errno == ENOENT || errno == ENOTDIR);
    }

    void fail(const std::filesystem::path& source, const std::string& name, std::string reason) {
        struct stat info {};
        const bool isThere = ::fstatat(m_folder, name.c_str(), &info, 0) == 0;
        const bool hasOlder = isThere && S_ISREG(info.st_mode);
        if (isThere && S_ISDIR(info.st_mode)) {
            reason = "a folder of its name is there";
        }
        if (hasOlder || !isMissing(source)) {
            m_failed.insert_or_assign(name, UncopiedFile{name, std::move(reason), hasOlder});
        }
    }

    int m_folder;
    std::map<std::string, UncopiedFile> m_failed;
};

/// The files in the temporary folder that are listed sources themselves, not copies.
class OwnFiles {
public:
    OwnFiles(int folder, const std::vector<const ProjectItems*>& lists,
             const std::filesystem::path& projectFolder)
        : m_folder(folder) {
        struct stat temp {};
        if (::fstat(folder, &temp) != 0) {
            return;
        }
        for (const ProjectItems* list : lists) {
            for (const auto& entry : *list) {
                if (const auto source = sourceFile(*entry, projectFolder)) {
                    add(entry->itemName(), *source, temp);
                }
            }
        }
    }

    /// Whether removing this name would remove the content of a listed file. False for a second
    /// hard link: the content stays under the other name.
    bool contain(const std::string& name) const {
        struct stat info {};
        return m_names.contains(name) ||
               (::fstatat(m_folder, name.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0 &&
                info.st_nlink == 1 && m_sources.contains({info.st_dev, info.st_ino}));
    }

private:
    void add(const std::string& name, const std::filesystem::path& source,
             const struct stat& temp) {
        struct stat info {};
        if (::stat(source.c_str(), &info) == 0 && S_ISREG(info.st_mode)) {
            m_sources.emplace(info.st_dev, info.st_ino);
        }
        if (::stat(source.parent_path().c_str(), &info) == 0 && isSameFile(info, temp) &&
            isThere(m_folder, name)) {
            m_names.insert(name);
        }
    }

    int m_folder;
    std::set<std::string> m_names;               ///< of the entries in the temporary folder
    std::set<std::pair<dev_t, ino_t>> m_sources; ///< the files of all entries, links followed
};

} // namespace

SourceGatherer::SourceGatherer(std::filesystem::path projectFolder,
                               std::filesystem::path tempFolder)
    : m_projectFolder(std::move(projectFolder))
    , m_tempFolder(std::move(tempFolder)) {}

std::vector<UncopiedFile>
SourceGatherer::gather(const std::vector<const ProjectItems*>& lists) const {
    FileDescriptor folder = openFolder(m_tempFolder);
    std::string problem;
    if (!folder.isOpen()) {
        problem = folderProblem(m_tempFolder);
        folder = openFile(m_tempFolder, O_RDONLY | O_DIRECTORY); // to look at what is there
    }
    const OwnFiles own(folder.get(), lists, m_projectFolder);
    Copies copies(folder.get());
    for (const ProjectItems* list : lists) {
        for (const auto& entry : *list) {
            const std::string& name = entry->itemName();
            const auto source = sourceFile(*entry, m_projectFolder);
            if (!source || own.contain(name)) {
                continue;
            }
            if (problem.empty()) {
                copies.copy(*source, name);
            } else {
                copies.leaveOut(*source, name, problem);
            }
        }
    }
    return copies.failed();
}

bool SourceGatherer::clean(const std::vector<const ProjectItems*>& lists) const {
    const FileDescriptor folder = openFolder(m_tempFolder);
    if (!folder.isOpen()) {
        return !existsAt(m_tempFolder);
    }
    const OwnFiles own(folder.get(), lists, m_projectFolder);
    bool allGone = true;
    for (const ProjectItems* list : lists) {
        for (const auto& entry : *list) {
            const std::string& name = entry->itemName();
            if (!sourceFile(*entry, m_projectFolder)) {
                continue;
            }
            struct stat info {};
            const bool removable =
                !own.contain(name) &&
                ::fstatat(folder.get(), name.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0 &&
                (S_ISREG(info.st_mode) || S_ISLNK(info.st_mode));
            if (removable) {
                ::unlinkat(folder.get(), name.c_str(), 0);
            }
            allGone = allGone && !isThere(folder.get(), name);
        }
    }
    return allGone;
}

} // namespace kestrel
