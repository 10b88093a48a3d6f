// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

namespace kestrel {

/// Makes nodes of the stored form of a project tree.
class ProjectItemFactory {
public:
    /// The tree that `dictionary` describes, with `parent` as its root's parent (nullptr for a
    /// project); nullptr when the root is invalid. An invalid child is left out with its subtree.
    /// Logs "FAILLLEED" for each invalid node, and on a second line which one and why.
    static std::shared_ptr<ProjectItem> process(const Dictionary& dictionary,
                                                const std::shared_ptr<ProjectItem>& parent);

    /// The nodes that an array of stored nodes describes, in order and without parents. Invalid
    /// ones are left out, and each logs the same lines. Anything but an array of objects gives
    /// none.
    static ProjectItems processList(const Dictionary& list);

    /// Whether reading `dictionary` and writing it again would lose nothing: every node in it is
    /// valid and has only known members. Logs nothing.
    static bool understandsWhole(const Dictionary& dictionary);
};

} // namespace kestrel
