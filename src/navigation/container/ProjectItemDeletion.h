// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/BuildMembership.h"
#include "model/ProjectItem.h"
#include "navigation/tree/RemovedItem.h"

#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

class ProjectNavigationController;

/// A deletion of a node from the tree and the configuration files, which can be undone. The node's
/// own file stays.
class ProjectItemDeletion {
public:
    /// Deletes the node of the selected row, a project from the registry, any other node from the
    /// structure and the build settings of the current project, and saves. The tree does not report
    /// the new selection yet. Returns nothing when no deletable row is selected.
    static std::optional<ProjectItemDeletion> carryOut(ProjectNavigationController& tree);

    /// Restores what was deleted and saves. Returns the node to select: the restored one, or the
    /// project if it was added again in the meantime; nullptr when its container is gone.
    std::shared_ptr<ProjectItem> undo(ProjectNavigationController& tree) const;

private:
    static std::optional<ProjectItemDeletion> deleteProject(ProjectNavigationController& tree,
                                                            const ProjectItem& project);
    std::shared_ptr<ProjectItem> undoProjects(ProjectNavigationController& tree) const;

    std::vector<RemovedItem> m_removed;
    std::shared_ptr<ProjectItem> m_project;    ///< of the node; nullptr if projects were deleted
    std::optional<ListedFile> m_settingsEntry; ///< removed from the build settings
};

} // namespace kestrel
