// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/EditTarget.h"

#include <QAction>
#include <QObject>
#include <QPointer>

#include <utility>
#include <vector>

class QMenu;

namespace kestrel {

class EditorContainerController;

/// The Edit menu's standard commands: they act on whatever has the focus in the main window, or had
/// it before a menu took it. In the navigation tree Undo brings back what was deleted last.
class EditMenu : public QObject {
    Q_OBJECT

public:
    /// Watches `menu`, in which the actions stand. `editor` must stand in its window and outlive
    /// this.
    EditMenu(EditorContainerController& editor, QMenu& menu, QObject* parent);

    /// Makes `action` carry out `command`.
    void add(EditCommand command, QAction* action);

    /// Whether the command can act now.
    bool canPerform(EditCommand command) const;
    void perform(EditCommand command);

private:
    void focusChanged(QWidget* now);
    bool treeHasFocus() const;
    void showAvailability();
    void enableAll();

    EditorContainerController& m_editor;
    QPointer<QWidget> m_focused;
    std::vector<std::pair<EditCommand, QPointer<QAction>>> m_actions;
};

} // namespace kestrel
