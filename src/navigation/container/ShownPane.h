// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace kestrel {

class CommonEditorControllers;

/// Remembers the pane that was shown for the selected node, so that it can be shown again after a
/// message without loading, which would lose what was typed. (The palette pane always reloads.)
class ShownPane {
public:
    /// Shows the pane for a node of `project`, or a message for one without a pane.
    static void show(const std::shared_ptr<ProjectItem>& item,
                     const std::shared_ptr<ProjectItem>& project, CommonEditorControllers& panes);

    /// To be called after `panes` has shown the selected node.
    void noteSelection(const std::shared_ptr<ProjectItem>& item, CommonEditorControllers& panes);

    /// Shows the pane of `item` again without loading, or a message when its file is missing.
    /// Returns false and does nothing when no pane was shown for it.
    bool comeBack(const std::shared_ptr<ProjectItem>& item,
                  const std::shared_ptr<ProjectItem>& project,
                  CommonEditorControllers& panes) const;

private:
    std::weak_ptr<ProjectItem> m_item;
    QPointer<QWidget> m_pane;
};

} // namespace kestrel
