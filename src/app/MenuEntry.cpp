// SPDX-License-Identifier: MIT
#include "app/MenuEntry.h"

#include <QCoreApplication>

#include <array>

namespace kestrel {

QString titleOf(MenuTitle menu) {
    static constexpr std::array<const char*, MenuTitleCount> Titles = {
        QT_TRANSLATE_NOOP("MenuTitle", "&File"), QT_TRANSLATE_NOOP("MenuTitle", "&Edit"),
        QT_TRANSLATE_NOOP("MenuTitle", "&Build"), QT_TRANSLATE_NOOP("MenuTitle", "&View"),
        QT_TRANSLATE_NOOP("MenuTitle", "&Help")};
    return QCoreApplication::translate("MenuTitle", Titles.at(static_cast<std::size_t>(menu)));
}

std::span<const MenuEntry> menuEntries() {
    static constexpr MenuEntry Entries[] = {
        {MenuTitle::file, "newProjectAction"},
        {MenuTitle::file, "openProjectAction"},
        {MenuTitle::file, "newFileAction", true},
        {MenuTitle::file, "newGroupAction"},
        {MenuTitle::file, "importFileAction"},
        {MenuTitle::file, "saveAction", true},
        {MenuTitle::file, "deleteRowInSightAction", true},
        {MenuTitle::file, "quitAction", true},
        {MenuTitle::edit, "undoAction"},
        {MenuTitle::edit, "redoAction"},
        {MenuTitle::edit, "cutAction", true},
        {MenuTitle::edit, "copyAction"},
        {MenuTitle::edit, "pasteAction"},
        {MenuTitle::edit, "selectAllAction", true},
        {MenuTitle::build, "buildAction"},
        {MenuTitle::build, "runAction"},
        {MenuTitle::view, "consoleAction"},
        {MenuTitle::view, "nextPaneAction"},
        {MenuTitle::help, "userGuideAction"},
        {MenuTitle::help, "aboutAction", true},
    };
    return Entries;
}

} // namespace kestrel
