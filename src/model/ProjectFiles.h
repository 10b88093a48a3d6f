// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel {

/// The members of a project file: where the structure file and the build-settings file lie, below
/// the project's folder.
inline constexpr std::string_view ProjectStructureKey = "ProjectStructure";
inline constexpr std::string_view BuildSettingsKey = "BuildSettings";

inline constexpr std::string_view ProjectFileExtension = ".kst";
inline constexpr std::string_view ProjectStructureConfigurationExtension = "-ProjectStructure.cfg";
inline constexpr std::string_view BuildSettingsConfigurationExtension = "-BuildSettings.cfg";
inline constexpr std::string_view SettingsFolderName = ".project";

/// Where the project `name` keeps a settings file, as text relative to the project's folder:
/// ".project/NAME-BuildSettings.cfg".
std::string settingsFilePath(std::string_view name, std::string_view extension);

/// The project file of the project `name` in `folder`.
std::filesystem::path projectFileLocation(const std::filesystem::path& folder,
                                          std::string_view name);

} // namespace kestrel
