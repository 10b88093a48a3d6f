// SPDX-License-Identifier: MIT
#include "model/OpenedProject.h"

#include "model/FileReader.h"
#include "model/Paths.h"
#include "model/ProjectFiles.h"
#include "model/StructureFile.h"

#include <utility>

namespace kestrel {

std::variant<NamedStructure, ProjectProblem> readNamedStructure(const std::filesystem::path& file,
                                                                const std::filesystem::path& folder,
                                                                ProjectFileRule rule) {
    std::string reason = "it holds more than texts";
    const auto content = readJsonObject(file, nullptr, &reason);
    if (!content || (rule == ProjectFileRule::stringsOnly && !isObjectOfStrings(*content))) {
        return ProjectProblem{ProjectFault::unreadableProjectFile, file, std::move(reason)};
    }
    const auto path = stringMember(*content, ProjectStructureKey);
    if (!path) {
        return ProjectProblem{ProjectFault::noStructureNamed, file,
                              "it has no text \"ProjectStructure\""};
    }
    NamedStructure named{joined(folder, *path), {}};
    auto structure = readJsonObject(named.file, nullptr, &reason);
    if (!structure) {
        return ProjectProblem{ProjectFault::unreadableStructure, std::move(named.file),
                              std::move(reason)};
    }
    named.structure = *std::move(structure);
    return named;
}

std::variant<OpenedProject, ProjectProblem> openProject(const std::filesystem::path& file,
                                                        const std::filesystem::path& folder,
                                                        ProjectFileRule rule) {
    auto read = readNamedStructure(file, folder, rule);
    if (auto* problem = std::get_if<ProjectProblem>(&read)) {
        return std::move(*problem);
    }
    auto& [structureFile, structure] = std::get<NamedStructure>(read);
    auto root = projectFromStructure(structure, folder);
    if (!root) {
        return ProjectProblem{ProjectFault::noProjectInStructure, std::move(structureFile),
                              "it describes no project"};
    }
    auto namedFolder = stringMember(structure, "path").value_or(std::string());
    return OpenedProject{folder, std::move(namedFolder), std::move(structureFile),
                         std::move(structure), std::move(root)};
}

std::shared_ptr<ProjectItem> openProjectTree(const std::filesystem::path& file) {
    const auto opened = openProject(file, file.parent_path());
    const auto* const project = std::get_if<OpenedProject>(&opened);
    return project != nullptr ? project->root : nullptr;
}

} // namespace kestrel
