#pragma once

#include "model/ProjectItem.h"

namespace kestrel {

/// Turns the stored form of a project tree back into nodes.
class ProjectItemFactory {
public:
    /// The tree that `dictionary` describes, its root's parent set to `parent` (none for a
    /// project), or nothing when the root cannot be read. Each rejected node logs "FAILLLEED" once;
    /// a rejected child is left out with its subtree.
    static std::shared_ptr<ProjectItem> process(const Dictionary& dictionary,
                                                const std::shared_ptr<ProjectItem>& parent);
};

} // namespace kestrel
