// SPDX-License-Identifier: MIT
#include "navigation/container/ContainerFixture.h"

#include <QSignalSpy>

namespace kestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ContainerDelete : public ContainerTest {
protected:
    /// A project of three listed assembly files, a.asm to c.asm.
    void makeGame() {
        const ProjectItems files = {fileOf("Game", "a.asm", FileType::text),
                                    fileOf("Game", "b.asm", FileType::text),
                                    fileOf("Game", "c.asm", FileType::text)};
        const Node game = makeProject("Game", files);
        for (const Node& file : files) {
            NESBuildSettings::add(file, game);
        }
    }

    void press(Qt::Key key) const {
        QTest::keyClick(&view(), key);
        QApplication::processEvents();
    }
};

TEST_F(ContainerDelete, AFileGoesFromTreeSettingsAndStructureAndStaysOnDisk) {
    makeGame();
    start();
    click("b.asm");
    command(Option::delete_);
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm", "c.asm"));
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre("a.asm", "c.asm"));
    EXPECT_EQ(savedStructure(root()), "Game\n  a.asm\n  c.asm\n");
    EXPECT_EQ(content("Kestrel/Game/b.asm"), "b.asm");
    start();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm", "c.asm"));
}

TEST_F(ContainerDelete, WhatIsSelectedNextIsShownAfterTheSave) {
    makeGame();
    start();
    click("b.asm");
    std::string savedBefore;
    typing->whenLoaded = [&] { savedBefore = savedStructure(root()); };
    command(Option::delete_);
    EXPECT_EQ(savedBefore, "Game\n  a.asm\n  c.asm\n");
    EXPECT_EQ(tree().selectedItem(), find("c.asm"));
    EXPECT_EQ(typing->path(), home.path() / "Kestrel/Game/c.asm");
    EXPECT_EQ(typing->loads, 2);
}

TEST_F(ContainerDelete, ByTheDeleteKeyOnceHoweverLongItIsHeld) {
    makeGame();
    start();
    click("a.asm");
    press(Qt::Key_Delete);
    for (int i = 0; i < 5; ++i) {
        QTest::simulateEvent(&view(), true, Qt::Key_Delete, Qt::NoModifier, QString(), true);
    }
    QApplication::processEvents();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("b.asm", "c.asm"));
}

TEST_F(ContainerDelete, AProjectGoesFromTheRegistryOnly) {
    makeGame();
    makeProject("Other");
    start();
    const std::string structure = savedStructure(root());
    click("Game");
    command(Option::delete_);
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Other"));
    EXPECT_THAT(registered(), ElementsAre("Other"));
    EXPECT_TRUE(exists("Kestrel/Game/Game.kst"));
    EXPECT_TRUE(exists("Kestrel/Game/a.asm"));
    EXPECT_TRUE(exists("Kestrel/Game/.project/Game-BuildSettings.cfg"));
    const Node gone = makeNode("Game", FileType::project, {}, home.path() / "Kestrel/Game");
    EXPECT_EQ(savedStructure(gone), structure);
    EXPECT_EQ(tree().selectedItem(), root());
    EXPECT_EQ(panes()->projectSettings->currentProject(), root());
}

TEST_F(ContainerDelete, TheLastProjectLeavesAnEmptyTreeThatSurvivesARestart) {
    makeGame();
    start();
    command(Option::delete_);
    EXPECT_THAT(tree().allItems(), IsEmpty());
    EXPECT_THAT(registered(), IsEmpty());
    EXPECT_EQ(tree().selectedItem(), nullptr);
    EXPECT_FALSE(tree().menu()->action(Option::delete_)->isEnabled());
    start();
    EXPECT_THAT(tree().allItems(), IsEmpty());
    EXPECT_EQ(message(), "Please select a file or project");
}

TEST_F(ContainerDelete, AGroupTakesItsFilesFromTheTreeAndLeavesThemInTheSettings) {
    const Node inside = fileOf("Game", "in.asm", FileType::text);
    const Node game = makeProject("Game", {group("Parts", {inside})});
    NESBuildSettings::add(inside, game);
    start();
    click("Parts");
    command(Option::delete_);
    EXPECT_EQ(savedStructure(root()), "Game\n");
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre("in.asm"));
    EXPECT_TRUE(exists("Kestrel/Game/in.asm"));
}

TEST_F(ContainerDelete, WithoutASelectedRowNothingGoes) {
    makeGame();
    start();
    click("a.asm");
    deselect();
    ASSERT_NE(tree().currentlySelectedItem(), nullptr);
    centre.post(ProjectNavigationMenuClicked, std::any(Option::delete_));
    EXPECT_EQ(root()->subItems().size(), 3U);
    EXPECT_EQ(savedAssemblyFiles(root()).size(), 3U);
    EXPECT_FALSE(container->canUndoDelete());
}

TEST_F(ContainerDelete, TheRefreshThatFollowsSaysWhenTheProjectFileIsGone) {
    makeGame();
    start();
    click("a.asm");
    std::filesystem::remove(home.path() / "Kestrel/Game/Game.kst");
    command(Option::delete_);
    EXPECT_EQ(message(), "File does not exist at path");
}

TEST_F(ContainerDelete, AStructureThatCannotBeWrittenChangesTheTreeAllTheSame) {
    makeGame();
    start();
    click("a.asm");
    const auto structure = home.path() / "Kestrel/Game/.project/Game-ProjectStructure.cfg";
    std::filesystem::remove(structure);
    std::filesystem::create_directory(structure);
    command(Option::delete_);
    EXPECT_THAT(names(root()->subItems()), ElementsAre("b.asm", "c.asm"));
}

TEST_F(ContainerDelete, UndoBringsAFileBackToItsPlaceInTreeSettingsAndStructure) {
    makeGame();
    start();
    click("b.asm");
    EXPECT_FALSE(container->canUndoDelete());
    const QSignalSpy available(container, &EditorContainerController::undoDeleteAvailable);
    command(Option::delete_);
    EXPECT_TRUE(container->canUndoDelete());
    container->undoDelete();
    EXPECT_FALSE(container->canUndoDelete());
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm", "b.asm", "c.asm"));
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre("a.asm", "b.asm", "c.asm"));
    EXPECT_EQ(savedStructure(root()), "Game\n  a.asm\n  b.asm\n  c.asm\n");
    EXPECT_EQ(tree().selectedItem(), find("b.asm"));
    EXPECT_EQ(typing->path(), home.path() / "Kestrel/Game/b.asm");
    ASSERT_EQ(available.size(), 2);
    EXPECT_TRUE(available[0][0].toBool());
    EXPECT_FALSE(available[1][0].toBool());
    container->undoDelete(); // nothing is left to undo
    EXPECT_EQ(root()->subItems().size(), 3U);
    start();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm", "b.asm", "c.asm"));
}

TEST_F(ContainerDelete, UndoBringsBackFilesOfEachKindInTheSettings) {
    const ProjectItems files = {fileOf("Game", "a.pal", FileType::palette),
                                fileOf("Game", "a.chr", FileType::graphics),
                                fileOf("Game", "a.txt", FileType::unknown)};
    const Node game = makeProject("Game", files);
    NESBuildSettings::add(files[0], game);
    NESBuildSettings::add(files[1], game);
    start();
    for (const char* name : {"a.pal", "a.chr", "a.txt"}) {
        click(name);
        command(Option::delete_);
        container->undoDelete();
    }
    EXPECT_THAT(names(NESBuildSettings(root()).paletteFiles()), ElementsAre("a.pal"));
    EXPECT_THAT(names(NESBuildSettings(root()).graphicFiles()), ElementsAre("a.chr"));
    EXPECT_EQ(savedStructure(root()), "Game\n  a.pal\n  a.chr\n  a.txt\n");
}

TEST_F(ContainerDelete, UndoDoesNotListAFileThatWasNotListed) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("a.asm");
    command(Option::delete_);
    container->undoDelete();
    EXPECT_THAT(savedAssemblyFiles(root()), IsEmpty());
    EXPECT_EQ(savedStructure(root()), "Game\n  a.asm\n");
}

TEST_F(ContainerDelete, UndoBringsAGroupBackWithAllItHolds) {
    makeProject("Game", {group("Parts", {fileOf("Game", "in.asm", FileType::text)})});
    start();
    click("Parts");
    command(Option::delete_);
    container->undoDelete();
    EXPECT_EQ(savedStructure(root()), "Game\n  Parts\n    in.asm\n");
    click("in.asm");
    EXPECT_EQ(tree().currentlySelectedProject(), root());
}

TEST_F(ContainerDelete, UndoBringsAProjectBackIntoTreeAndRegistry) {
    makeProject("First");
    makeGame();
    makeProject("Last");
    start();
    click("Game");
    command(Option::delete_);
    container->undoDelete();
    EXPECT_THAT(names(tree().allItems()), ElementsAre("First", "Game", "Last"));
    EXPECT_THAT(registered(), ElementsAre("First", "Game", "Last"));
    EXPECT_EQ(tree().selectedItem(), root(1));
}

TEST_F(ContainerDelete, UndoGoesBackDeletionByDeletion) {
    makeGame();
    start();
    click("a.asm");
    command(Option::delete_);
    command(Option::delete_);
    click("Game");
    command(Option::delete_);
    ASSERT_THAT(tree().allItems(), IsEmpty());
    container->undoDelete();
    EXPECT_EQ(savedStructure(root()), "Game\n  c.asm\n");
    container->undoDelete();
    container->undoDelete();
    EXPECT_EQ(savedStructure(root()), "Game\n  a.asm\n  b.asm\n  c.asm\n");
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre("a.asm", "b.asm", "c.asm"));
}

TEST_F(ContainerDelete, UndoSavesTheProjectThatLostTheNodeWhicheverIsSelected) {
    makeGame();
    makeProject("Other");
    start();
    click("a.asm");
    command(Option::delete_);
    click("Other");
    container->undoDelete();
    EXPECT_EQ(savedStructure(root(0)), "Game\n  a.asm\n  b.asm\n  c.asm\n");
    EXPECT_EQ(savedStructure(root(1)), "Other\n");
    EXPECT_FALSE(exists("Kestrel/Other/.project/Game-ProjectStructure.cfg"));
}

TEST_F(ContainerDelete, UndoOfAProjectThatWasAddedAgainMeanwhileSelectsIt) {
    makeGame();
    makeProject("Other");
    start();
    click("Game");
    command(Option::delete_);
    const Node again = makeNode("Game", FileType::project, {}, home.path() / "Kestrel/Game");
    EXPECT_TRUE(container->addProjectToEditor(again));
    click("Other");
    container->undoDelete();
    EXPECT_THAT(tree().allItems(), ElementsAre(again, find("Other")));
    EXPECT_EQ(tree().selectedItem(), again);
    EXPECT_THAT(registered(), ElementsAre("Other", "Game"));
}

TEST_F(ContainerDelete, UndoOfAFileWhoseProjectIsGoneChangesNothing) {
    makeGame();
    makeProject("Other");
    start();
    click("a.asm");
    command(Option::delete_);
    click("Game");
    command(Option::delete_);
    const Node again = makeNode("Game", FileType::project, {}, home.path() / "Kestrel/Game");
    EXPECT_TRUE(container->addProjectToEditor(again));
    container->undoDelete(); // the project, which is there again
    container->undoDelete(); // the file of the project that went
    EXPECT_EQ(savedStructure(again), "Game\n  b.asm\n  c.asm\n");
    EXPECT_THAT(savedAssemblyFiles(again), ElementsAre("b.asm", "c.asm"));
}

} // namespace
} // namespace kestrel::test
