// SPDX-License-Identifier: MIT
#pragma once

#include "app/MenuEntry.h"
#include "widgets/CommandSet.h"

#include <QObject>

#include <array>
#include <string_view>
#include <vector>

class QMenu;
class QMenuBar;

namespace kestrel {

class EditorContainerController;

/// The menu bar, made from the table of its entries. The navigation tree's commands are the very
/// actions of its context menu. Knows every command of the window.
class MainMenu : public QObject {
    Q_OBJECT

public:
    /// Fills `bar`. `editor`, which must have its tree and panes, and the window's own commands
    /// must outlive the menus.
    MainMenu(QMenuBar& bar, EditorContainerController& editor, const CommandSet& windowCommands,
             QObject* parent);

    /// The action of a command in the menu bar's own entries; null when there is none of this id.
    QAction* action(std::string_view id) const;

    /// Every command of the window: those of the menu bar, then those of each pane, shown or not.
    /// An id may be in two panes, for what is the same command there.
    std::vector<const CommandSet::Entry*> commands() const;

private:
    QMenu& menu(MenuTitle title) const { return *m_menus.at(static_cast<std::size_t>(title)); }

    EditorContainerController& m_editor;
    std::array<QMenu*, MenuTitleCount> m_menus{};
    std::vector<const CommandSet*> m_commands;
};

} // namespace kestrel
