// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// The build settings of a project as its file holds them. A new setting is a field here and a row
/// of the table in BuildSettingsFile.cpp.
struct BuildSettingsContents {
    std::optional<std::filesystem::path> pathToEmulator;
    ProjectItems assemblyFiles;
    ProjectItems paletteFiles;
    ProjectItems graphicFiles;
    std::optional<std::filesystem::path> outputFilePath; ///< read, never written

    /// The list that holds the files of this kind; nullptr for a kind that is in none.
    ProjectItems* listFor(FileType type);

    /// All lists, in the order in which a build takes their files.
    std::array<ProjectItems*, 3> fileLists() {
        return {&assemblyFiles, &graphicFiles, &paletteFiles};
    }
};

/// What the value of a member of the settings file is.
enum class BuildSettingForm {
    version,  ///< the version of the format
    path,     ///< the path of a file or folder
    fileList, ///< the stored nodes of files
};

/// The build-settings file of a project. It stands below both the configuration store, which writes
/// a new project's first settings, and the settings record itself.
class BuildSettingsFile {
public:
    /// Where the settings of `project` lie: folder ".project" in the project's folder.
    static std::filesystem::path location(const ProjectItem& project);
    static std::filesystem::path location(const std::filesystem::path& projectFolder,
                                          std::string_view projectName);

    /// The object in the settings file; nothing when it cannot be read or is no object.
    static std::optional<Dictionary> fetch(const ProjectItem& project);

    /// The settings in `dictionary`; nothing when "output_folder" or "emulator" is no string.
    static std::optional<BuildSettingsContents> read(const Dictionary& dictionary);

    /// The names of the members of this form, in the order in which they are written.
    static std::vector<std::string_view> membersOf(BuildSettingForm form);

    /// The text of the settings file whose object is `settings`; nothing when it cannot be written
    /// (see serialiseJson).
    static std::optional<std::string> textOf(const Dictionary& settings);

    /// Whether replacing the file at `path` by what was read from it would lose nothing: it is not
    /// there, or all it holds is known, of the right type and said once.
    static bool understoodWhole(const std::filesystem::path& path);

    /// Writes the settings of `project` whole and logs whether it did. The output folder written is
    /// always the project's own. A file there that was not understood whole is kept as a backup
    /// first.
    static bool save(const ProjectItem& project, const BuildSettingsContents& contents);
};

} // namespace kestrel
