// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"
#include "navigation/tree/RemovedItem.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

class ProjectNavigationController;

/// One deletion from the navigation tree and from the files that list the node, which can be
/// undone. The node's own file is never touched.
class ProjectItemDeletion {
public:
    /// Deletes the node of the selected row: a project from the registry, any other node from the
    /// structure and the build settings of the current project. Everything is saved when this
    /// returns, and the tree has not reported the new selection yet. Nothing when there is nothing
    /// to delete.
    static std::optional<ProjectItemDeletion> carryOut(ProjectNavigationController& tree);

    /// Puts back what was deleted and saves. Gives the node to select: the one that came back, or
    /// the project that was added again meanwhile; nothing when its place is no longer shown.
    std::shared_ptr<ProjectItem> undo(ProjectNavigationController& tree) const;

private:
    static std::optional<ProjectItemDeletion> deleteProject(ProjectNavigationController& tree,
                                                            const ProjectItem& project);
    void removeFromBuildSettings(const std::shared_ptr<ProjectItem>& item);
    void putBackIntoBuildSettings() const;
    std::shared_ptr<ProjectItem> undoProjects(ProjectNavigationController& tree) const;

    std::vector<RemovedItem> m_removed;
    std::shared_ptr<ProjectItem> m_project;       ///< of the node; nothing where projects went
    std::shared_ptr<ProjectItem> m_settingsEntry; ///< what went from the build settings, if any
    std::size_t m_settingsPlace = 0;              ///< where it stood in the list of its kind
};

} // namespace kestrel
