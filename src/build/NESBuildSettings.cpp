// SPDX-License-Identifier: MIT
#include "build/NESBuildSettings.h"

#include "model/BuildSettingsFile.h"
#include "model/Log.h"
#include "model/Paths.h"
#include "model/ProjectNavigationSettingItem.h"
#include "model/Reason.h"
#include "model/StructureFile.h"

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

constexpr const char* PlaceholderName = "Empty";

std::filesystem::path placeholderFolder() {
    return joined(homeFolder(), "Kestrel");
}

bool isPlaceholder(const ProjectItem& project) {
    return project.itemName() == PlaceholderName && project.itemFileType() == FileType::unknown &&
           project.itemPathType() == FilePathType::noPath &&
           project.itemPath() == placeholderFolder();
}

std::optional<std::filesystem::path> processItemToAbsolutePath(const ProjectItem& item) {
    if (item.itemPathType() != FilePathType::absolute) {
        return std::nullopt;
    }
    return item.itemPath();
}

std::vector<std::filesystem::path> extractAbsolutePath(FileType type, const ProjectItem& node) {
    if (node.itemFileType() != FileType::group && node.itemFileType() != FileType::project) {
        return {};
    }
    std::vector<std::filesystem::path> direct;
    std::vector<std::filesystem::path> nested;
    for (const auto& child : node.subItems()) {
        if (child->itemFileType() == type) {
            if (auto path = processItemToAbsolutePath(*child)) {
                direct.push_back(*std::move(path));
            }
        } else if (child->itemFileType() == FileType::group) {
            auto found = extractAbsolutePath(type, *child);
            nested.insert(nested.end(), found.begin(), found.end());
        }
    }
    // Leaves the direct matches out on purpose, so the result is always empty.
    return nested;
}

} // namespace

NESBuildSettings::NESBuildSettings()
    : m_projectToBuild(std::make_shared<ProjectNavigationSettingItem>(
          PlaceholderName, placeholderFolder(), FileType::unknown, ProjectType::nes)) {}

NESBuildSettings::NESBuildSettings(std::shared_ptr<ProjectItem> projectToBuild)
    : NESBuildSettings() {
    m_projectToBuild = std::move(projectToBuild);
    populateProperties(*m_projectToBuild);
    m_projectPath = m_projectToBuild->itemPath();
}

void NESBuildSettings::populateProperties(const ProjectItem& currentProject) {
    std::string reason;
    const auto dictionary = fetchBuildSettings(currentProject, &reason);
    auto contents = dictionary ? readBuildSettings(*dictionary, &reason) : std::nullopt;
    if (contents) {
        m_contents = *std::move(contents);
    } else if (const auto file = buildSettingsLocation(currentProject); existsAt(file)) {
        writeLog("The build settings " + file.string() + " could not be read: " + reason);
    }
}

std::optional<Dictionary>
NESBuildSettings::fetchBuildSettingsConfigurationFile(const ProjectItem& project) {
    return fetchBuildSettings(project);
}

std::optional<Dictionary>
NESBuildSettings::fetchProjectFileStructureConfigurationFile(const ProjectItem& project) {
    return fetchStructure(project);
}

std::shared_ptr<ProjectItem> NESBuildSettings::fetchProjectFileStructure() {
    return structureTree(*m_projectToBuild);
}

void NESBuildSettings::add(const std::shared_ptr<ProjectItem>& newItem,
                           const std::shared_ptr<ProjectItem>& currentProject) {
    NESBuildSettings settings(currentProject);
    ProjectItems* list = settings.listFor(newItem->itemFileType());
    if (list == nullptr) {
        writeLog("Cannot add file to build settings");
        return;
    }
    list->push_back(newItem);
    settings.saveBuildSettings();
}

bool NESBuildSettings::addNewFile(const std::shared_ptr<ProjectItem>& projectItem) {
    if (ProjectItems* list = listFor(projectItem->itemFileType())) {
        list->push_back(projectItem);
    }
    return saveBuildSettings();
}

void NESBuildSettings::removeFile(const std::shared_ptr<ProjectItem>& projectItem) {
    if (ProjectItems* list = listFor(projectItem->itemFileType())) {
        const auto found = std::find_if(list->begin(), list->end(), [&](const auto& entry) {
            return entry->itemName() == projectItem->itemName();
        });
        if (found != list->end()) {
            list->erase(found);
        }
    }
    saveBuildSettings();
}

bool NESBuildSettings::saveBuildSettings() {
    if (isPlaceholder(*m_projectToBuild)) {
        writeLog("Could not save build settings");
        logReason(PlaceholderName, "no project was set");
        return false;
    }
    return writeBuildSettings(*m_projectToBuild, m_contents);
}

std::vector<std::filesystem::path> NESBuildSettings::assemblyFilesWithAbsolutePaths() {
    return extractAbsolutePath(FileType::text, *m_projectToBuild);
}

} // namespace kestrel
