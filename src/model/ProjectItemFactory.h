// SPDX-License-Identifier: MIT
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

    /// The nodes that a list of stored nodes describes, without parents and in order; elements that
    /// cannot be read are left out (each logs "FAILLLEED"), and a value that is no array of objects
    /// gives none.
    static ProjectItems processList(const Dictionary& list);

    /// Whether reading `dictionary` and writing it again would lose nothing: every node in it can
    /// be read and holds only members that are known. Logs nothing.
    static bool understandsWhole(const Dictionary& dictionary);
};

} // namespace kestrel
