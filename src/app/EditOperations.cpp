// SPDX-License-Identifier: MIT
#include "app/EditOperations.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextEdit>

namespace kestrel {

namespace {

bool canEditLine(const QLineEdit& line, EditCommand command) {
    const bool readable = line.echoMode() == QLineEdit::Normal;
    switch (command) {
    case EditCommand::undo:
        return line.isUndoAvailable() && !line.isReadOnly();
    case EditCommand::redo:
        return line.isRedoAvailable() && !line.isReadOnly();
    case EditCommand::cut:
        return line.hasSelectedText() && readable && !line.isReadOnly();
    case EditCommand::copy:
        return line.hasSelectedText() && readable;
    case EditCommand::paste:
        return !line.isReadOnly() && !QGuiApplication::clipboard()->text().isEmpty();
    case EditCommand::selectAll:
        return !line.text().isEmpty();
    }
    return false;
}

template<typename TextView> bool canEditText(const TextView& view, EditCommand command) {
    switch (command) {
    case EditCommand::undo:
        return !view.isReadOnly() && view.document()->isUndoAvailable();
    case EditCommand::redo:
        return !view.isReadOnly() && view.document()->isRedoAvailable();
    case EditCommand::cut:
        return !view.isReadOnly() && view.textCursor().hasSelection();
    case EditCommand::copy:
        return view.textCursor().hasSelection();
    case EditCommand::paste:
        return view.canPaste();
    case EditCommand::selectAll:
        return !view.document()->isEmpty();
    }
    return false;
}

/// Line edits and text views name these operations alike.
template<typename View> void editText(View& view, EditCommand command) {
    switch (command) {
    case EditCommand::undo:
        return view.undo();
    case EditCommand::redo:
        return view.redo();
    case EditCommand::cut:
        return view.cut();
    case EditCommand::copy:
        return view.copy();
    case EditCommand::paste:
        return view.paste();
    case EditCommand::selectAll:
        return view.selectAll();
    }
}

EditTarget* editTargetOf(QWidget* focused) {
    for (QWidget* widget = focused; widget != nullptr; widget = widget->parentWidget()) {
        if (auto* target = dynamic_cast<EditTarget*>(widget)) {
            return target;
        }
        if (widget->isWindow()) {
            break;
        }
    }
    return nullptr;
}

const EditTarget* editTargetOf(const QWidget* focused) {
    for (const QWidget* widget = focused; widget != nullptr; widget = widget->parentWidget()) {
        if (const auto* target = dynamic_cast<const EditTarget*>(widget)) {
            return target;
        }
        if (widget->isWindow()) {
            break;
        }
    }
    return nullptr;
}

} // namespace

bool canEdit(const QWidget* focused, EditCommand command) {
    // What a widget itself offers takes precedence over what its Qt base class can do.
    if (const auto* own = dynamic_cast<const EditTarget*>(focused)) {
        return own->canPerform(command);
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(focused)) {
        return canEditLine(*line, command);
    }
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(focused)) {
        return canEditText(*plain, command);
    }
    if (const auto* text = qobject_cast<const QTextEdit*>(focused)) {
        return canEditText(*text, command);
    }
    const EditTarget* target = editTargetOf(focused);
    return target != nullptr && target->canPerform(command);
}

void edit(QWidget* focused, EditCommand command) {
    if (!canEdit(focused, command)) {
        return;
    }
    if (auto* own = dynamic_cast<EditTarget*>(focused)) {
        own->perform(command);
    } else if (auto* line = qobject_cast<QLineEdit*>(focused)) {
        editText(*line, command);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(focused)) {
        editText(*plain, command);
    } else if (auto* text = qobject_cast<QTextEdit*>(focused)) {
        editText(*text, command);
    } else if (EditTarget* target = editTargetOf(focused)) {
        target->perform(command);
    }
}

} // namespace kestrel
