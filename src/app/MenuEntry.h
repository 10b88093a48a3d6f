// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"
#include "widgets/EditTarget.h"

#include <QKeySequence>
#include <QLatin1String>

#include <span>
#include <variant>

namespace kestrel {

/// The menus of the menu bar, in their order.
enum class MenuTitle { file, edit, build, view, help };
inline constexpr int MenuTitleCount = 5;

/// What the window itself can be asked for.
enum class WindowCommand {
    openProject,
    save,
    quit,
    build,
    run,
    console,
    nextPane,
    userGuide,
    about,
};

/// One entry of the menu bar.
struct MenuEntry {
    MenuTitle menu;
    /// A command of the navigation tree, of what has the focus, or of the window.
    std::variant<ProjectNavigationMenuClickedOptions, EditCommand, WindowCommand> command;
    bool startsSection; ///< a separator stands above it
    // The tree's commands bring these with them.
    QLatin1String id; ///< the action's object name
    QLatin1String title;
    QKeySequence shortcut;
    /// Whether the shortcut acts in the console's window, too.
    Qt::ShortcutContext context;
};

/// The texts of the menus themselves, by MenuTitle.
QLatin1String menuText(MenuTitle menu);

/// All entries, those of one menu in its order.
std::span<const MenuEntry> menuEntries();

} // namespace kestrel
