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

/// The type of a member of the settings file.
enum class BuildSettingForm {
    version,  ///< the version of the format
    path,     ///< the path of a file or folder
    fileList, ///< the stored nodes of files
};

/// The path of a project's settings file: in the folder ".project" of the project's folder.
std::filesystem::path buildSettingsLocation(const ProjectItem& project);
std::filesystem::path buildSettingsLocation(const std::filesystem::path& projectFolder,
                                            std::string_view projectName);

/// The JSON object in the settings file; nothing when there is none. `reason` as for giveReason,
/// here and below.
std::optional<Dictionary> fetchBuildSettings(const ProjectItem& project,
                                             std::string* reason = nullptr);

/// The settings in `dictionary`; nothing when "output_folder" or "emulator" is no string.
std::optional<BuildSettingsContents> readBuildSettings(const Dictionary& dictionary,
                                                       std::string* reason = nullptr);

/// The names of the members of this form, in the order in which they are written.
std::vector<std::string_view> buildSettingMembers(BuildSettingForm form);

/// The text of a settings file that holds `settings`; nothing when serialiseJson gives nothing.
std::optional<std::string> buildSettingsText(const Dictionary& settings);

/// Whether reading the file at `path` and writing it again would lose nothing: there is no file, or
/// every member in it is known, valid and not repeated.
bool understandsBuildSettingsFile(const std::filesystem::path& path);

/// Replaces the settings file and logs whether that succeeded. The output folder written is always
/// the project's own. Makes a backup first when the old file has content that would be lost.
bool writeBuildSettings(const ProjectItem& project, const BuildSettingsContents& contents);

} // namespace kestrel
