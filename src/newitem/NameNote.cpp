// SPDX-License-Identifier: MIT
#include "newitem/NameNote.h"

#include "model/FileWriter.h"
#include "model/Paths.h"
#include "model/ProjectFiles.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <optional>
#include <system_error>

namespace kestrel {

namespace {

namespace fs = std::filesystem;

/// Whether the path and each name in it are within the system's limits.
bool fitsTheSystem(const fs::path& path) {
    return path.native().size() < std::size_t{PATH_MAX} &&
           std::all_of(path.begin(), path.end(), [](const auto& name) {
               return name.native().size() <= std::size_t{NAME_MAX};
           });
}

bool isFolder(const fs::path& path) {
    std::error_code unreadable;
    return fs::is_directory(path, unreadable);
}

/// What stands in the way of folders at or above `folder`, where there is no folder yet; nothing
/// when they can be made.
std::optional<fs::path> obstacleTo(fs::path folder) {
    while (!existsAt(folder)) {
        const fs::path above = folder.parent_path();
        if (above == folder) {
            return std::nullopt;
        }
        folder = above;
    }
    return isFolder(folder) ? std::nullopt : std::optional(folder);
}

QString noteOnObstacle(const fs::path& obstacle, const QString& what) {
    return QStringLiteral("\"%1\" is a file and no folder, so %2 cannot be made.")
        .arg(QString::fromStdString(obstacle.filename().string()), what);
}

/// Whether `folder` is there already or will be made on the way to the folder `location`.
bool willBeThere(const fs::path& folder, const fs::path& location) {
    fs::path made;
    for (const fs::path& part : location) {
        made /= part;
        if (pathText(made.lexically_normal()) == pathText(folder)) {
            return true;
        }
    }
    return isFolder(folder);
}

/// Whether the project file will have a folder once the project's folder is there. Only a "/" in
/// the name lets it have another one.
bool projectFileHasAFolder(const fs::path& location, const std::string& name) {
    fs::path folder = pathText(location.lexically_normal());
    for (const fs::path& part : fs::path(name).relative_path().parent_path()) {
        folder = part == ".." ? folder.parent_path() : part == "." ? folder : folder / part;
        if (!willBeThere(folder, location)) {
            return false;
        }
    }
    return true;
}

QString noteOnExistingFile(const fs::path& location) {
    const std::string name = location.filename().string();
    const QString end = QStringLiteral("the old file is kept beside it, with \"~\" appended to its "
                                       "name.");
    if (name.ends_with(ProjectFileExtension)) {
        return QStringLiteral("This is a project file. Its contents will be replaced, so its "
                              "project will not be found again; ") +
               end;
    }
    if (name.ends_with(BuildSettingsConfigurationExtension) &&
        location.parent_path().filename() == SettingsFolderName) {
        return QStringLiteral("This is the file of the build settings. Its contents will be "
                              "replaced, so they are lost; ") +
               end;
    }
    return QStringLiteral("A file of this name is there already. Its contents will be replaced; ") +
           end;
}

} // namespace

QString noteOnProject(const fs::path& location, const std::string& name) {
    const auto longest =
        joined(location, settingsFilePath(name, ProjectStructureConfigurationExtension));
    if (!fitsTheSystem(longest)) {
        return QStringLiteral("This name is too long, so the project's files cannot be made.");
    }
    if (existsAt(location) && !isFolder(location)) {
        return QStringLiteral("A file of this name is there already, so the project's folder "
                              "cannot be made.");
    }
    if (const auto obstacle = obstacleTo(location)) {
        return noteOnObstacle(*obstacle, QStringLiteral("the project's folder"));
    }
    if (!projectFileHasAFolder(location, name)) {
        return QStringLiteral("With a \"/\" in this name the project's file cannot be made, so the "
                              "project will not be found again.");
    }
    if (name.find('/') != std::string::npos) {
        return QStringLiteral("With a \"/\" in its name the project can be opened again, but not "
                              "be built: its image cannot have this name.");
    }
    if (!existsAt(location)) {
        return {};
    }
    return QStringLiteral("A folder of this name is there already. It becomes the project's "
                          "folder; a project that it holds is kept.");
}

QString noteOnFile(const fs::path& location) {
    if (!fitsTheSystem(location)) {
        return QStringLiteral("This name is too long, so the file cannot be made.");
    }
    if (const auto obstacle = obstacleTo(location.parent_path())) {
        return noteOnObstacle(*obstacle, QStringLiteral("the file"));
    }
    if (isFolder(location)) {
        return QStringLiteral("A folder of this name is there already, so the file cannot be "
                              "made.");
    }
    if (!namesAFile(location)) {
        return QStringLiteral("This is the name of a folder, so the file cannot be made.");
    }
    if (!existsAt(location)) {
        return {};
    }
    std::error_code unreadable;
    if (!fs::is_regular_file(location, unreadable)) {
        return QStringLiteral("Something other than a file has this name already, so the file "
                              "cannot be made.");
    }
    if (!fitsTheSystem(location.native() + "~")) {
        return QStringLiteral("A file of this name is there already, and the name has no room for "
                              "the \"~\" that would keep it, so the file cannot be made.");
    }
    return noteOnExistingFile(location);
}

} // namespace kestrel
