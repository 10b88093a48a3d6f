// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NavigationDelete : public NavigationTest {
protected:
    /// What a container does with the command: remove, save, then have the selection reported.
    std::vector<RemovedItem> deleteAndSave() {
        delegate.told.clear();
        std::vector<RemovedItem> removed = tree->delete_();
        EXPECT_THAT(delegate.told, IsEmpty()) << "reported before the save";
        projectAtSave = tree->currentlySelectedProject();
        itemAtSave = tree->currentlySelectedItem();
        tree->reportSelection();
        QApplication::processEvents();
        return removed;
    }

    Node a = text("a.asm");
    Node b = text("b.asm");
    Node c = text("c.asm");
    Node folder = group("Group", {b, c});
    Node game = project("Game", {a, folder});
    Node other = project("Other");
    Node projectAtSave;
    Node itemAtSave;
    LogCapture log;
};

TEST_F(NavigationDelete, TheNextSiblingIsSelectedAndReportedOnlyAfterTheSave) {
    show({other, game});
    expand(game);
    click(a);
    deleteAndSave();
    EXPECT_THAT(names(game->subItems()), ElementsAre("Group"));
    EXPECT_EQ(projectAtSave, game);
    EXPECT_EQ(itemAtSave, a);
    EXPECT_EQ(tree->selectedItem(), folder);
    EXPECT_EQ(tree->currentlySelectedItem(), folder);
    EXPECT_THAT(delegate.told, ElementsAre(folder));
}

TEST_F(NavigationDelete, WithoutANextSiblingThePreviousOneIsSelected) {
    show({game});
    expand(game);
    expand(folder);
    click(c);
    deleteAndSave();
    EXPECT_EQ(tree->selectedItem(), b);
    EXPECT_THAT(delegate.told, ElementsAre(b));
}

TEST_F(NavigationDelete, WithoutAnySiblingTheContainerIsSelected) {
    show({game});
    expand(game);
    expand(folder);
    click(c);
    deleteAndSave();
    deleteAndSave();
    EXPECT_EQ(tree->selectedItem(), folder);
    EXPECT_THAT(folder->subItems(), IsEmpty());
    EXPECT_THAT(delegate.told, ElementsAre(folder));
}

TEST_F(NavigationDelete, AfterAProjectTheNextOneIsSelectedElseThePreviousOneElseNothing) {
    const Node last = project("Last");
    show({other, game, last});
    click(game);
    deleteAndSave();
    EXPECT_THAT(tree->allItems(), ElementsAre(other, last));
    EXPECT_EQ(projectAtSave, game);
    EXPECT_THAT(delegate.told, ElementsAre(last));
    deleteAndSave();
    EXPECT_THAT(delegate.told, ElementsAre(other));
    deleteAndSave();
    EXPECT_THAT(tree->allItems(), IsEmpty());
    EXPECT_THAT(delegate.told, IsEmpty());
    EXPECT_EQ(tree->selectedItem(), nullptr);
    EXPECT_EQ(tree->currentlySelectedItem(), other);
}

TEST_F(NavigationDelete, AGroupGoesWithAllItHoldsAndFilesStayOnDisk) {
    const TemporaryFolder disk;
    const auto path = disk.write("kept.asm", "text");
    const Node kept = makeNode("kept.asm", FileType::text, {}, disk.path());
    folder->subItems().push_back(kept);
    show({game});
    expand(game);
    expand(folder);
    click(folder);
    deleteAndSave();
    EXPECT_THAT(shown(), ElementsAre("Game", "  a.asm"));
    EXPECT_EQ(contentOf(path), "text");
}

TEST_F(NavigationDelete, WhenAnAncestorOfTheSelectedRowGoesWhatFollowsTheAncestorIsSelected) {
    game->subItems().push_back(text("z.asm"));
    show({game});
    expand(game);
    expand(folder);
    click(b);
    tree->delete_(2); // the group
    tree->reportSelection();
    EXPECT_EQ(tree->selectedItem()->itemName(), "z.asm");
}

TEST_F(NavigationDelete, AGivenRowGoesAndTheSelectionElsewhereStays) {
    show({game, other});
    expand(game);
    click(other);
    delegate.told.clear();
    const auto removed = tree->delete_(1);
    ASSERT_EQ(removed.size(), 1U);
    EXPECT_EQ(removed[0].node, a);
    EXPECT_EQ(removed[0].container, game);
    tree->reportSelection();
    EXPECT_EQ(tree->selectedItem(), other);
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(NavigationDelete, OfTwoGroupsOfOneNameTheFirstGoesWhicheverWasSelected) {
    const Node twin = group("Group", {text("in twin.asm")});
    game->subItems().push_back(twin);
    show({game});
    expand(game);
    expand(twin);
    click(twin);
    const auto removed = deleteAndSave();
    ASSERT_EQ(removed.size(), 1U);
    EXPECT_EQ(removed[0].node, folder);
    EXPECT_THAT(game->subItems(), ElementsAre(a, twin));
    EXPECT_THAT(shown(), ElementsAre("Game", "  a.asm", "  Group", "    in twin.asm"));
    EXPECT_EQ(tree->selectedItem(), twin); // it did not go
    EXPECT_THAT(delegate.told, IsEmpty());
}

TEST_F(NavigationDelete, AFileAndAGroupOfOneNameAreToldApart) {
    const Node file = text("Group");
    game->subItems().push_back(file);
    show({game});
    expand(game);
    click(file);
    deleteAndSave();
    EXPECT_THAT(game->subItems(), ElementsAre(a, folder));
}

TEST_F(NavigationDelete, ProjectsOfOneNameGoByTheirFormerPlaces) {
    const Node twin = project("Game");
    const Node end = project("End");
    show({game, twin, other, end});
    click(twin);
    const auto removed = deleteAndSave();
    // Places 0 and 1 held the name; after the first removal place 1 is the third project.
    EXPECT_THAT(tree->allItems(), ElementsAre(twin, end));
    ASSERT_EQ(removed.size(), 2U);
    EXPECT_EQ(removed[0].node, game);
    EXPECT_EQ(removed[1].node, other);
    EXPECT_EQ(tree->selectedItem(), twin);
    EXPECT_TRUE(tree->restore(removed));
    EXPECT_THAT(tree->allItems(), ElementsAre(game, twin, other, end));
}

TEST_F(NavigationDelete, AFormerPlacePastTheEndRemovesNothing) {
    const Node twin = project("Game");
    show({game, twin});
    click(game);
    EXPECT_EQ(deleteAndSave().size(), 1U);
    EXPECT_THAT(tree->allItems(), ElementsAre(twin));
    EXPECT_EQ(tree->selectedItem(), twin);
}

TEST_F(NavigationDelete, TheRowIsFoundInTheContainerItIsShownUnderWhateverTheParentFieldSays) {
    b->setParent(game);
    c->setParent(nullptr);
    show({game});
    expand(game);
    expand(folder);
    click(b);
    deleteAndSave();
    EXPECT_THAT(folder->subItems(), ElementsAre(c));
    deleteAndSave();
    EXPECT_THAT(folder->subItems(), IsEmpty());
    EXPECT_EQ(tree->allItems().size(), 1U);
}

TEST_F(NavigationDelete, ASelectedNodeHiddenInACollapsedGroupGoesAndTheGroupStaysCollapsed) {
    show({game});
    expand(game);
    expand(folder);
    click(b);
    view().collapse(index(folder));
    deleteAndSave();
    EXPECT_THAT(folder->subItems(), ElementsAre(c));
    EXPECT_EQ(tree->selectedItem(), c);
    EXPECT_FALSE(view().isExpanded(index(folder)));
}

TEST_F(NavigationDelete, WithoutARowNothingGoesAndTheLogSaysSo) {
    show({game});
    tree->delete_(17);
    tree->delete_(-1);
    click(centre(game), Qt::LeftButton, Qt::ControlModifier);
    tree->delete_();
    EXPECT_THAT(log.lines(),
                ElementsAre("item at row is not a ProjectNavigationItem for deletion",
                            "item at row is not a ProjectNavigationItem for deletion",
                            "item at row is not a ProjectNavigationItem for deletion"));
    EXPECT_THAT(tree->allItems(), ElementsAre(game));
}

TEST_F(NavigationDelete, ARowWithoutANodeIsNotDeleted) {
    game->subItems().insert(game->subItems().begin(), nullptr);
    show({game});
    expand(game);
    tree->delete_(1);
    EXPECT_THAT(log.lines(),
                ElementsAre("item at row is not a ProjectNavigationItem for deletion"));
    EXPECT_EQ(game->subItems().size(), 3U);
    view().grab();
}

TEST_F(NavigationDelete, WithoutAnOutlineViewNothingGoesAndTheLogSaysSo) {
    show({game});
    tree->setOutlineView(nullptr);
    EXPECT_THAT(tree->delete_(), IsEmpty());
    tree->reportSelection();
    EXPECT_THAT(log.lines(), ElementsAre("NSOutlineView not set for ProjectNavigationController"));
    tree->reloadFileStatusForNavigationContent();
    EXPECT_EQ(log.lines().back(), "Outline view is nil");
}

TEST_F(NavigationDelete, ARootThatIsNoProjectCannotBeDeletedByTheUser) {
    show({a, game});
    click(a);
    EXPECT_FALSE(tree->canDelete());
    EXPECT_FALSE(tree->menu()->action(ProjectNavigationMenuClickedOptions::delete_)->isEnabled());
    click(game);
    EXPECT_TRUE(tree->canDelete());
}

/// A caller's mistake stops the program where assertions are on, and else is logged and ignored.
template<typename Call> void expectFault(Call call, const std::string& message) {
#ifdef QT_NO_DEBUG
    const LogCapture log;
    call();
    EXPECT_THAT(log.lines(), ElementsAre(message));
#else
    EXPECT_DEATH(call(), message);
#endif
}

TEST_F(NavigationDelete, DeletingARootThatIsNoProjectIsAFault) {
    show({a, game});
    expectFault([&] { tree->delete_(0); }, "the row to delete has no container");
    EXPECT_THAT(tree->allItems(), ElementsAre(a, game));
}

TEST_F(NavigationDelete, DeletingARowWhoseNodeLeftItsContainerIsAFault) {
    show({game});
    expand(game);
    game->subItems().clear();
    expectFault([&] { tree->delete_(1); }, "the row to delete is no sub-item of its container");
}

TEST_F(NavigationDelete, WhatWasDeletedCanBePutBackWhereItStoodAsExpandedAsItWas) {
    const Node deep = group("Deep", {text("deep.asm")});
    folder->subItems().insert(folder->subItems().begin(), deep);
    game->subItems().push_back(text("z.asm"));
    show({game});
    expand(game);
    expand(folder);
    expand(deep);
    const std::vector<std::string> before = shown();
    click(folder);
    const auto removed = deleteAndSave();
    ASSERT_EQ(removed.size(), 1U);
    EXPECT_EQ(removed[0].position, 1U);
    EXPECT_TRUE(tree->restore(removed));
    EXPECT_EQ(shown(), before);
    EXPECT_TRUE(tree->select(folder));
    EXPECT_EQ(delegate.told.back(), folder);
}

TEST_F(NavigationDelete, TheOnlyProjectIsReportedAgainWhenItCameBackAndIsSelected) {
    show({game});
    const auto removed = deleteAndSave();
    EXPECT_TRUE(tree->restore(removed));
    EXPECT_TRUE(tree->select(game));
    EXPECT_THAT(delegate.told, ElementsAre(game));
    EXPECT_THAT(tree->allItems(), ElementsAre(game));
}

TEST_F(NavigationDelete, ANodeIsNotPutBackIntoAContainerThatIsGone) {
    show({game});
    expand(game);
    expand(folder);
    click(b);
    const auto removed = deleteAndSave();
    click(folder);
    deleteAndSave();
    EXPECT_FALSE(tree->restore(removed));
    EXPECT_THAT(folder->subItems(), ElementsAre(c));
}

TEST_F(NavigationDelete, ANodeIsPutBackAtTheEndWhenItsPlaceIsPastTheEndNow) {
    show({game});
    expand(game);
    click(folder);
    const auto removed = deleteAndSave();
    deleteAndSave();
    EXPECT_TRUE(tree->restore(removed));
    EXPECT_THAT(game->subItems(), ElementsAre(folder));
}

} // namespace
} // namespace kestrel::test
