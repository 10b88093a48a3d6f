// SPDX-License-Identifier: MIT
#include "navigation/tree/Menu.h"

#include "navigation/tree/NotificationCentre.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectCommand.h"

#include <any>

namespace kestrel {

Menu::Menu(NotificationCentre& centre, QWidget* parent)
    : QMenu(parent)
    , m_centre(centre) {
    setObjectName(QStringLiteral("projectNavigationMenu"));
    setAccessibleName(tr("Project commands"));
    for (const ProjectCommand& command : projectCommands()) {
        QAction* action = makeAction(command);
        const ProjectNavigationMenuClickedOptions option = command.option;
        // Not with the menu as receiver: a menu cuts all connections of an action taken out of it.
        connect(action, &QAction::triggered, action, [this, option] { carryOut(option); });
        m_actions.push_back(action);
        if (option == ProjectNavigationMenuClickedOptions::delete_) {
            // The key belongs to the other Delete, and acts only in the widget that has that one:
            // the tree. Here it is only shown.
            action->setShortcutContext(Qt::WidgetShortcut);
            m_deleteRowInSight = makeAction(command);
            m_deleteRowInSight->setObjectName(QStringLiteral("deleteRowInSightAction"));
            m_deleteRowInSight->setShortcutContext(Qt::WidgetShortcut);
        }
    }
    connect(m_deleteRowInSight, &QAction::triggered, m_deleteRowInSight,
            [this] { deleteRowInSight(); });
    setRowSelected(false, false);
}

QAction* Menu::makeAction(const ProjectCommand& command) {
    auto* action = new QAction(tr(command.title.data()), this);
    action->setObjectName(command.id);
    action->setShortcut(command.shortcut);
    action->setShortcutVisibleInContextMenu(true);
    // A command is carried out once however long its keys are held.
    action->setAutoRepeat(false);
    return action;
}

void Menu::carryOut(ProjectNavigationMenuClickedOptions option) {
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
}

QAction* Menu::action(ProjectNavigationMenuClickedOptions option) const {
    const auto& commands = projectCommands();
    std::size_t place = 0;
    while (commands.at(place).option != option) {
        ++place;
    }
    return m_actions.at(place);
}

QAction* Menu::barAction(ProjectNavigationMenuClickedOptions option) const {
    return option == ProjectNavigationMenuClickedOptions::delete_ ? m_deleteRowInSight
                                                                  : action(option);
}

void Menu::setOutlineView(OutlineView* outlineView) {
    m_outlineView = outlineView;
    outlineView->addAction(m_deleteRowInSight);
}

void Menu::setRowSelected(bool selected, bool deletable) {
    for (const ProjectCommand& command : projectCommands()) {
        action(command.option)->setEnabled(selected || !command.needsSelectedRow);
    }
    action(ProjectNavigationMenuClickedOptions::delete_)->setEnabled(selected && deletable);
    m_deleteRowInSight->setEnabled(selected && deletable);
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

/// What nobody sees is not deleted: somebody would miss it only later, if at all.
void Menu::deleteRowInSight() {
    const QModelIndex row = m_outlineView ? m_outlineView->selectedIndex() : QModelIndex();
    if (row.isValid() && !m_outlineView->isInSight(row)) {
        m_outlineView->scrollTo(row);
    } else {
        delete_();
    }
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
