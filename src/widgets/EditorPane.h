// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/StatusBoard.h"

#include <QList>
#include <QPointer>

class QAction;

namespace kestrel {

class CommandSet;
class UnsavedWork;

/// A pane with a file to save, or with commands of its own for the window's menus.
class EditorPane {
public:
    EditorPane() = default;
    EditorPane(const EditorPane&) = delete;
    EditorPane& operator=(const EditorPane&) = delete;
    virtual ~EditorPane() = default;

    /// Where the pane tells what the status bar is to show; it tells nobody before.
    void setStatusBoard(StatusBoard* board) { m_statusBoard = board; }

    /// Saves what the pane shows, at once. Only called while the pane is the visible one.
    virtual void savePane() {}

    /// The part of the pane that is worked in, which gets the focus when the pane is entered as a
    /// whole; null where that is the first part that takes the Tab key.
    virtual QWidget* workPlace() const { return nullptr; }

    /// What of the pane's content is not saved; null for a pane that saves nothing.
    virtual UnsavedWork* unsavedWork() { return nullptr; }

    /// The pane's own commands; null when it has none.
    virtual const CommandSet* commands() const { return nullptr; }

    /// Their actions in the Edit menu, in order, separators included; the same on every call, owned
    /// by the pane. They are at the end of the menu while the pane is shown. Their shortcuts act
    /// while the pane is shown, so a row of tools in the pane may hold the very same actions, but
    /// no copies.
    virtual QList<QAction*> editActions() const { return {}; }

    /// The same for the View menu (zoom, grids).
    virtual QList<QAction*> viewActions() const { return {}; }

protected:
    void setStatus(StatusField field, const QString& text) const {
        if (m_statusBoard) {
            m_statusBoard->setText(field, text);
        }
    }

private:
    QPointer<StatusBoard> m_statusBoard;
};

} // namespace kestrel
