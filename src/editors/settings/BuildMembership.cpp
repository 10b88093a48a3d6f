// SPDX-License-Identifier: MIT
#include "editors/settings/BuildMembership.h"

#include "model/Paths.h"

#include <algorithm>

namespace kestrel {

bool isSameFile(const ProjectItem& one, const ProjectItem& other) {
    return one.itemName() == other.itemName() && one.itemPathType() == other.itemPathType() &&
           pathText(one.itemPath()) == pathText(other.itemPath());
}

int rowOf(const ProjectItem& file, const ProjectItems& files) {
    const auto found = std::find_if(files.begin(), files.end(),
                                    [&](const auto& entry) { return isSameFile(file, *entry); });
    return found == files.end() ? -1 : static_cast<int>(found - files.begin());
}

void moveToListOf(FileType kind, const std::shared_ptr<ProjectItem>& file,
                  BuildSettingsConfiguration& settings) {
    for (const FileType each : {FileType::text, FileType::graphics, FileType::palette}) {
        ProjectItems& files = *settings.listFor(each);
        if (each != kind) {
            std::erase_if(files, [&](const auto& entry) { return isSameFile(*file, *entry); });
        } else if (rowOf(*file, files) < 0) {
            files.push_back(file);
        }
    }
}

} // namespace kestrel
