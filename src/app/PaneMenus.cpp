// SPDX-License-Identifier: MIT
#include "app/PaneMenus.h"

#include "editors/CommonEditorControllers.h"
#include "widgets/EditorPane.h"

#include <QMenu>

namespace kestrel {

PaneMenus::PaneMenus(CommonEditorControllers& panes, QMenu& editMenu, QMenu& viewMenu,
                     QObject* parent)
    : QObject(parent)
    , m_panes(panes)
    , m_editMenu(editMenu)
    , m_viewMenu(viewMenu) {
    connect(&panes, &QStackedWidget::currentChanged, this, &PaneMenus::paneChanged);
    paneChanged();
}

void PaneMenus::setSaveAction(QAction* action) {
    m_saveAction = action;
    connect(action, &QAction::triggered, this, &PaneMenus::save);
    paneChanged();
}

void PaneMenus::save() {
    if (EditorPane* pane = shownPane()) {
        pane->savePane();
    }
}

EditorPane* PaneMenus::shownPane() const {
    return dynamic_cast<EditorPane*>(m_panes.currentWidget());
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
    const EditorPane* pane = shownPane();
    if (m_saveAction) {
        m_saveAction->setEnabled(pane != nullptr);
    }
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
