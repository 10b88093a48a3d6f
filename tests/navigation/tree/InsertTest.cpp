// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto NoSelection = "NSOutlineView not set for ProjectNavigationController";

class NavigationInsert : public NavigationTest {
protected:
    Node a = text("a.asm");
    Node b = text("b.asm");
    Node c = text("c.asm");
    Node inner = text("inner.asm");
    Node deeper = text("deeper.asm");
    Node added = text("new.asm");
    LogCapture log;
};

TEST_F(NavigationInsert, AFileGoesBesideTheSelectedFileWhichKeepsItsRow) {
    const Node game = project("Game", {a, b, c});
    show({game});
    expand(game);
    click(b);
    delegate.told.clear();
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(names(game->subItems()), ElementsAre("a.asm", "b.asm", "new.asm", "c.asm"));
    EXPECT_THAT(shown(), ElementsAre("Game", "  a.asm", "  b.asm", "  new.asm", "  c.asm"));
    EXPECT_EQ(view().selectedRow(), 2);
    EXPECT_EQ(tree->selectedItem(), b);
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(NavigationInsert, VisibleRowsOfAnExpandedGroupBeforeTheSelectedFileMoveThePlaceDown) {
    const Node folder = group("Group", {inner, deeper});
    const Node game = project("Game", {folder, a, b, c});
    show({game});
    expand(game);
    expand(folder);
    click(a); // row 4; the project's is 0
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(names(game->subItems()),
                ElementsAre("Group", "a.asm", "b.asm", "c.asm", "new.asm"));
    EXPECT_EQ(view().selectedRow(), 4);
    EXPECT_EQ(tree->selectedItem(), a);
}

TEST_F(NavigationInsert, ACollapsedGroupBeforeTheSelectedFileCountsAsOneRow) {
    const Node folder = group("Group", {inner, deeper});
    const Node game = project("Game", {folder, a, b, c});
    show({game});
    expand(game);
    click(a);
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(names(game->subItems()),
                ElementsAre("Group", "a.asm", "new.asm", "b.asm", "c.asm"));
    EXPECT_EQ(view().selectedRow(), 2);
}

TEST_F(NavigationInsert, ThePlaceIsAtMostTheEnd) {
    const Node folder = group("Group", {inner, deeper, text("x"), text("y")});
    const Node game = project("Game", {folder, a});
    show({game});
    expand(game);
    expand(folder);
    click(a); // five rows below the project's, which has two sub-items
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(names(game->subItems()), ElementsAre("Group", "a.asm", "new.asm"));
    EXPECT_EQ(tree->selectedItem(), a);
}

TEST_F(NavigationInsert, ASelectedGroupGetsTheNodeAsItsLastAndStaysSelected) {
    const Node folder = group("Group", {inner});
    const Node game = project("Game", {a, folder, b});
    show({game});
    expand(game);
    click(folder);
    delegate.told.clear();
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(names(folder->subItems()), ElementsAre("inner.asm", "new.asm"));
    EXPECT_FALSE(view().isExpanded(index(folder)));
    EXPECT_EQ(tree->selectedItem(), folder);
    EXPECT_EQ(view().selectedRow(), 2);
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(NavigationInsert, ASelectedProjectGetsTheNodeAsItsFirst) {
    const Node game = project("Game", {a, b});
    show({project("Above"), game});
    click(game);
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(names(game->subItems()), ElementsAre("new.asm", "a.asm", "b.asm"));
    EXPECT_EQ(tree->selectedItem(), game);
    EXPECT_EQ(view().selectedRow(), 1);
}

TEST_F(NavigationInsert, ACollapsedProjectShowsItsNewFileAndItsGroupsStayCollapsed) {
    const Node folder = group("Group", {inner});
    const Node game = project("Game", {folder, b});
    const Node other = project("Other", {c});
    show({other, game});
    click(game);
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(shown(), ElementsAre("Other", "Game", "  new.asm", "  Group", "  b.asm"));
    EXPECT_EQ(tree->selectedItem(), game);
    const Node another = project("Another");
    tree->add(another);
    click(another);
    EXPECT_TRUE(tree->add(deeper));
    EXPECT_THAT(shown(), ElementsAre("Another", "  deeper.asm", "Other", "Game", "  new.asm",
                                     "  Group", "  b.asm"));
}

TEST_F(NavigationInsert, BesideASelectedFileHiddenInACollapsedProjectTheProjectIsExpanded) {
    const Node folder = group("Group", {inner});
    const Node game = project("Game", {folder, a, b});
    show({game});
    expand(game);
    click(a);
    view().collapse(index(game));
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(shown(), ElementsAre("Game", "  Group", "  a.asm", "  new.asm", "  b.asm"));
    EXPECT_EQ(tree->selectedItem(), a);
}

TEST_F(NavigationInsert, AFileForACollapsedGroupExpandsNothing) {
    const Node folder = group("Group", {a});
    const Node game = project("Game", {folder, b});
    show({game});
    expand(game);
    click(folder);
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(shown(), ElementsAre("Game", "  Group", "  b.asm"));
    expand(folder);
    click(a);
    view().collapse(index(folder));
    view().collapse(index(game));
    EXPECT_TRUE(tree->add(deeper));
    EXPECT_THAT(names(folder->subItems()), ElementsAre("a.asm", "deeper.asm", "new.asm"));
    EXPECT_THAT(shown(), ElementsAre("Game"));
}

TEST_F(NavigationInsert, ANewProjectGoesOnTopAndIsSelectedAndReported) {
    const Node game = project("Game", {a});
    show({game});
    expand(game);
    click(a);
    const Node fresh = project("Fresh", {b});
    EXPECT_TRUE(tree->add(fresh));
    EXPECT_THAT(tree->allItems(), ElementsAre(fresh, game));
    EXPECT_EQ(view().selectedRow(), 0);
    EXPECT_EQ(tree->currentlySelectedItem(), fresh);
    EXPECT_EQ(tree->currentlySelectedProject(), fresh);
    EXPECT_EQ(delegate.told.back(), fresh);
    EXPECT_EQ(delegate.projects.back(), fresh);
    EXPECT_TRUE(view().isExpanded(index(game)));
}

TEST_F(NavigationInsert, ANewProjectGoesIntoAnEmptyTreeToo) {
    show({});
    const Node fresh = project("Fresh");
    EXPECT_TRUE(tree->add(fresh));
    EXPECT_THAT(delegate.told, ElementsAre(fresh));
    EXPECT_EQ(view().selectedRow(), 0);
}

TEST_F(NavigationInsert, WithoutASelectedRowNothingIsInsertedAndTheLogSaysSo) {
    const Node game = project("Game", {a});
    show({game});
    click(centre(game), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_FALSE(tree->add(added));
    EXPECT_THAT(names(game->subItems()), ElementsAre("a.asm"));
    EXPECT_THAT(log.lines(), ElementsAre(NoSelection));
}

TEST_F(NavigationInsert, WithoutAnOutlineViewNothingButAProjectIsInserted) {
    const Node game = project("Game", {a});
    show({game});
    tree->setOutlineView(nullptr);
    EXPECT_FALSE(tree->add(added));
    EXPECT_THAT(log.lines(), ElementsAre(NoSelection));
    const Node fresh = project("Fresh");
    EXPECT_TRUE(tree->add(fresh));
    EXPECT_THAT(tree->allItems(), ElementsAre(fresh, game));
    EXPECT_EQ(tree->currentlySelectedItem(), fresh);
}

TEST_F(NavigationInsert, BesideARootThatIsNoProjectNothingIsInserted) {
    show({a, project("Game")});
    click(a);
    EXPECT_TRUE(tree->add(added));
    EXPECT_FALSE(index(added).isValid());
    EXPECT_EQ(view().selectedRow(), 0);
    EXPECT_THAT(a->subItems(), IsEmpty());
}

TEST_F(NavigationInsert, BesideASelectedFileThatIsHiddenInACollapsedGroup) {
    const Node folder = group("Group", {a, b, c});
    const Node game = project("Game", {folder});
    show({game});
    expand(game);
    expand(folder);
    click(b);
    view().collapse(index(folder));
    EXPECT_TRUE(tree->add(added));
    EXPECT_THAT(names(folder->subItems()), ElementsAre("a.asm", "b.asm", "new.asm", "c.asm"));
    EXPECT_FALSE(view().isExpanded(index(folder)));
}

TEST_F(NavigationInsert, TheContainerIsTheOneThatTheRowIsShownUnderWhateverTheParentFieldSays) {
    const Node folder = group("Group", {a, b});
    const Node game = project("Game", {folder, c});
    a->setParent(game);
    b->setParent(nullptr);
    show({game});
    expand(game);
    expand(folder);
    click(a);
    EXPECT_TRUE(tree->add(added));
    click(b);
    EXPECT_TRUE(tree->add(text("newer.asm")));
    EXPECT_THAT(names(folder->subItems()), ElementsAre("a.asm", "new.asm", "b.asm", "newer.asm"));
    EXPECT_THAT(names(game->subItems()), ElementsAre("Group", "c.asm"));
}

TEST_F(NavigationInsert, AFileReferenceIsAnUnknownFileInItsFolderAndIsShownWithoutBeingSelected) {
    const Node game = project("Game", {a});
    show({game});
    expand(game);
    click(a);
    delegate.told.clear();
    const Node node = tree->add(std::filesystem::path("/some/folder/tiles.bin"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->itemName(), "tiles.bin");
    EXPECT_EQ(node->itemPath(), "/some/folder");
    EXPECT_EQ(node->itemFileType(), FileType::unknown);
    EXPECT_EQ(node->itemPathType(), FilePathType::absolute);
    EXPECT_EQ(node->parent(), nullptr);
    EXPECT_THAT(node->subItems(), IsEmpty());
    EXPECT_EQ(tree->containerOf(node), game);
    EXPECT_THAT(delegate.told, ElementsAre(node));
    EXPECT_EQ(tree->selectedItem(), a);
    EXPECT_EQ(tree->currentlySelectedItem(), a);
}

TEST_F(NavigationInsert, AfterAnImportARefreshDoesNotReportTheSelectedNodeAgain) {
    const Node game = project("Game", {a});
    show({game});
    expand(game);
    click(a);
    const Node node = tree->add(std::filesystem::path("/some/folder/tiles.bin"));
    delegate.told.clear();
    tree->reloadFileStatusForNavigationContent();
    EXPECT_THAT(delegate.told, IsEmpty());
    click(node);
    EXPECT_THAT(delegate.told, ElementsAre(node));
}

TEST_F(NavigationInsert, AFileReferenceOfALocationThatEndsInASeparatorIsItsLastPart) {
    const Node game = project("Game");
    show({game});
    const Node node = tree->add(std::filesystem::path("/some/folder/"));
    EXPECT_EQ(node->itemName(), "folder");
    EXPECT_EQ(node->itemPath(), "/some");
}

} // namespace
} // namespace kestrel::test
