// SPDX-License-Identifier: MIT
#include "navigation/container/ShownPane.h"

#include "editors/CommonEditorControllers.h"

namespace kestrel {

void ShownPane::noteSelection(const std::shared_ptr<ProjectItem>& item,
                              CommonEditorControllers& panes) {
    QWidget* const pane = panes.currentWidget();
    m_item = item;
    m_pane = pane != panes.emptyController ? pane : nullptr;
}

bool ShownPane::comeBack(const std::shared_ptr<ProjectItem>& item,
                         const std::shared_ptr<ProjectItem>& project,
                         CommonEditorControllers& panes) const {
    if (!item || m_item.lock() != item || m_pane == nullptr) {
        return false;
    }
    if (panes.checkFileExistsAndDisplayErrorWhenFalse(item, project)) {
        panes.setCurrentWidget(m_pane);
    }
    return true;
}

} // namespace kestrel
