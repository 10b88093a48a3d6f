// SPDX-License-Identifier: MIT
#include "model/FileProcessor.h"

#include "model/BuildSettingsFile.h"
#include "model/FileWriter.h"
#include "model/OpenedProject.h"
#include "model/Paths.h"
#include "model/ProjectNavigationSettingItem.h"
#include "model/ProjectRegistry.h"

#include <utility>
#include <variant>

namespace kestrel {

namespace {

/// The empty project node that stands for a project with an unreadable structure.
std::shared_ptr<ProjectItem> placeholder(const RegistryEntry& entry) {
    auto project = std::make_shared<ProjectNavigationSettingItem>(
        entry.name, std::filesystem::path(entry.path), FileType::project, ProjectType::nes);
    project->setItemPathType(FilePathType::absolute);
    return project;
}

/// The tree of a registered project, its placeholder, or nullptr without a readable project file.
std::shared_ptr<ProjectItem> loadProject(const RegistryEntry& entry) {
    const auto opened = openProject(projectFileLocation(entry.path, entry.name), entry.path,
                                    ProjectFileRule::stringsOnly);
    if (const auto* const project = std::get_if<OpenedProject>(&opened)) {
        return project->root;
    }
    switch (std::get<ProjectProblem>(opened).fault) {
    case ProjectFault::unreadableProjectFile:
    case ProjectFault::noStructureNamed:
        return nullptr;
    case ProjectFault::unreadableStructure:
    case ProjectFault::noProjectInStructure:
        break;
    }
    return placeholder(entry);
}

void saveFirstBuildSettings(const ProjectItem& project) {
    const auto stored = fetchBuildSettings(project);
    const auto contents = stored ? readBuildSettings(*stored) : std::nullopt;
    writeBuildSettings(project, contents.value_or(BuildSettingsContents{}));
}

void createUnlessPresent(const std::filesystem::path& path, std::string_view content) {
    if (!existsAt(path)) {
        replaceFile(path, content);
    }
}

} // namespace

ProjectItems FileProcessor::loadRecentlyConfiguredProjects() {
    ProjectItems projects;
    for (const auto& entry : registryEntries()) {
        if (auto project = loadProject(entry)) {
            projects.push_back(std::move(project));
        }
    }
    return projects;
}

bool FileProcessor::saveToRecentlyConfiguredProjects(const std::shared_ptr<ProjectItem>& project) {
    return project && addToRegistry(*project);
}

bool FileProcessor::saveRecentlyConfiguredProjects(const ProjectItems& projects) {
    return rewriteRegistry(projects);
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
    appendMember(projectFile, BuildSettingsKey,
                 settingsFilePath(name, BuildSettingsConfigurationExtension));
    appendMember(projectFile, ProjectStructureKey, structurePath);
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
    auto read = readNamedStructure(kstFilePath, kstFilePath.parent_path());
    auto* const named = std::get_if<NamedStructure>(&read);
    return named != nullptr ? std::optional(std::move(named->structure)) : std::nullopt;
}

bool FileProcessor::isFilePresent(const std::shared_ptr<ProjectItem>& file,
                                  const std::shared_ptr<ProjectItem>& project) {
    if (file && file->itemPathType() == FilePathType::absolute) {
        return existsAt(joined(file->itemPath(), file->itemName()));
    }
    return file && project && existsAt(joined(project->itemPath(), pathText(file->itemPath())));
}

bool FileProcessor::saveTextFile(const std::filesystem::path& absolutePath,
                                 const std::optional<std::string>& contents, std::string* reason) {
    return saveBytes(absolutePath, contents.value_or(std::string()), reason);
}

bool FileProcessor::saveDataFile(const std::filesystem::path& absolutePath, std::string_view data,
                                 std::string* reason) {
    return saveBytes(absolutePath, data, reason);
}

} // namespace kestrel
