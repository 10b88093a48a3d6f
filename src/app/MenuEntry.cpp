// SPDX-License-Identifier: MIT
#include "app/MenuEntry.h"

#include <array>

namespace kestrel {

namespace {

using Project = ProjectNavigationMenuClickedOptions;

MenuEntry projectEntry(Project command, bool startsSection) {
    return {MenuTitle::file, command, startsSection, {}, {}, {}, Qt::WindowShortcut};
}

MenuEntry editEntry(EditCommand command, const char* id, const char* title,
                    QKeySequence::StandardKey shortcut, bool startsSection = false) {
    return {MenuTitle::edit,      command,
            startsSection,        QLatin1String(id),
            QLatin1String(title), QKeySequence(shortcut),
            Qt::WindowShortcut};
}

MenuEntry entry(MenuTitle menu, WindowCommand command, const char* id, const char* title,
                const QKeySequence& shortcut, Qt::ShortcutContext context,
                bool startsSection = false) {
    return {menu,     command, startsSection, QLatin1String(id), QLatin1String(title),
            shortcut, context};
}

} // namespace

QLatin1String menuText(MenuTitle menu) {
    static constexpr std::array<const char*, MenuTitleCount> Texts = {"&File", "&Edit", "&Build",
                                                                      "&View", "&Help"};
    return QLatin1String(Texts.at(static_cast<std::size_t>(menu)));
}

std::span<const MenuEntry> menuEntries() {
    constexpr auto Here = Qt::WindowShortcut;
    constexpr auto Everywhere = Qt::ApplicationShortcut;
    static const std::array entries = {
        projectEntry(Project::newProject, false),
        entry(MenuTitle::file, WindowCommand::openProject, "openProjectAction", "&Open Project...",
              QKeySequence(QKeySequence::Open), Here),
        projectEntry(Project::newFile, true),
        projectEntry(Project::newGroup, false),
        projectEntry(Project::importFile, false),
        entry(MenuTitle::file, WindowCommand::save, "saveAction", "&Save",
              QKeySequence(QKeySequence::Save), Here, true),
        projectEntry(Project::delete_, true),
        entry(MenuTitle::file, WindowCommand::quit, "quitAction", "&Quit",
              QKeySequence(Qt::CTRL | Qt::Key_Q), Everywhere, true),
        editEntry(EditCommand::undo, "undoAction", "&Undo", QKeySequence::Undo),
        editEntry(EditCommand::redo, "redoAction", "&Redo", QKeySequence::Redo),
        editEntry(EditCommand::cut, "cutAction", "Cu&t", QKeySequence::Cut, true),
        editEntry(EditCommand::copy, "copyAction", "&Copy", QKeySequence::Copy),
        editEntry(EditCommand::paste, "pasteAction", "&Paste", QKeySequence::Paste),
        editEntry(EditCommand::selectAll, "selectAllAction", "Select &All", QKeySequence::SelectAll,
                  true),
        entry(MenuTitle::build, WindowCommand::build, "buildAction", "&Build",
              QKeySequence(Qt::CTRL | Qt::Key_B), Everywhere),
        entry(MenuTitle::build, WindowCommand::run, "runAction", "&Run",
              QKeySequence(Qt::CTRL | Qt::Key_R), Everywhere),
        entry(MenuTitle::view, WindowCommand::console, "consoleAction", "&Console",
              QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), Here),
        entry(MenuTitle::view, WindowCommand::nextPane, "nextPaneAction",
              "&Next Part of the Window", QKeySequence(Qt::Key_F6), Here),
        entry(MenuTitle::help, WindowCommand::userGuide, "userGuideAction", "&User Guide",
              QKeySequence(QKeySequence::HelpContents), Everywhere),
        entry(MenuTitle::help, WindowCommand::about, "aboutAction", "&About Kestrel", {}, Here,
              true),
    };
    return entries;
}

} // namespace kestrel
