// SPDX-License-Identifier: MIT
#include "navigation/container/StoredProject.h"

#include "build/NESBuildSettings.h"
#include "model/Paths.h"
#include "model/ProjectRegistry.h"
#include "model/StructureFile.h"

#include <algorithm>

namespace kestrel {

std::shared_ptr<ProjectItem> StoredProject::tree(const ProjectItem& project) {
    const auto structure = NESBuildSettings::fetchProjectFileStructureConfigurationFile(project);
    return structure ? StructureFile::project(*structure, project.itemPath()) : nullptr;
}

void StoredProject::uniteWith(const std::shared_ptr<ProjectItem>& project) {
    if (!StructureFile::adoptExisting(project)) {
        return;
    }
    const auto stored = tree(*project);
    if (stored && stored->toDictionary() != project->toDictionary()) {
        StructureFile::save(*project);
    }
}

bool StoredProject::isRegistered(const ProjectItem& project) {
    const auto entries = ProjectRegistry::entries();
    return std::any_of(entries.begin(), entries.end(), [&](const ProjectRegistry::Entry& entry) {
        return entry.name == project.itemName() &&
               pathText(entry.path) == pathText(project.itemPath());
    });
}

} // namespace kestrel
