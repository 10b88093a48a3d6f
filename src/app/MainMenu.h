// SPDX-License-Identifier: MIT
#pragma once

#include "app/MenuEntry.h"

#include <QHash>
#include <QObject>

#include <array>

class QAction;
class QMenu;
class QMenuBar;

namespace kestrel {

class EditMenu;
class EditorContainerController;
class PaneMenus;

/// The menu bar, made from the table of its entries. The navigation tree's commands are the very
/// actions of its context menu.
class MainMenu : public QObject {
    Q_OBJECT

public:
    /// Fills `bar`. `editor` must outlive the menus and have its tree and panes.
    MainMenu(QMenuBar& bar, EditorContainerController& editor, QObject* parent);

    /// The action of a window's command; saving, and what follows the focus, works by itself, the
    /// others are for the caller to connect.
    QAction* action(WindowCommand command) const { return m_windowActions.value(command); }

private:
    void add(const MenuEntry& entry);
    QMenu& menu(MenuTitle title) const { return *m_menus.at(static_cast<std::size_t>(title)); }

    EditorContainerController& m_editor;
    std::array<QMenu*, MenuTitleCount> m_menus{};
    QHash<WindowCommand, QAction*> m_windowActions;
    EditMenu* m_editMenu = nullptr;
    PaneMenus* m_paneMenus = nullptr;
};

} // namespace kestrel
