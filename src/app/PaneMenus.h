// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>
#include <QObject>
#include <QPointer>

class QMenu;

namespace kestrel {

class CommonEditorControllers;
class EditorPane;

/// Puts the commands of the pane that is shown at the end of the Edit and View menus, and saves it.
class PaneMenus : public QObject {
    Q_OBJECT

public:
    /// The menus and the panes must outlive this; the menus must have their own entries already.
    PaneMenus(CommonEditorControllers& panes, QMenu& editMenu, QMenu& viewMenu, QObject* parent);

    /// The action that saves; enabled while the pane shown has something to do with saving.
    void setSaveAction(QAction* action);

    /// Saves the pane that is shown.
    void save();

private:
    EditorPane* shownPane() const;
    void paneChanged();
    void fill(QMenu& menu, const QList<QAction*>& actions);

    CommonEditorControllers& m_panes;
    QMenu& m_editMenu;
    QMenu& m_viewMenu;
    QPointer<QAction> m_saveAction;
    QList<QPointer<QAction>> m_separators;
    QList<QPointer<QAction>> m_shown;
};

} // namespace kestrel
