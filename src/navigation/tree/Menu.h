// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"
#include "widgets/CommandSet.h"

#include <QMenu>
#include <QPointer>

namespace kestrel {

class NotificationCentre;
class OutlineView;

/// The navigation tree's context menu. Its entries do nothing themselves: each posts
/// ProjectNavigationMenuClicked with the command's ProjectNavigationMenuClickedOptions. The actions
/// live as long as the menu and may stand in other menus, too, but for Delete, which has one of its
/// own for them and for the key.
class Menu : public QMenu {
    Q_OBJECT

public:
    /// `centre` must outlive the menu.
    explicit Menu(NotificationCentre& centre, QWidget* parent = nullptr);

    /// The action of a command, with its title, shortcut and present state.
    QAction* action(ProjectNavigationMenuClickedOptions option) const;

    /// The commands as the menu bar has them, in the order of projectCommands(). Its Delete, which
    /// the key has, too, posts only when the outline view's selected row is in sight, and otherwise
    /// brings it there.
    const CommandSet& commands() const { return m_commands; }

    /// Whose selected row the commands are about. It gets the key of Delete.
    void setOutlineView(OutlineView* outlineView);

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
    void carryOut(ProjectNavigationMenuClickedOptions option);
    void deleteRowInSight();
    void post(ProjectNavigationMenuClickedOptions option);

    NotificationCentre& m_centre;
    CommandSet m_commands{*this};
    QAction* m_delete = nullptr; ///< the context menu's own
    QAction* m_deleteRowInSight = nullptr;
    QPointer<OutlineView> m_outlineView;
};

} // namespace kestrel
