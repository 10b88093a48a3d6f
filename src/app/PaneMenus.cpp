// SPDX-License-Identifier: MIT
#include "app/PaneMenus.h"

#include "editors/CommonEditorControllers.h"
#include "widgets/EditorPane.h"

#include <QMenu>

namespace kestrel {

PaneMenus::PaneMenus(CommonEditorControllers& panes, QMenu& editMenu, QMenu& viewMenu,
                     QAction& saveAction, QObject* parent)
    : QObject(parent)
    , m_panes(panes)
    , m_editMenu(editMenu)
    , m_viewMenu(viewMenu)
    , m_saveAction(saveAction) {
    connect(&panes, &QStackedWidget::currentChanged, this, &PaneMenus::paneChanged);
    paneChanged();
}

void PaneMenus::paneChanged() {
    for (const QPointer<QAction>& action : std::as_const(m_shown)) {
        if (action) {
            m_editMenu.removeAction(action);
            m_viewMenu.removeAction(action);
        }
    }
    for (const QPointer<QAction>& separator : std::as_const(m_separators)) {
        delete separator;
    }
    m_shown.clear();
    m_separators.clear();
    const EditorPane* pane = m_panes.shownEditorPane();
    m_saveAction.setEnabled(pane != nullptr);
    if (pane != nullptr) {
        fill(m_editMenu, pane->editActions());
        fill(m_viewMenu, pane->viewActions());
    }
}

void PaneMenus::fill(QMenu& menu, const QList<QAction*>& actions) {
    if (actions.isEmpty()) {
        return;
    }
    m_separators.append(menu.addSeparator());
    for (QAction* action : actions) {
        menu.addAction(action);
        m_shown.append(action);
    }
}

} // namespace kestrel
