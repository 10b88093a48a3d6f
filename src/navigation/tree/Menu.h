// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"
#include "widgets/CommandSet.h"

#include <QMenu>
#include <QPointer>

namespace kestrel {

class NotificationCentre;
class OutlineView;

/// The navigation tree's context menu. Each entry posts ProjectNavigationMenuClicked with its
/// command's ProjectNavigationMenuClickedOptions. The menu owns the actions; other menus may use
/// them too, except Delete, which has a second action for them and for the key.
class Menu : public QMenu {
    Q_OBJECT

public:
    /// `centre` must outlive the menu.
    explicit Menu(NotificationCentre& centre, QWidget* parent = nullptr);

    /// The action of a command.
    QAction* action(ProjectNavigationMenuClickedOptions option) const;

    /// The commands as the menu bar has them, in the order of projectCommands(). Its Delete, which
    /// the key has, too, posts only when the selected row is visible, and else scrolls to it.
    const CommandSet& commands() const { return m_commands; }

    /// Sets the view whose selected row the commands apply to. It gets the key of Delete.
    void setOutlineView(OutlineView* outlineView);

    /// Enables the commands for a tree with or without a selected row. `deletable` is whether that
    /// row can be deleted.
    void setRowSelected(bool selected, bool deletable);

    /// Opens the menu without waiting for its end, with every command on a row, else with those
    /// that need no row.
    void popupFor(bool onRow, const QPoint& globalPosition);

    /// Post the commands.
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
