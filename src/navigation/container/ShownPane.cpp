// SPDX-License-Identifier: MIT
#include "navigation/container/ShownPane.h"

#include "editors/CommonEditorControllers.h"

namespace kestrel {

void ShownPane::show(const std::shared_ptr<ProjectItem>& item,
                     const std::shared_ptr<ProjectItem>& project, CommonEditorControllers& panes) {
    switch (item->itemFileType()) {
    case FileType::unknown:
        panes.displayError(QStringLiteral(
            "File type unspecified.\n Please set file to appropriate type in project settings"));
        break;
    case FileType::group:
        panes.displayError(QStringLiteral("Folder selected"));
        break;
    case FileType::project:
        panes.displayProjectSettings(project);
        break;
    case FileType::text:
    case FileType::palette:
    case FileType::graphics:
        panes.displayFile(item, project);
        break;
    case FileType::empty:
        break;
    }
}

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
