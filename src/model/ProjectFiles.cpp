// SPDX-License-Identifier: MIT
#include "model/ProjectFiles.h"

#include "model/Paths.h"

namespace kestrel {

std::string settingsFilePath(std::string_view name, std::string_view extension) {
    std::string path(SettingsFolderName);
    path += '/';
    path += name;
    path += extension;
    return path;
}

std::filesystem::path projectFileLocation(const std::filesystem::path& folder,
                                          std::string_view name) {
    std::string file(name);
    file += ProjectFileExtension;
    return joined(folder, file);
}

} // namespace kestrel
