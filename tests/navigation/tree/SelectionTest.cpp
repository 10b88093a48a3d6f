// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NavigationSelection : public NavigationTest {
protected:
    Node file = text("main.asm");
    Node second = text("second.asm");
    Node folder = group("Group", {file, second});
    Node game = project("Game", {folder});
    Node other = project("Other", {text("other.asm")});
};

TEST_F(NavigationSelection, AnEmptyTreeSelectsNothingAndTellsNobody) {
    show({});
    EXPECT_EQ(model().rowCount(), 0);
    EXPECT_FALSE(view().selectedIndex().isValid());
    EXPECT_EQ(view().selectedRow(), -1);
    EXPECT_THAT(delegate.told, IsEmpty());
    EXPECT_EQ(tree->currentlySelectedProject(), nullptr);
}

TEST_F(NavigationSelection, TheFirstProjectIsSelectedBeforeTheTreeAppears) {
    show({game, other});
    EXPECT_EQ(view().selectedRow(), 0);
    EXPECT_THAT(delegate.told, ElementsAre(game));
    EXPECT_EQ(tree->currentlySelectedProject(), game);
    EXPECT_EQ(tree->currentlySelectedItem(), game);
}

TEST_F(NavigationSelection, AProjectThatIsCurrentAlreadyStaysSelectedWhenTheTreeAppearsAgain) {
    show({game, other});
    click(other);
    tree->hide();
    tree->show();
    EXPECT_EQ(tree->selectedItem(), other);
    EXPECT_THAT(delegate.told, ElementsAre(game, other));
}

TEST_F(NavigationSelection, AClickSetsItemAndProjectBeforeTheDelegateIsTold) {
    show({other, game});
    expand(game);
    expand(folder);
    click(second);
    ASSERT_THAT(delegate.told, ElementsAre(other, second));
    EXPECT_EQ(delegate.projects.back(), game);
    EXPECT_EQ(delegate.items.back(), second);
}

TEST_F(NavigationSelection, ArrowKeysSelectToo) {
    show({game, other});
    QTest::keyClick(&view(), Qt::Key_Down);
    EXPECT_EQ(tree->selectedItem(), other);
    EXPECT_THAT(delegate.told, ElementsAre(game, other));
}

TEST_F(NavigationSelection, ClickingTheSelectedRowAgainTellsNothing) {
    show({game, other});
    click(game);
    click(game);
    EXPECT_THAT(delegate.told, ElementsAre(game));
}

TEST_F(NavigationSelection, DeselectingReportsNothingAndTheSameNodeIsNotReportedTwice) {
    show({game, other});
    click(centre(game), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(tree->selectedItem(), nullptr);
    EXPECT_EQ(view().selectedRow(), -1);
    EXPECT_EQ(tree->currentlySelectedItem(), game);
    click(game);
    EXPECT_EQ(tree->selectedItem(), game);
    EXPECT_THAT(delegate.told, ElementsAre(game));
}

TEST_F(NavigationSelection, ARefreshKeepsADeselectedTreeDeselected) {
    show({game, other});
    click(centre(game), Qt::LeftButton, Qt::ControlModifier);
    tree->reloadFileStatusForNavigationContent();
    EXPECT_EQ(tree->selectedItem(), nullptr);
}

TEST_F(NavigationSelection, ClickingTheEmptyAreaDeselectsAndReportsNothing) {
    show({game, other});
    click(other);
    click(QPoint(100, 390));
    EXPECT_EQ(tree->selectedItem(), nullptr);
    EXPECT_EQ(tree->currentlySelectedItem(), other);
    EXPECT_THAT(delegate.told, ElementsAre(game, other));
}

TEST_F(NavigationSelection, ARefreshReportsNothing) {
    show({game, other});
    expand(game);
    click(folder);
    delegate.told.clear();
    for (int i = 0; i < 3; ++i) {
        tree->reloadFileStatusForNavigationContent();
        QApplication::processEvents();
    }
    EXPECT_THAT(delegate.told, IsEmpty());
    EXPECT_EQ(tree->selectedItem(), folder);
}

TEST_F(NavigationSelection, CollapsingOverTheSelectedNodeReportsNothingAndExpandingShowsItAgain) {
    show({game, other});
    expand(game);
    expand(folder);
    click(second);
    delegate.told.clear();
    click(triangle(game));
    ASSERT_FALSE(view().isExpanded(index(game)));
    EXPECT_THAT(delegate.told, IsEmpty());
    EXPECT_EQ(tree->currentlySelectedItem(), second);
    EXPECT_EQ(view().selectedRow(), -1);
    tree->reloadFileStatusForNavigationContent();
    EXPECT_FALSE(view().isExpanded(index(game)));
    click(triangle(game));
    EXPECT_TRUE(view().selectionModel()->isSelected(index(second)));
    EXPECT_EQ(view().selectedRow(), 3);
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(NavigationSelection, OneRowAtMostIsSelected) {
    show({game, other});
    click(centre(other), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(view().selectionModel()->selectedRows().size(), 1);
    QTest::keyClick(&view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(view().selectionModel()->selectedRows().size(), 1);
}

TEST_F(NavigationSelection, SelectingByProgramBringsAHiddenRowIntoSight) {
    show({game, other});
    EXPECT_TRUE(tree->select(second));
    EXPECT_TRUE(view().isExpanded(index(folder)));
    EXPECT_THAT(delegate.told, ElementsAre(game, second));
    EXPECT_FALSE(tree->select(text("elsewhere.asm")));
    EXPECT_FALSE(tree->select(nullptr));
}

TEST_F(NavigationSelection,
       ANodeWhoseParentFieldIsNotItsContainerBelongsToTheRootOfItsParentField) {
    file->setParent(other);
    second->setParent(nullptr);
    show({game, other});
    expand(game);
    expand(folder);
    EXPECT_EQ(tree->containerOf(file), folder);
    EXPECT_EQ(tree->containerOf(second), folder);
    EXPECT_EQ(tree->containerOf(game), nullptr);
    click(file);
    EXPECT_EQ(tree->currentlySelectedProject(), other);
    click(second);
    EXPECT_EQ(tree->currentlySelectedProject(), second);
    view().grab();
}

TEST_F(NavigationSelection, ADelegateThatWentIsNotTold) {
    {
        RecordingDelegate brief;
        tree->setProjectNavigationDelegate(&brief);
    }
    show({game, other});
    click(other);
    EXPECT_EQ(tree->currentlySelectedItem(), other);
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(NavigationSelection, ExpansionSelectionAndScrollPositionSurviveAReload) {
    ProjectItems files;
    for (int i = 0; i < 200; ++i) {
        files.push_back(text("file" + std::to_string(i)));
    }
    const Node big = project("Big", files);
    show({game, big, other});
    expand(game);
    expand(big);
    click(folder);
    view().verticalScrollBar()->setValue(100);
    const int scroll = view().verticalScrollBar()->value();
    ASSERT_EQ(scroll, 100);
    game->subItems().push_back(text("new.asm"));
    big->subItems().erase(big->subItems().begin() + 150);
    big->subItems()[3]->setItemName("renamed");
    tree->reloadFileStatusForNavigationContent();
    QApplication::processEvents();
    EXPECT_TRUE(view().isExpanded(index(game)));
    EXPECT_TRUE(view().isExpanded(index(big)));
    EXPECT_FALSE(view().isExpanded(index(folder)));
    EXPECT_FALSE(view().isExpanded(index(other)));
    EXPECT_EQ(tree->selectedItem(), folder);
    EXPECT_EQ(view().verticalScrollBar()->value(), scroll);
}

TEST_F(NavigationSelection, WhenAReloadTakesTheSelectedRowTheNextOneIsSelectedAndReported) {
    show({game, other});
    expand(game);
    expand(folder);
    click(file);
    folder->subItems().erase(folder->subItems().begin());
    tree->reloadFileStatusForNavigationContent();
    EXPECT_EQ(tree->selectedItem(), second);
    EXPECT_THAT(delegate.told, ElementsAre(game, file, second));
}

TEST_F(NavigationSelection, DestroyingATreeWithASelectionReportsNothing) {
    show({game, other});
    click(other);
    delegate.told.clear();
    delegate.tree = nullptr;
    tester.reset();
    tree.reset();
    EXPECT_THAT(delegate.told, IsEmpty());
}

} // namespace
} // namespace kestrel::test
