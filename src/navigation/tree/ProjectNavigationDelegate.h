// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <memory>

namespace kestrel {

/// Is told by the navigation tree which node the user selects.
class ProjectNavigationDelegate {
public:
    ProjectNavigationDelegate() = default;
    ProjectNavigationDelegate(const ProjectNavigationDelegate&) = delete;
    ProjectNavigationDelegate& operator=(const ProjectNavigationDelegate&) = delete;
    virtual ~ProjectNavigationDelegate() = default;

    /// Called after the tree has set its current item and project.
    virtual void projectNavigation(const std::shared_ptr<ProjectItem>& itemSelected) = 0;

    /// A weak reference, which is empty once the delegate is being destroyed.
    std::weak_ptr<ProjectNavigationDelegate> weakReference() const { return m_self; }

private:
    // Owns nothing; only weak references are made from it.
    std::shared_ptr<ProjectNavigationDelegate> m_self{this, [](ProjectNavigationDelegate*) {}};
};

} // namespace kestrel
