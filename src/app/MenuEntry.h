// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <span>
#include <string_view>

namespace kestrel {

/// The menus of the menu bar, in their order.
enum class MenuTitle { file, edit, build, view, help };
inline constexpr int MenuTitleCount = 5;

/// One entry of the menu bar: which command is in which menu.
struct MenuEntry {
    std::string_view command; ///< its id
    MenuTitle menu;
    bool startsSection = false; ///< a separator is above it
};

/// The title of a menu in the user's language, with its mnemonic.
QString titleOf(MenuTitle menu);

/// All entries, those of one menu in its order.
std::span<const MenuEntry> menuEntries();

} // namespace kestrel
