// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/CommandSet.h"
#include "widgets/EditTarget.h"

#include <QObject>
#include <QPointer>

#include <utility>
#include <vector>

class QAction;
class QMenu;

namespace kestrel {

class EditorContainerController;
class UnsavedWork;

/// The Edit menu's standard commands: they act on the widget that has the focus in the main window,
/// or that had it before a menu took it. In the navigation tree Undo brings back what was deleted
/// last; in a pane whose file has just been shown, the unsaved changes that were kept of it.
class EditMenu : public QObject {
    Q_OBJECT

public:
    /// Makes the commands and watches `menu`, which is to show them. `editor` must be in its window
    /// and outlive this.
    EditMenu(EditorContainerController& editor, QMenu& menu, QObject* parent);

    const CommandSet& commands() const { return m_commands; }

    /// Whether the command can act now.
    bool canPerform(EditCommand command) const;
    void perform(EditCommand command);

private:
    void addCommands();
    void focusChanged(QWidget* now);
    bool treeHasFocus() const;
    UnsavedWork* shownWork() const;
    bool undoBringsBack() const;
    void bringBack();
    void showAvailability();
    void enableAll();

    EditorContainerController& m_editor;
    QPointer<QWidget> m_focused;
    CommandSet m_commands{*this};
    std::vector<std::pair<EditCommand, QAction*>> m_actions;
    QAction* m_bringBack = nullptr;
};

} // namespace kestrel
