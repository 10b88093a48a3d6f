// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/BuildMembership.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// The files that were taken off the lists of one project's build settings, to be put back and
/// taken off again, the latest first.
class RemovalHistory {
public:
    bool canUndo() const { return !m_removed.empty(); }
    bool canRedo() const { return !m_restored.empty(); }

    /// Notes a removal, after which nothing can be redone.
    void removed(ListedFile file);

    /// Puts the latest removed file back on its list and saves. Returns where it is now; nothing
    /// when that could not be saved.
    std::optional<ListedFile> undo(NESBuildSettings& settings);

    /// Takes the file that was put back last off its list again and saves. Returns where it was;
    /// nothing when it is not listed any more or when that could not be saved.
    std::optional<ListedFile> redo(NESBuildSettings& settings);

    /// Drops the removals of a file that is listed anew.
    void forget(const ProjectItem& file);

private:
    std::vector<ListedFile> m_removed;
    std::vector<ListedFile> m_restored;
};

/// The removals of each project.
using RemovalHistories = std::map<std::weak_ptr<ProjectItem>, RemovalHistory, std::owner_less<>>;

} // namespace kestrel
