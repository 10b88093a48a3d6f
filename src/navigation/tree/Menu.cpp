// SPDX-License-Identifier: MIT
#include "navigation/tree/Menu.h"

#include "navigation/tree/NotificationCentre.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectCommand.h"

#include <any>
#include <utility>

namespace kestrel {

Menu::Menu(NotificationCentre& centre, QWidget* parent)
    : QMenu(parent)
    , m_centre(centre) {
    setObjectName(QStringLiteral("projectNavigationMenu"));
    setAccessibleName(tr("Project commands"));
    for (const ProjectCommand& row : projectCommands()) {
        Command command = row.command;
        command.handler = [this, option = row.option] { carryOut(option); };
        if (row.option == ProjectNavigationMenuClickedOptions::delete_) {
            m_delete = makeAction(command, *this);
        } else {
            m_commands.add(std::move(command));
        }
        action(row.option)->setShortcutVisibleInContextMenu(true);
    }
    // The key belongs to the other Delete, and acts only in the widget that has that one: the tree.
    // In the context menu it is only shown.
    Command inSight = deleteRowInSightCommand();
    inSight.handler = [this] { deleteRowInSight(); };
    m_deleteRowInSight = m_commands.add(std::move(inSight));
    m_deleteRowInSight->setShortcutVisibleInContextMenu(true);
    setRowSelected(false, false);
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
    if (option == ProjectNavigationMenuClickedOptions::delete_) {
        return m_delete;
    }
    const auto& rows = projectCommands();
    std::size_t place = 0;
    while (rows.at(place).option != option) {
        ++place;
    }
    return m_commands.action(rows.at(place).command.id);
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

/// Does not delete a row that is not visible, which the user may not mean: scrolls to it instead.
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
