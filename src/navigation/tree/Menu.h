// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"

#include <QAction>
#include <QMenu>

#include <vector>

namespace kestrel {

class NotificationCentre;

/// The navigation tree's context menu. Its entries do nothing themselves: each posts
/// ProjectNavigationMenuClicked with the command's ProjectNavigationMenuClickedOptions. The actions
/// live as long as the menu and may stand in other menus, too.
class Menu : public QMenu {
    Q_OBJECT

public:
    /// `centre` must outlive the menu.
    explicit Menu(NotificationCentre& centre, QWidget* parent = nullptr);

    /// The action of a command, with its title, shortcut and present state.
    QAction* action(ProjectNavigationMenuClickedOptions option) const;

    /// Enables the commands for a tree with or without a selected row; `deletable`: that row can be
    /// deleted.
    void setRowSelected(bool selected, bool deletable);

    /// Opens the menu without waiting: on a row with every command, elsewhere with those that need
    /// no row.
    void popupFor(bool onRow, const QPoint& globalPosition);

    /// Each posts its command.
    void newFile();
    void importFile();
    void addGroup();
    void delete_();
    void addNewProject();

private:
    void post(ProjectNavigationMenuClickedOptions option);

    NotificationCentre& m_centre;
    std::vector<QAction*> m_actions; ///< in the order of projectCommands()
};

} // namespace kestrel
