// SPDX-License-Identifier: MIT
#include "navigation/tree/Menu.h"

#include "navigation/tree/NotificationCentre.h"
#include "navigation/tree/ProjectCommand.h"

#include <any>

namespace kestrel {

Menu::Menu(NotificationCentre& centre, QWidget* parent)
    : QMenu(parent)
    , m_centre(centre) {
    setObjectName(QStringLiteral("projectNavigationMenu"));
    setAccessibleName(tr("Project commands"));
    for (const ProjectCommand& command : projectCommands()) {
        auto* action = new QAction(tr(command.title.data()), this);
        action->setObjectName(command.id);
        action->setShortcut(command.shortcut);
        action->setShortcutVisibleInContextMenu(true);
        // A command is carried out once however long its keys are held.
        action->setAutoRepeat(false);
        const ProjectNavigationMenuClickedOptions option = command.option;
        // Not with the menu as receiver: a menu cuts all connections of an action taken out of it.
        connect(action, &QAction::triggered, action, [this, option] {
            switch (option) {
            case ProjectNavigationMenuClickedOptions::newFile:
                return newFile();
            case ProjectNavigationMenuClickedOptions::importFile:
                return importFile();
            case ProjectNavigationMenuClickedOptions::newGroup:
                return addGroup();
            case ProjectNavigationMenuClickedOptions::newProject:
                return addNewProject();
            case ProjectNavigationMenuClickedOptions::delete_:
                return delete_();
            }
        });
        m_actions.push_back(action);
    }
    // In the menu bar, too, Delete acts only for the widget that it was added to: the tree.
    action(ProjectNavigationMenuClickedOptions::delete_)->setShortcutContext(Qt::WidgetShortcut);
    setRowSelected(false, false);
}

QAction* Menu::action(ProjectNavigationMenuClickedOptions option) const {
    const auto& commands = projectCommands();
    std::size_t place = 0;
    while (commands.at(place).option != option) {
        ++place;
    }
    return m_actions.at(place);
}

void Menu::setRowSelected(bool selected, bool deletable) {
    for (const ProjectCommand& command : projectCommands()) {
        action(command.option)->setEnabled(selected || !command.needsSelectedRow);
    }
    action(ProjectNavigationMenuClickedOptions::delete_)->setEnabled(selected && deletable);
}

void Menu::popupFor(bool onRow, const QPoint& globalPosition) {
    if (isVisible()) {
        return;
    }
    const QList<QAction*> present = actions();
    for (QAction* entry : present) {
        removeAction(entry);
        if (entry->isSeparator()) {
            entry->deleteLater();
        }
    }
    for (const ProjectCommand& command : projectCommands()) {
        if (!onRow && !command.onEmptyArea) {
            continue;
        }
        if (command.startsSection) {
            addSeparator();
        }
        addAction(action(command.option));
    }
    popup(globalPosition);
}

void Menu::newFile() {
    post(ProjectNavigationMenuClickedOptions::newFile);
}

void Menu::importFile() {
    post(ProjectNavigationMenuClickedOptions::importFile);
}

void Menu::addGroup() {
    post(ProjectNavigationMenuClickedOptions::newGroup);
}

void Menu::delete_() {
    post(ProjectNavigationMenuClickedOptions::delete_);
}

void Menu::addNewProject() {
    post(ProjectNavigationMenuClickedOptions::newProject);
}

void Menu::post(ProjectNavigationMenuClickedOptions option) {
    m_centre.post(ProjectNavigationMenuClicked, std::any(option));
}

} // namespace kestrel
