// SPDX-License-Identifier: MIT
#include "app/MainMenu.h"

#include "app/EditMenu.h"
#include "app/PaneMenus.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/Menu.h"
#include "navigation/tree/ProjectNavigationController.h"

#include <QMenu>
#include <QMenuBar>

namespace kestrel {

MainMenu::MainMenu(QMenuBar& bar, EditorContainerController& editor, QObject* parent)
    : QObject(parent)
    , m_editor(editor) {
    static constexpr std::array<const char*, MenuTitleCount> Names = {
        "fileMenu", "editMenu", "buildMenu", "viewMenu", "helpMenu"};
    for (std::size_t i = 0; i < m_menus.size(); ++i) {
        const QString title = tr(menuText(static_cast<MenuTitle>(i)).data());
        m_menus.at(i) = bar.addMenu(title);
        m_menus.at(i)->setObjectName(QLatin1String(Names.at(i)));
        m_menus.at(i)->setAccessibleName(QString(title).remove(QLatin1Char('&')));
    }
    m_editMenu = new EditMenu(editor, menu(MenuTitle::edit), this);
    for (const MenuEntry& entry : menuEntries()) {
        add(entry);
    }
    m_paneMenus = new PaneMenus(*editor.commonController(), menu(MenuTitle::edit),
                                menu(MenuTitle::view), this);
    m_paneMenus->setSaveAction(action(WindowCommand::save));
    action(WindowCommand::quit)->setMenuRole(QAction::QuitRole);
    action(WindowCommand::about)->setMenuRole(QAction::AboutRole);
}

void MainMenu::add(const MenuEntry& entry) {
    QMenu& target = menu(entry.menu);
    if (entry.startsSection) {
        target.addSeparator();
    }
    if (const auto* option = std::get_if<ProjectNavigationMenuClickedOptions>(&entry.command)) {
        target.addAction(m_editor.projectNavigationController()->menu()->barAction(*option));
        return;
    }
    QAction* action = target.addAction(tr(entry.title.data()));
    action->setObjectName(entry.id);
    action->setShortcut(entry.shortcut);
    action->setShortcutContext(entry.context);
    if (const auto* edit = std::get_if<EditCommand>(&entry.command)) {
        m_editMenu->add(*edit, action);
        return;
    }
    // Held down, a key builds or saves once.
    action->setAutoRepeat(false);
    m_windowActions.insert(std::get<WindowCommand>(entry.command), action);
}

} // namespace kestrel
