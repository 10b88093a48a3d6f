// SPDX-License-Identifier: MIT
#include "build/SourceGatherer.h"

#include "build/SourceLocation.h"
#include "model/FileDescriptor.h"
#include "model/Paths.h"

#include <array>
#include <fcntl.h>
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

bool isThere(int folder, const std::string& name) {
    struct stat found {};
    return ::fstatat(folder, name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0;
}

bool copyBytes(const FileDescriptor& source, const FileDescriptor& target) {
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto got = source.read(buffer.data(), buffer.size());
        if (!got || *got == 0) {
            return got.has_value();
        }
        if (!target.write(std::string_view(buffer.data(), *got))) {
            return false;
        }
    }
}

/// Copies the regular file `source` to a new file in `folder`. Removes an incomplete copy, which
/// would assemble to a wrong image.
void copyToNewFile(const std::filesystem::path& source, int folder, const std::string& name) {
    // Non-blocking: a FIFO must not block the build.
    const FileDescriptor from = openFile(source, O_RDONLY | O_NONBLOCK);
    struct stat info {};
    if (!from.isOpen() || ::fstat(from.get(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return;
    }
    const mode_t mode = (info.st_mode & 0777U) | S_IRUSR | S_IWUSR;
    FileDescriptor to(
        ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (to.isOpen() && !(copyBytes(from, to) && to.close())) {
        ::unlinkat(folder, name.c_str(), 0);
    }
}

void copyFile(const std::filesystem::path& source, int folder, const std::string& name) {
    struct stat from {};
    struct stat to {};
    if (::stat(source.c_str(), &from) == 0 && ::fstatat(folder, name.c_str(), &to, 0) == 0 &&
        isSameFile(from, to)) {
        return; // removing the destination would remove the source
    }
    ::unlinkat(folder, name.c_str(), 0); // leaves folders alone
    copyToNewFile(source, folder, name);
}

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

void SourceGatherer::gather(const std::vector<const ProjectItems*>& lists) const {
    const FileDescriptor folder = openFolder(m_tempFolder);
    if (!folder.isOpen()) {
        return;
    }
    const OwnFiles own(folder.get(), lists, m_projectFolder);
    for (const ProjectItems* list : lists) {
        for (const auto& entry : *list) {
            const auto source = sourceFile(*entry, m_projectFolder);
            if (source && !own.contain(entry->itemName())) {
                copyFile(*source, folder.get(), entry->itemName());
            }
        }
    }
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
