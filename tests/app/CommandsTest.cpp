// SPDX-License-Identifier: MIT

#include "app/MainMenu.h"
#include "app/MenuEntry.h"
#include "app/WindowFixture.h"
#include "editors/CommonEditorControllers.h"
#include "widgets/EditorPane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QMenuBar>
#include <QTranslator>

#include <map>
#include <set>

namespace kestrel::test {
namespace {

/// Marks every text of commands and menus.
class MarkingTranslator final : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override {
        const QLatin1String from(context);
        return from == QLatin1String("Command") || from == QLatin1String("MenuTitle")
                   ? QStringLiteral("* ") + QLatin1String(text)
                   : QString();
    }
    bool isEmpty() const override { return false; }
};

class Commands : public WindowTest {
protected:
    const MainMenu& mainMenu() const { return *window().findChild<MainMenu*>(); }

    /// What is in the menu bar while this pane is shown.
    std::set<const QAction*> shownWith(int pane) const {
        editor().commonController()->setCurrentIndex(pane);
        std::set<const QAction*> shown;
        for (const QAction* title : window().menuBar()->actions()) {
            for (const QAction* entry : title->menu()->actions()) {
                if (!entry->isSeparator()) {
                    shown.insert(entry);
                }
            }
        }
        return shown;
    }

    std::set<const QAction*> shownWithAnyPane() const {
        std::set<const QAction*> shown;
        for (int pane = 0; pane < editor().commonController()->count(); ++pane) {
            shown.merge(shownWith(pane));
        }
        return shown;
    }
};

TEST_F(Commands, AreListedWhetherTheirPaneIsShownOrNot) {
    start();
    std::set<const QAction*> listed;
    for (const CommandSet::Entry* entry : mainMenu().commands()) {
        EXPECT_TRUE(listed.insert(entry->action).second) << entry->command.id;
    }
    EXPECT_EQ(listed, shownWithAnyPane());
}

TEST_F(Commands, HaveTheIdOfTheirActionWhichIsUniqueButForPanesWithTheSameCommand) {
    start();
    std::map<std::string, int> ids;
    for (const CommandSet::Entry* entry : mainMenu().commands()) {
        EXPECT_EQ(entry->action->objectName(), QLatin1String(entry->command.id));
        ++ids[entry->command.id];
    }
    std::set<std::string> repeated;
    for (const auto& [id, count] : ids) {
        if (count > 1) {
            repeated.insert(id);
        }
    }
    EXPECT_THAT(repeated, testing::ElementsAre("zoomInAction", "zoomOutAction"));
}

TEST_F(Commands, AreAllShownInTheUsersLanguage) {
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    start();
    for (const QAction* title : window().menuBar()->actions()) {
        EXPECT_TRUE(title->text().startsWith(QLatin1Char('*'))) << title->text().toStdString();
    }
    for (const QAction* shown : shownWithAnyPane()) {
        EXPECT_TRUE(shown->text().startsWith(QLatin1Char('*'))) << shown->text().toStdString();
    }
    QCoreApplication::removeTranslator(&translator);
}

TEST_F(Commands, AreEachInTheMenuBarByAnIdThatExists) {
    start();
    for (const MenuEntry& entry : menuEntries()) {
        EXPECT_NE(mainMenu().action(entry.command), nullptr) << entry.command;
    }
    EXPECT_EQ(mainMenu().action("nothingAction"), nullptr);
}

} // namespace
} // namespace kestrel::test
