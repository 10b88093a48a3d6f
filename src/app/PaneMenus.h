// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>
#include <QObject>
#include <QPointer>

class QMenu;

namespace kestrel {

class CommonEditorControllers;

/// Puts the commands of the pane that is shown at the end of the Edit and View menus.
class PaneMenus : public QObject {
    Q_OBJECT

public:
    /// The menus and the panes must outlive this; the menus must have their own entries already.
    /// `saveAction` is enabled while the pane that is shown can be saved.
    PaneMenus(CommonEditorControllers& panes, QMenu& editMenu, QMenu& viewMenu, QAction& saveAction,
              QObject* parent);

private:
    void paneChanged();
    void fill(QMenu& menu, const QList<QAction*>& actions);

    CommonEditorControllers& m_panes;
    QMenu& m_editMenu;
    QMenu& m_viewMenu;
    QAction& m_saveAction;
    QList<QPointer<QAction>> m_separators;
    QList<QPointer<QAction>> m_shown;
};

} // namespace kestrel
