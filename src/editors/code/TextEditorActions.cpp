// SPDX-License-Identifier: MIT
#include "editors/code/TextEditorActions.h"

#include "editors/code/CodeEditorTextView.h"
#include "editors/code/FindBar.h"
#include "editors/code/GoToLineBar.h"

namespace kestrel {

namespace {

std::vector<Command> editCommands(FindBar& findBar, GoToLineBar& goToLineBar,
                                  const NameWishes& names) {
    const auto find = [&findBar, &goToLineBar] {
        goToLineBar.hide();
        findBar.open();
    };
    const auto goToLine = [&findBar, &goToLineBar] {
        findBar.hide();
        goToLineBar.open();
    };
    return {
        {.id = "findAction",
         .title = QT_TRANSLATE_NOOP("Command", "Find..."),
         .shortcuts = {Qt::CTRL | Qt::Key_F},
         .handler = find},
        {.id = "findNextAction",
         .title = QT_TRANSLATE_NOOP("Command", "Find Next"),
         .shortcuts = {Qt::Key_F3},
         .handler = [&findBar] { findBar.findNext(); }},
        {.id = "findPreviousAction",
         .title = QT_TRANSLATE_NOOP("Command", "Find Previous"),
         .shortcuts = {Qt::SHIFT | Qt::Key_F3},
         .handler = [&findBar] { findBar.findPrevious(); }},
        {.id = "goToLineAction",
         .title = QT_TRANSLATE_NOOP("Command", "Go to Line..."),
         .shortcuts = {Qt::CTRL | Qt::Key_L},
         .handler = goToLine},
        {.id = "goToDefinitionAction",
         .title = QT_TRANSLATE_NOOP("Command", "Go to Definition"),
         .shortcuts = {Qt::Key_F12},
         .handler = names.definition,
         .autoRepeat = false},
        {.id = "findUsesAction",
         .title = QT_TRANSLATE_NOOP("Command", "Find Uses"),
         .shortcuts = {Qt::SHIFT | Qt::Key_F12},
         .handler = names.uses,
         .autoRepeat = false},
    };
}

std::vector<Command> viewCommands(CodeEditorTextView& editor) {
    return {
        {.id = "zoomInAction",
         .title = QT_TRANSLATE_NOOP("Command", "Zoom In"),
         .shortcuts = {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
         .handler = [&editor] { editor.zoomBy(1); }},
        {.id = "zoomOutAction",
         .title = QT_TRANSLATE_NOOP("Command", "Zoom Out"),
         .shortcuts = {Qt::CTRL | Qt::Key_Minus},
         .handler = [&editor] { editor.zoomBy(-1); }},
        {.id = "actualSizeAction",
         .title = QT_TRANSLATE_NOOP("Command", "Actual Size"),
         .shortcuts = {Qt::CTRL | Qt::Key_0},
         .handler = [&editor] { editor.zoomToActualSize(); }},
    };
}

} // namespace

TextEditorActions::TextEditorActions(CodeEditorTextView& editor, FindBar& findBar,
                                     GoToLineBar& goToLineBar, QObject& owner,
                                     const NameWishes& names)
    : commands(owner) {
    for (Command& command : editCommands(findBar, goToLineBar, names)) {
        edit.append(commands.add(std::move(command)));
    }
    for (Command& command : viewCommands(editor)) {
        view.append(commands.add(std::move(command)));
    }
}

} // namespace kestrel
