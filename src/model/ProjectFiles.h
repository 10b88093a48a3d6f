// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel {

/// The members of a project file: the paths, from the project's folder, of the structure file and
/// the build-settings file.
inline constexpr std::string_view ProjectStructureKey = "ProjectStructure";
inline constexpr std::string_view BuildSettingsKey = "BuildSettings";

inline constexpr std::string_view ProjectFileExtension = ".kst";
inline constexpr std::string_view ProjectStructureConfigurationExtension = "-ProjectStructure.cfg";
inline constexpr std::string_view BuildSettingsConfigurationExtension = "-BuildSettings.cfg";
inline constexpr std::string_view SettingsFolderName = ".project";

/// The path of a settings file of the project `name`, from the project's folder, such as
/// ".project/NAME-BuildSettings.cfg".
std::string settingsFilePath(std::string_view name, std::string_view extension);

/// The project file of the project `name` in `folder`.
std::filesystem::path projectFileLocation(const std::filesystem::path& folder,
                                          std::string_view name);

} // namespace kestrel
