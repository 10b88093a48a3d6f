// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <optional>

namespace kestrel {

/// What a project's build-settings file holds.
struct BuildSettingsContents {
    ProjectItems assemblyFiles;
    ProjectItems graphicFiles;
    ProjectItems paletteFiles;
    std::optional<std::filesystem::path> outputFilePath; ///< read, never written
    std::optional<std::filesystem::path> pathToEmulator;
};

/// The build-settings file of a project. It stands below both the configuration store, which writes
/// a new project's first settings, and the settings record itself.
class BuildSettingsFile {
public:
    /// Where the settings of `project` lie: folder ".project" in the project's folder.
    static std::filesystem::path location(const ProjectItem& project);

    /// The object in the settings file; nothing when it cannot be read or is no object.
    static std::optional<Dictionary> fetch(const ProjectItem& project);

    /// The settings in `dictionary`; nothing when "output_folder" or "emulator" is no string.
    static std::optional<BuildSettingsContents> read(const Dictionary& dictionary);

    /// Whether replacing the file at `path` by what was read from it would lose nothing: it is not
    /// there, or all it holds is known, of the right type and said once.
    static bool understoodWhole(const std::filesystem::path& path);

    /// Writes the settings of `project` whole and logs whether it did. The output folder written is
    /// always the project's own. A file there that was not understood whole is kept as a backup
    /// first.
    static bool save(const ProjectItem& project, const BuildSettingsContents& contents);
};

} // namespace kestrel
