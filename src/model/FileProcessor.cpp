// SPDX-License-Identifier: MIT
#include "model/FileProcessor.h"

#include "model/BuildSettingsFile.h"
#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Paths.h"
#include "model/ProjectNavigationSettingItem.h"
#include "model/ProjectRegistry.h"
#include "model/StructureFile.h"

#include <utility>

namespace kestrel {

namespace {

constexpr std::string_view StructureKey = "ProjectStructure";
constexpr std::string_view SettingsKey = "BuildSettings";

/// Whether a project file must be as it is written (strings only) or may hold more beside the
/// structure's path. Listing registered projects is strict, opening a project file is not.
enum class ProjectFileRule { stringsOnly, anythingBeside };

/// The path of the structure file that the project file at `path` names, relative to its folder.
std::optional<std::string> structurePathIn(const std::filesystem::path& path,
                                           ProjectFileRule rule) {
    const auto file = readJsonFile(path);
    if (!file || (rule == ProjectFileRule::stringsOnly && !isObjectOfStrings(*file))) {
        return std::nullopt;
    }
    return stringMember(*file, StructureKey);
}

std::optional<Dictionary> readObject(const std::filesystem::path& path) {
    auto value = readJsonFile(path);
    if (!value || !value->is_object()) {
        return std::nullopt;
    }
    return value;
}

/// What a project whose structure is lost is listed as.
std::shared_ptr<ProjectItem> placeholder(const ProjectRegistry::Entry& entry) {
    auto project = std::make_shared<ProjectNavigationSettingItem>(
        entry.name, std::filesystem::path(entry.path), FileType::project, ProjectType::nes);
    project->setItemPathType(FilePathType::absolute);
    return project;
}

/// The tree of a registered project, its placeholder, or nothing without a project file.
std::shared_ptr<ProjectItem> loadProject(const ProjectRegistry::Entry& entry) {
    const auto structurePath =
        structurePathIn(projectFileLocation(entry.path, entry.name), ProjectFileRule::stringsOnly);
    if (!structurePath) {
        return nullptr;
    }
    if (const auto structure = readObject(joined(entry.path, *structurePath))) {
        if (auto project = StructureFile::project(*structure, entry.path)) {
            return project;
        }
    }
    return placeholder(entry);
}

void saveFirstBuildSettings(const ProjectItem& project) {
    const auto stored = BuildSettingsFile::fetch(project);
    const auto contents = stored ? BuildSettingsFile::read(*stored) : std::nullopt;
    BuildSettingsFile::save(project, contents.value_or(BuildSettingsContents{}));
}

void createUnlessPresent(const std::filesystem::path& path, std::string_view content) {
    if (!existsAt(path)) {
        replaceFile(path, content);
    }
}

} // namespace

ProjectItems FileProcessor::loadRecentlyConfiguredProjects() {
    ProjectItems projects;
    for (const auto& entry : ProjectRegistry::entries()) {
        if (auto project = loadProject(entry)) {
            projects.push_back(std::move(project));
        }
    }
    return projects;
}

bool FileProcessor::saveToRecentlyConfiguredProjects(const std::shared_ptr<ProjectItem>& project) {
    return project && ProjectRegistry::add(*project);
}

bool FileProcessor::saveRecentlyConfiguredProjects(const ProjectItems& projects) {
    return ProjectRegistry::rewrite(projects);
}

bool FileProcessor::createFilesForNewProject(const std::shared_ptr<ProjectItem>& project) {
    if (!project) {
        return false;
    }
    const std::string& name = project->itemName();
    const std::filesystem::path folder = joined(joined(homeFolder(), "Kestrel"), name);
    // The settings come first: they make the folder ".project" for the structure file.
    saveFirstBuildSettings(*project);

    const std::string structurePath =
        settingsFilePath(name, ProjectStructureConfigurationExtension);
    Dictionary projectFile = Dictionary::object();
    appendMember(projectFile, SettingsKey,
                 settingsFilePath(name, BuildSettingsConfigurationExtension));
    appendMember(projectFile, StructureKey, structurePath);
    const auto structureText = serialiseJson(project->toDictionary());
    const auto projectText = serialiseJson(projectFile);
    if (!structureText || !projectText || !createFolders(folder)) {
        return false;
    }
    createUnlessPresent(projectFileLocation(folder, name), *projectText);
    createUnlessPresent(joined(project->itemPath(), structurePath), *structureText);
    return true;
}

std::optional<Dictionary>
FileProcessor::retrieveConfiguration(const std::filesystem::path& kstFilePath) {
    const auto structurePath = structurePathIn(kstFilePath, ProjectFileRule::anythingBeside);
    if (!structurePath) {
        return std::nullopt;
    }
    return readObject(joined(kstFilePath.parent_path(), *structurePath));
}

bool FileProcessor::isFilePresent(const std::shared_ptr<ProjectItem>& file,
                                  const std::shared_ptr<ProjectItem>& project) {
    if (file && file->itemPathType() == FilePathType::absolute) {
        return existsAt(joined(file->itemPath(), file->itemName()));
    }
    return file && project && existsAt(joined(project->itemPath(), pathText(file->itemPath())));
}

bool FileProcessor::saveTextFile(const std::filesystem::path& absolutePath,
                                 const std::optional<std::string>& contents) {
    return saveBytes(absolutePath, contents.value_or(std::string()));
}

bool FileProcessor::saveDataFile(const std::filesystem::path& absolutePath, std::string_view data) {
    return saveBytes(absolutePath, data);
}

} // namespace kestrel
