// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"
#include "navigation/tree/ProjectCommand.h"
#include "newitem/types/NewItemType.h"

#include <QContextMenuEvent>
#include <QLineEdit>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Option = ProjectNavigationMenuClickedOptions;

class NavigationMenu : public NavigationTest {
protected:
    NavigationMenu() {
        connection = centreOfNotifications.observe(
            std::string(ProjectNavigationMenuClicked), [this](const std::any& object) {
                if (const auto* option = std::any_cast<Option>(&object)) {
                    posted.push_back(*option);
                } else {
                    others.push_back(object);
                }
            });
    }

    Menu& menu() const { return *tree->menu(); }

    void wantMenuAt(const QPoint& position) const {
        QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                                view().viewport()->mapToGlobal(position));
        QApplication::sendEvent(view().viewport(), &event);
    }

    std::vector<std::string> entries() const {
        std::vector<std::string> titles;
        const QList<QAction*> actions = menu().actions();
        for (const QAction* action : actions) {
            if (!action->isSeparator()) {
                titles.push_back(action->objectName().toStdString());
            }
        }
        return titles;
    }

    void choose(Option option) const {
        QAction* action = menu().action(option);
        QTest::mouseClick(&menu(), Qt::LeftButton, {}, menu().actionGeometry(action).center());
    }

    void insert(const Node& node) const {
        node->setParent(game);
        game->subItems().push_back(node);
    }

    /// The start of the selected row's name is within the view.
    bool selectedRowIsInSight() const {
        const QRect row = view().visualRect(view().selectedIndex());
        return view().viewport()->rect().contains(row.left() + 1, row.center().y());
    }

    void expectFirstShownThenDeleted() const {
        ASSERT_FALSE(selectedRowIsInSight());
        QTest::keyClick(&view(), Qt::Key_Delete);
        EXPECT_THAT(posted, IsEmpty());
        EXPECT_TRUE(selectedRowIsInSight());
        QTest::keyClick(&view(), Qt::Key_Delete);
        EXPECT_THAT(posted, ElementsAre(Option::delete_));
    }

    Node file = text("main.asm");
    Node game = project("Game", {file});
    Node other = project("Other");
    NotificationCentre::Connection connection;
    std::vector<Option> posted;
    std::vector<std::any> others;
};

TEST_F(NavigationMenu, EachEntryPostsItsCommandOnce) {
    show({game});
    for (const ProjectCommand& command : projectCommands()) {
        wantMenuAt(centre(game));
        ASSERT_TRUE(menu().isVisible());
        choose(command.option);
        EXPECT_FALSE(menu().isVisible());
    }
    EXPECT_THAT(posted, ElementsAre(Option::newProject, Option::newFile, Option::newGroup,
                                    Option::importFile, Option::delete_));
}

TEST_F(NavigationMenu, TheRowUnderThePointerIsSelectedBeforeTheMenuOpens) {
    show({game, other});
    QTest::mousePress(view().viewport(), Qt::RightButton, {}, centre(other));
    wantMenuAt(centre(other));
    EXPECT_EQ(tree->selectedItem(), other);
    EXPECT_THAT(delegate.told, ElementsAre(game, other));
    EXPECT_TRUE(menu().isVisible());
    EXPECT_THAT(entries(), ElementsAre("newProjectAction", "newFileAction", "newGroupAction",
                                       "importFileAction", "deleteAction"));
}

TEST_F(NavigationMenu, ADeselectedRowUnderThePointerIsSelectedToo) {
    show({game, other});
    click(centre(game), Qt::LeftButton, Qt::ControlModifier);
    ASSERT_EQ(tree->selectedItem(), nullptr);
    wantMenuAt(centre(game));
    EXPECT_EQ(tree->selectedItem(), game);
    EXPECT_TRUE(menu().action(Option::newFile)->isEnabled());
}

TEST_F(NavigationMenu, OnTheEmptyAreaOnlyANewProjectIsOffered) {
    show({});
    wantMenuAt(QPoint(100, 300));
    ASSERT_TRUE(menu().isVisible());
    EXPECT_THAT(entries(), ElementsAre("newProjectAction"));
    choose(Option::newProject);
    EXPECT_THAT(posted, ElementsAre(Option::newProject));
}

TEST_F(NavigationMenu, TheMenuKeyAndShiftF10OpenItOnTheSelectedRow) {
    show({game, other});
    click(other);
    QTest::keyClick(&view(), Qt::Key_Menu);
    ASSERT_TRUE(menu().isVisible());
    const QRect row = view().visualRect(index(other));
    const int below = view().viewport()->mapToGlobal(row.bottomLeft()).y();
    EXPECT_EQ(menu().pos().y(), below);
    EXPECT_EQ(tree->selectedItem(), other);
    QTest::keyClick(&menu(), Qt::Key_Escape);
    ASSERT_FALSE(menu().isVisible());
    QTest::keyClick(&view(), Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(menu().isVisible());
    QTest::keyClick(&menu(), Qt::Key_Down);
    QTest::keyClick(&menu(), Qt::Key_Down);
    QTest::keyClick(&menu(), Qt::Key_Return);
    EXPECT_THAT(posted, ElementsAre(Option::newFile));
}

TEST_F(NavigationMenu, QtsOwnKeyboardRequestOpensItOnTheSelectedRowNotUnderThePointer) {
    show({game, other});
    click(other);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, centre(game),
                            view().viewport()->mapToGlobal(centre(game)));
    QApplication::sendEvent(view().viewport(), &event);
    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(tree->selectedItem(), other);
}

TEST_F(NavigationMenu, WithoutASelectedRowOnlyANewProjectIsEnabled) {
    show({game});
    const auto enabled = [&](Option option) { return menu().action(option)->isEnabled(); };
    for (const ProjectCommand& command : projectCommands()) {
        EXPECT_TRUE(enabled(command.option)) << command.command.id;
    }
    click(centre(game), Qt::LeftButton, Qt::ControlModifier);
    for (const ProjectCommand& command : projectCommands()) {
        EXPECT_EQ(enabled(command.option), command.option == Option::newProject)
            << command.command.id;
    }
    QTest::keyClick(&view(), Qt::Key_Delete);
    EXPECT_THAT(posted, IsEmpty());
}

TEST_F(NavigationMenu, TheCommandsAreDisabledAfterTheLastProjectWasDeleted) {
    show({game});
    tree->delete_();
    tree->reportSelection();
    EXPECT_FALSE(menu().action(Option::delete_)->isEnabled());
    EXPECT_FALSE(menu().action(Option::newFile)->isEnabled());
}

TEST_F(NavigationMenu, TheDeleteKeyPostsDelete) {
    show({game});
    QTest::keyClick(&view(), Qt::Key_Delete);
    EXPECT_THAT(posted, ElementsAre(Option::delete_));
}

TEST_F(NavigationMenu, TheDeleteKeyFirstShowsARowInACollapsedContainer) {
    const Node folder = group("Group", {text("deep.asm")});
    insert(folder);
    show({game});
    view().expandAll();
    click(folder->subItems()[0]);
    view().collapse(index(folder));
    view().collapse(index(game));
    QTest::keyClick(&view(), Qt::Key_Delete);
    EXPECT_THAT(posted, IsEmpty());
    EXPECT_EQ(tree->selectedItem(), folder->subItems()[0]);
    EXPECT_THAT(shown(), ElementsAre("Game", "  main.asm", "  Group", "    deep.asm"));
    QTest::keyClick(&view(), Qt::Key_Delete);
    EXPECT_THAT(posted, ElementsAre(Option::delete_));
}

TEST_F(NavigationMenu, TheDeleteKeyFirstShowsARowThatIsScrolledOut) {
    for (int i = 0; i < 60; ++i) {
        insert(text(std::to_string(i) + ".asm"));
    }
    show({game});
    expand(game);
    click(file);
    view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
    expectFirstShownThenDeleted();
}

TEST_F(NavigationMenu, TheDeleteKeyFirstShowsARowThatIsScrolledOutSideways) {
    insert(text(std::string(200, 'm')));
    show({game});
    expand(game);
    click(file);
    QApplication::processEvents();
    view().horizontalScrollBar()->setValue(view().horizontalScrollBar()->maximum());
    expectFirstShownThenDeleted();
}

TEST_F(NavigationMenu, DeleteInTheContextMenuPostsAtOnce) {
    show({game});
    expand(game);
    click(file);
    view().collapse(index(game));
    menu().action(Option::delete_)->trigger();
    EXPECT_THAT(posted, ElementsAre(Option::delete_));
}

TEST_F(NavigationMenu, AHeldDeleteKeyDeletesOnce) {
    show({game});
    QTest::simulateEvent(&view(), true, Qt::Key_Delete, {}, {}, false);
    for (int i = 0; i < 5; ++i) {
        QTest::simulateEvent(&view(), true, Qt::Key_Delete, {}, {}, true);
    }
    QTest::simulateEvent(&view(), false, Qt::Key_Delete, {}, {}, false);
    EXPECT_THAT(posted, ElementsAre(Option::delete_));
}

TEST_F(NavigationMenu, TheDeleteKeyActsOnlyWhileTheTreeHasTheFocus) {
    auto* field = new QLineEdit(QStringLiteral("text"), tree.get());
    tree->layout()->addWidget(field);
    show({game});
    field->setFocus();
    field->setCursorPosition(0);
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_EQ(field->text(), QStringLiteral("ext"));
    field->clear();
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_THAT(posted, IsEmpty());
    view().setFocus();
    QTest::keyClick(&view(), Qt::Key_Delete);
    EXPECT_THAT(posted, ElementsAre(Option::delete_));
}

TEST_F(NavigationMenu, TheDeleteKeyDoesNotActElsewhereAlsoWhenTheActionStandsInAnotherMenu) {
    QMenu bar;
    bar.addAction(menu().commands().action("deleteRowInSightAction"));
    auto* field = new QLineEdit(tree.get());
    tree->layout()->addWidget(field);
    field->addAction(bar.menuAction());
    show({game});
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_THAT(posted, IsEmpty());
}

TEST_F(NavigationMenu, ATreeWithoutNotificationsHasNoMenuAndNoDeleteKey) {
    ProjectNavigationController picker(nullptr);
    picker.setAllItems({game});
    picker.resize(240, 300);
    picker.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&picker));
    picker.outlineView()->setFocus();
    EXPECT_EQ(picker.menu(), nullptr);
    EXPECT_THAT(picker.outlineView()->actions(), IsEmpty());
    QTest::keyClick(picker.outlineView(), Qt::Key_Delete);
    QTest::keyClick(picker.outlineView(), Qt::Key_Menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    picker.requestNewProject();
    EXPECT_THAT(posted, IsEmpty());
    EXPECT_EQ(picker.currentlySelectedItem(), game);
}

TEST_F(NavigationMenu, TheRequestForANewProjectPostsAnItemTypeThatIsNoCommand) {
    show({});
    tree->requestNewProject();
    EXPECT_THAT(posted, IsEmpty());
    ASSERT_EQ(others.size(), 1U);
    const auto* type = std::any_cast<NewItemType>(&others[0]);
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->fileType, FileType::project);
    EXPECT_TRUE(type->text.isEmpty());
    EXPECT_TRUE(type->icon.isNull());
}

TEST_F(NavigationMenu, EveryControlHasAnObjectNameAndAnAccessibleName) {
    EXPECT_EQ(view().objectName(), QStringLiteral("outlineView"));
    EXPECT_FALSE(view().accessibleName().isEmpty());
    EXPECT_FALSE(menu().accessibleName().isEmpty());
    for (const ProjectCommand& command : projectCommands()) {
        const QAction* action = menu().action(command.option);
        EXPECT_EQ(action->objectName(), QLatin1String(command.command.id));
        EXPECT_EQ(action->text(), titleOf(command.command));
        EXPECT_EQ(action->shortcuts(), command.command.shortcuts);
    }
}

} // namespace
} // namespace kestrel::test
