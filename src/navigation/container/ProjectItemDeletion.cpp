// SPDX-License-Identifier: MIT
#include "navigation/container/ProjectItemDeletion.h"

#include "model/FileProcessor.h"
#include "model/StructureFile.h"
#include "navigation/container/SameProject.h"
#include "navigation/tree/ProjectNavigationController.h"

#include <algorithm>

namespace kestrel {

namespace {

bool isListed(const ProjectItems& projects, const std::string& name) {
    return std::any_of(projects.begin(), projects.end(),
                       [&](const auto& other) { return other && other->itemName() == name; });
}

} // namespace

std::optional<ProjectItemDeletion>
ProjectItemDeletion::carryOut(ProjectNavigationController& tree) {
    const std::shared_ptr<ProjectItem> item = tree.selectedItem();
    if (!item || !tree.canDelete()) {
        return std::nullopt;
    }
    if (item->itemFileType() == FileType::project) {
        return deleteProject(tree, *item);
    }
    ProjectItemDeletion deletion;
    deletion.m_project = tree.currentlySelectedProject();
    if (!deletion.m_project) {
        return std::nullopt;
    }
    NESBuildSettings settings(deletion.m_project);
    deletion.m_settingsEntry = takeOffList(item, settings);
    deletion.m_removed = tree.delete_();
    saveStructureOrLog(*deletion.m_project);
    return deletion;
}

std::optional<ProjectItemDeletion>
ProjectItemDeletion::deleteProject(ProjectNavigationController& tree, const ProjectItem& project) {
    if (!isListed(tree.allItems(), project.itemName())) {
        return std::nullopt;
    }
    ProjectItemDeletion deletion;
    deletion.m_removed = tree.delete_();
    FileProcessor::saveRecentlyConfiguredProjects(tree.allItems());
    return deletion;
}

std::shared_ptr<ProjectItem> ProjectItemDeletion::undo(ProjectNavigationController& tree) const {
    if (!m_project) {
        return undoProjects(tree);
    }
    if (m_removed.empty() || !tree.restore(m_removed)) {
        return nullptr;
    }
    if (m_settingsEntry) {
        NESBuildSettings settings(m_project);
        putBackOnList(*m_settingsEntry, settings);
    }
    saveStructureOrLog(*m_project);
    return m_removed.front().node;
}

std::shared_ptr<ProjectItem>
ProjectItemDeletion::undoProjects(ProjectNavigationController& tree) const {
    std::shared_ptr<ProjectItem> wanted;
    std::vector<RemovedItem> missing;
    for (const RemovedItem& removed : m_removed) {
        const auto present = findSameProject(tree.allItems(), *removed.node);
        wanted = wanted ? wanted : present ? present : removed.node;
        if (!present) {
            missing.push_back(removed);
        }
    }
    if (!missing.empty()) {
        tree.restore(missing);
        FileProcessor::saveRecentlyConfiguredProjects(tree.allItems());
    }
    return wanted;
}

} // namespace kestrel
