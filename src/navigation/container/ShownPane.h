// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace kestrel {

class CommonEditorControllers;

/// Remembers which pane was shown for the selected node, so that it can come back from behind a
/// message as it was, with what was typed in it (the palette pane reads its file whenever it is
/// shown).
class ShownPane {
public:
    /// To be called when `panes` was asked to show the selected node.
    void noteSelection(const std::shared_ptr<ProjectItem>& item, CommonEditorControllers& panes);

    /// Shows the pane of `item` again without loading anything, or says that its file is gone.
    /// False, with nothing done, when no pane was shown for it.
    bool comeBack(const std::shared_ptr<ProjectItem>& item,
                  const std::shared_ptr<ProjectItem>& project,
                  CommonEditorControllers& panes) const;

private:
    std::weak_ptr<ProjectItem> m_item;
    QPointer<QWidget> m_pane;
};

} // namespace kestrel
