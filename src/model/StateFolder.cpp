// SPDX-License-Identifier: MIT
#include "model/StateFolder.h"

#include "model/FileDescriptor.h"
#include "model/Paths.h"
#include "model/TemporaryFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestrel {

namespace {

constexpr mode_t PrivateFolder = 0700;
constexpr mode_t PrivateFile = 0600;
constexpr mode_t OfOthers = 0077;

bool makeFolder(const std::filesystem::path& folder) {
    if (!isUsablePath(folder)) {
        return false;
    }
    if (::mkdir(folder.c_str(), PrivateFolder) == 0 || errno == EEXIST) {
        return true;
    }
    return errno == ENOENT && folder.has_parent_path() && folder.parent_path() != folder &&
           makeFolder(folder.parent_path()) &&
           (::mkdir(folder.c_str(), PrivateFolder) == 0 || errno == EEXIST);
}

} // namespace

std::filesystem::path stateFolder() {
    constexpr std::string_view Name = "kestrel";
    const char* const variable = std::getenv("XDG_STATE_HOME");
    if (variable != nullptr && *variable == '/') {
        return joined(variable, Name);
    }
    const std::filesystem::path home = homeFolder();
    return home.is_absolute() ? joined(joined(home, ".local/state"), Name)
                              : std::filesystem::path();
}

bool makePrivateFolder(const std::filesystem::path& folder) {
    if (!makeFolder(folder)) {
        return false;
    }
    const FileDescriptor opened = openFile(folder, O_RDONLY | O_DIRECTORY);
    struct stat status {};
    if (!opened.isOpen() || ::fstat(opened.get(), &status) != 0 || status.st_uid != ::geteuid()) {
        return false;
    }
    return (status.st_mode & OfOthers) == 0 || ::fchmod(opened.get(), PrivateFolder) == 0;
}

bool replacePrivateFile(const std::filesystem::path& path, std::string_view content) {
    auto file = TemporaryFile::create(path.parent_path(), PrivateFile);
    return file && file->write(content) && file->finish() && file->renameTo(path);
}

} // namespace kestrel
