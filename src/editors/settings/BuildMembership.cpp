// SPDX-License-Identifier: MIT
#include "editors/settings/BuildMembership.h"

#include "model/Paths.h"

#include <algorithm>

namespace kestrel {

namespace {

/// Whether the file of the settings lists as many files of this kind as they do.
bool isSaved(FileType kind, NESBuildSettings& settings) {
    NESBuildSettings saved(settings.projectToBuild());
    return saved.listFor(kind)->size() == settings.listFor(kind)->size();
}

} // namespace

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

std::optional<ListedFile> takeOffList(const std::shared_ptr<ProjectItem>& file,
                                      NESBuildSettings& settings) {
    std::optional<ListedFile> taken;
    const FileType kind = file->itemFileType();
    if (const ProjectItems* list = settings.listFor(kind)) {
        const auto found = std::find_if(list->begin(), list->end(), [&](const auto& entry) {
            return entry->itemName() == file->itemName();
        });
        if (found != list->end()) {
            taken = {*found, kind, static_cast<std::size_t>(found - list->begin())};
        }
    }
    settings.removeFile(file);
    return taken && isSaved(kind, settings) ? taken : std::nullopt;
}

std::optional<std::size_t> putBackOnList(const ListedFile& removed, NESBuildSettings& settings) {
    ProjectItems& list = *settings.listFor(removed.kind);
    const std::size_t place = std::min(removed.place, list.size());
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(place), removed.entry);
    settings.saveBuildSettings();
    return isSaved(removed.kind, settings) ? std::optional(place) : std::nullopt;
}

} // namespace kestrel
