// SPDX-License-Identifier: MIT
#include "app/MainMenu.h"

#include "app/EditMenu.h"
#include "app/PaneMenus.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/Menu.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/EditorPane.h"

#include <QMenuBar>

namespace kestrel {

MainMenu::MainMenu(QMenuBar& bar, EditorContainerController& editor,
                   const CommandSet& windowCommands, QObject* parent)
    : QObject(parent)
    , m_editor(editor) {
    static constexpr std::array<const char*, MenuTitleCount> Names = {
        "fileMenu", "editMenu", "buildMenu", "viewMenu", "helpMenu"};
    for (std::size_t i = 0; i < m_menus.size(); ++i) {
        const QString title = titleOf(static_cast<MenuTitle>(i));
        m_menus.at(i) = bar.addMenu(title);
        m_menus.at(i)->setObjectName(QLatin1String(Names.at(i)));
        m_menus.at(i)->setAccessibleName(QString(title).remove(QLatin1Char('&')));
    }
    const auto* editMenu = new EditMenu(editor, menu(MenuTitle::edit), this);
    m_commands = {&editor.projectNavigationController()->menu()->commands(), &windowCommands,
                  &editMenu->commands()};
    for (const MenuEntry& entry : menuEntries()) {
        QMenu& target = menu(entry.menu);
        if (entry.startsSection) {
            target.addSeparator();
        }
        target.addAction(action(entry.command));
    }
    new PaneMenus(*editor.commonController(), menu(MenuTitle::edit), menu(MenuTitle::view),
                  *action("saveAction"), this);
}

QAction* MainMenu::action(std::string_view id) const {
    for (const CommandSet* commands : m_commands) {
        if (QAction* found = commands->action(id)) {
            return found;
        }
    }
    return nullptr;
}

std::vector<const CommandSet::Entry*> MainMenu::commands() const {
    std::vector<const CommandSet*> sets = m_commands;
    for (const EditorPane* pane : m_editor.commonController()->editorPanes()) {
        if (const CommandSet* commands = pane->commands()) {
            sets.push_back(commands);
        }
    }
    std::vector<const CommandSet::Entry*> entries;
    for (const CommandSet* commands : sets) {
        for (const CommandSet::Entry& entry : commands->entries()) {
            entries.push_back(&entry);
        }
    }
    return entries;
}

} // namespace kestrel
