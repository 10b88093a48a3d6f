// SPDX-License-Identifier: MIT
#include "build/SourceLocation.h"

#include "model/Paths.h"

namespace kestrel {

bool isPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == name.npos &&
           name.find('\0') == name.npos;
}

std::optional<std::filesystem::path> sourceFolder(const ProjectItem& entry,
                                                  const std::filesystem::path& projectFolder) {
    switch (entry.itemPathType()) {
    case FilePathType::noPath:
        return std::nullopt;
    case FilePathType::absolute:
        return entry.itemPath();
    case FilePathType::relative:
        return joined(projectFolder, pathText(entry.itemPath()));
    }
    return std::nullopt;
}

std::optional<std::filesystem::path> sourceFile(const ProjectItem& entry,
                                                const std::filesystem::path& projectFolder) {
    const auto parent = sourceFolder(entry, projectFolder);
    if (!parent || !isUsablePath(*parent) || !isPlainName(entry.itemName())) {
        return std::nullopt;
    }
    return joined(*parent, entry.itemName());
}

} // namespace kestrel
