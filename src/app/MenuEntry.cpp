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
        {"newProjectAction", MenuTitle::file},
        {"openProjectAction", MenuTitle::file},
        {"newFileAction", MenuTitle::file, true},
        {"newGroupAction", MenuTitle::file},
        {"importFileAction", MenuTitle::file},
        {"saveAction", MenuTitle::file, true},
        {"deleteRowInSightAction", MenuTitle::file, true},
        {"quitAction", MenuTitle::file, true},
        {"undoAction", MenuTitle::edit},
        {"redoAction", MenuTitle::edit},
        {"bringBackAction", MenuTitle::edit},
        {"cutAction", MenuTitle::edit, true},
        {"copyAction", MenuTitle::edit},
        {"pasteAction", MenuTitle::edit},
        {"selectAllAction", MenuTitle::edit, true},
        {"buildAction", MenuTitle::build},
        {"runAction", MenuTitle::build},
        {"saveAndBuildAction", MenuTitle::build},
        {"stopAction", MenuTitle::build},
        {"nextProblemAction", MenuTitle::build, true},
        {"previousProblemAction", MenuTitle::build},
        {"consoleAction", MenuTitle::view},
        {"memoryAction", MenuTitle::view},
        {"nextPaneAction", MenuTitle::view},
        {"userGuideAction", MenuTitle::help},
        {"aboutAction", MenuTitle::help, true},
    };
    return Entries;
}

} // namespace kestrel
