// SPDX-License-Identifier: MIT
#include "app/EditMenu.h"

#include "app/EditOperations.h"
#include "drafts/UnsavedWork.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/EditorPane.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

namespace kestrel {

EditMenu::EditMenu(EditorContainerController& editor, QMenu& menu, QObject* parent)
    : QObject(parent)
    , m_editor(editor) {
    addCommands();
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*old*/, QWidget* now) { focusChanged(now); });
    // What cannot act is grey only while the menu is open: a shortcut asks when it is pressed.
    connect(&menu, &QMenu::aboutToShow, this, &EditMenu::showAvailability);
    connect(&menu, &QMenu::aboutToHide, this, &EditMenu::enableAll);
}

void EditMenu::addCommands() {
    const auto add = [this](EditCommand command, const char* id, const char* title,
                            QKeySequence::StandardKey shortcut) {
        m_actions.emplace_back(command,
                               m_commands.add({.id = id,
                                               .title = title,
                                               .shortcuts = {shortcut},
                                               .handler = [this, command] { perform(command); }}));
    };
    add(EditCommand::undo, "undoAction", QT_TRANSLATE_NOOP("Command", "&Undo"), QKeySequence::Undo);
    add(EditCommand::redo, "redoAction", QT_TRANSLATE_NOOP("Command", "&Redo"), QKeySequence::Redo);
    m_bringBack =
        m_commands.add({.id = "bringBackAction",
                        .title = QT_TRANSLATE_NOOP("Command", "&Bring Back Unsaved Changes"),
                        .handler = [this] { bringBack(); }});
    add(EditCommand::cut, "cutAction", QT_TRANSLATE_NOOP("Command", "Cu&t"), QKeySequence::Cut);
    add(EditCommand::copy, "copyAction", QT_TRANSLATE_NOOP("Command", "&Copy"), QKeySequence::Copy);
    add(EditCommand::paste, "pasteAction", QT_TRANSLATE_NOOP("Command", "&Paste"),
        QKeySequence::Paste);
    add(EditCommand::selectAll, "selectAllAction", QT_TRANSLATE_NOOP("Command", "Select &All"),
        QKeySequence::SelectAll);
}

void EditMenu::focusChanged(QWidget* now) {
    const bool inMenus =
        qobject_cast<QMenuBar*>(now) != nullptr || qobject_cast<QMenu*>(now) != nullptr;
    if (now != nullptr && !inMenus && now->window() == m_editor.window()) {
        m_focused = now;
    }
}

bool EditMenu::treeHasFocus() const {
    const ProjectNavigationController* tree = m_editor.projectNavigationController();
    return tree != nullptr && m_focused && tree->isAncestorOf(m_focused);
}

bool EditMenu::canPerform(EditCommand command) const {
    if (treeHasFocus()) {
        return command == EditCommand::undo && m_editor.canUndoDelete();
    }
    return m_focused && m_focused->isVisible() &&
           (canEdit(m_focused, command) || (command == EditCommand::undo && undoBringsBack()));
}

void EditMenu::perform(EditCommand command) {
    if (!canPerform(command)) {
        return;
    }
    if (treeHasFocus()) {
        m_editor.undoDelete();
    } else if (canEdit(m_focused, command)) {
        edit(m_focused, command);
    } else {
        bringBack();
    }
}

bool EditMenu::undoBringsBack() const {
    const QWidget* pane = m_editor.commonController()->currentWidget();
    const UnsavedWork* work = shownWork();
    return work != nullptr && work->undoBringsBack() && pane->isAncestorOf(m_focused) &&
           qobject_cast<QLineEdit*>(m_focused) == nullptr; // a bar's field has its own history
}

void EditMenu::bringBack() {
    if (UnsavedWork* work = shownWork()) {
        work->bringBack();
    }
}

UnsavedWork* EditMenu::shownWork() const {
    EditorPane* pane = m_editor.commonController()->shownEditorPane();
    return pane != nullptr ? pane->unsavedWork() : nullptr;
}

void EditMenu::showAvailability() {
    for (const auto& [command, action] : m_actions) {
        action->setEnabled(canPerform(command));
    }
    const UnsavedWork* work = shownWork();
    m_bringBack->setEnabled(work != nullptr && work->offer());
}

void EditMenu::enableAll() {
    for (const auto& [command, action] : m_actions) {
        action->setEnabled(true);
    }
    m_bringBack->setEnabled(true);
}

} // namespace kestrel
