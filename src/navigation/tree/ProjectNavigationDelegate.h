// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// Is told by the navigation tree which node the user selected.
class ProjectNavigationDelegate {
public:
    ProjectNavigationDelegate() = default;
    ProjectNavigationDelegate(const ProjectNavigationDelegate&) = delete;
    ProjectNavigationDelegate& operator=(const ProjectNavigationDelegate&) = delete;
    virtual ~ProjectNavigationDelegate() = default;

    /// `itemSelected` was selected; the tree's current item and project are set already.
    virtual void projectNavigation(const std::shared_ptr<ProjectItem>& itemSelected) = 0;

    /// A reference that keeps nobody alive and is empty as soon as the delegate begins to go.
    std::weak_ptr<ProjectNavigationDelegate> weakReference() const { return m_self; }

private:
    // Owns nothing: it only lets weak references notice the end.
    std::shared_ptr<ProjectNavigationDelegate> m_self{this, [](ProjectNavigationDelegate*) {}};
};

} // namespace kestrel
