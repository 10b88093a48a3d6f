// SPDX-License-Identifier: MIT
#include "navigation/tree/ProjectCommand.h"

namespace kestrel {

namespace {

/// Triggered once, however long its keys are held.
Command once(const char* id, const char* title, const QKeySequence& shortcut,
             Qt::ShortcutContext context = Qt::WindowShortcut) {
    return {.id = id,
            .title = title,
            .shortcuts = {shortcut},
            .autoRepeat = false,
            .shortcutContext = context};
}

/// Its key acts only in the widget that its action was added to: the tree.
Command deleteCommand(const char* id) {
    return once(id, QT_TRANSLATE_NOOP("Command", "&Delete"), QKeySequence::Delete,
                Qt::WidgetShortcut);
}

} // namespace

const std::array<ProjectCommand, ProjectCommandCount>& projectCommands() {
    using Option = ProjectNavigationMenuClickedOptions;
    static const std::array<ProjectCommand, ProjectCommandCount> commands = {{
        {.option = Option::newProject,
         .command = once("newProjectAction", QT_TRANSLATE_NOOP("Command", "New &Project..."),
                         Qt::CTRL | Qt::SHIFT | Qt::Key_N),
         .onEmptyArea = true,
         .needsSelectedRow = false,
         .startsSection = false},
        {.option = Option::newFile,
         .command =
             once("newFileAction", QT_TRANSLATE_NOOP("Command", "New &File..."), QKeySequence::New),
         .onEmptyArea = false,
         .needsSelectedRow = true,
         .startsSection = false},
        {.option = Option::newGroup,
         .command = once("newGroupAction", QT_TRANSLATE_NOOP("Command", "New &Group"),
                         Qt::CTRL | Qt::SHIFT | Qt::Key_G),
         .onEmptyArea = false,
         .needsSelectedRow = true,
         .startsSection = false},
        {.option = Option::importFile,
         .command = once("importFileAction", QT_TRANSLATE_NOOP("Command", "&Import File..."),
                         Qt::CTRL | Qt::Key_I),
         .onEmptyArea = false,
         .needsSelectedRow = true,
         .startsSection = true},
        {.option = Option::delete_,
         .command = deleteCommand("deleteAction"),
         .onEmptyArea = false,
         .needsSelectedRow = true,
         .startsSection = true},
    }};
    return commands;
}

Command deleteRowInSightCommand() {
    return deleteCommand("deleteRowInSightAction");
}

} // namespace kestrel
