// SPDX-License-Identifier: MIT
#include "navigation/container/ContainerFixture.h"
#include "support/ChildProcess.h"

namespace kestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ContainerProject : public ContainerTest {
protected:
    Node newNode(const std::string& name, const ProjectItems& children = {}) const {
        return makeNode(name, FileType::project, children, home.path() / "Kestrel" / name);
    }
};

TEST_F(ContainerProject, ANewOneIsLaidOutOnDiskShownOnTopSelectedAndRegistered) {
    makeProject("Old");
    start();
    command(Option::newProject);
    EXPECT_EQ(container->newProjectController()->path(), pathText(home.path()) + "/Kestrel/");
    finishWizard(container->newProjectController(), 0, "Fresh");
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Fresh", "Old"));
    EXPECT_EQ(tree().selectedItem(), root());
    EXPECT_EQ(tree().currentlySelectedProject(), root());
    EXPECT_EQ(shown(), panes()->projectSettings);
    EXPECT_TRUE(exists("Kestrel/Fresh/Fresh.kst"));
    EXPECT_TRUE(exists("Kestrel/Fresh/.project/Fresh-ProjectStructure.cfg"));
    EXPECT_TRUE(exists("Kestrel/Fresh/.project/Fresh-BuildSettings.cfg"));
    EXPECT_THAT(registered(), ElementsAre("Old", "Fresh"));
    start();
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Old", "Fresh"));
}

TEST_F(ContainerProject, TheFirstOneOfAllCanBeMadeWithoutAnySelection) {
    start();
    EXPECT_TRUE(tree().menu()->action(Option::newProject)->isEnabled());
    command(Option::newProject);
    finishWizard(container->newProjectController(), 0, "Fresh");
    EXPECT_EQ(tree().selectedItem(), root());
    EXPECT_THAT(registered(), ElementsAre("Fresh"));
}

TEST_F(ContainerProject, ACancelledWizardMakesNothing) {
    start();
    command(Option::newProject);
    QTest::keyClick(sheet(), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_THAT(tree().allItems(), IsEmpty());
    EXPECT_FALSE(exists("Kestrel"));
    EXPECT_FALSE(exists(".Kestrel"));
}

TEST_F(ContainerProject, WhereTheFolderCannotBeMadeNothingChanges) {
    home.write("Kestrel", "a file in the way");
    start();
    EXPECT_FALSE(container->addProjectToEditor(newNode("Fresh")));
    EXPECT_THAT(tree().allItems(), IsEmpty());
    EXPECT_THAT(registered(), IsEmpty());
    EXPECT_FALSE(container->addProjectToEditor(nullptr));
}

TEST_F(ContainerProject, ANameWithASeparatorInItIsAcceptedAndNotFoundAgain) {
    start();
    command(Option::newProject);
    finishWizard(container->newProjectController(), 0, "a/b");
    EXPECT_THAT(names(tree().allItems()), ElementsAre("a/b"));
    start();
    EXPECT_THAT(tree().allItems(), IsEmpty());
}

TEST_F(ContainerProject, AnUnwritableRegistryIsReportedAndTheProjectIsInTheTree) {
    home.write(".Kestrel/AllProjects.cfg", "no JSON");
    start();
    EXPECT_FALSE(container->addProjectToEditor(newNode("Fresh")));
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Fresh"));
    EXPECT_EQ(content(".Kestrel/AllProjects.cfg"), "no JSON");
}

TEST_F(ContainerProject, OneThatIsInTheTreeAlreadyIsSelectedInsteadOfAddedTwice) {
    makeProject("First");
    makeProject("Second", {fileOf("Second", "a.asm", FileType::text)});
    start();
    const Node second = root(1);
    EXPECT_TRUE(container->addProjectToEditor(newNode("Second")));
    EXPECT_THAT(names(tree().allItems()), ElementsAre("First", "Second"));
    EXPECT_EQ(tree().selectedItem(), second);
    EXPECT_EQ(panes()->projectSettings->currentProject(), second);
    EXPECT_THAT(registered(), ElementsAre("First", "Second"));
    EXPECT_THAT(names(second->subItems()), ElementsAre("a.asm"));
}

TEST_F(ContainerProject, OneThatLostItsProjectFileGetsItBackWhenItIsMadeAgainByName) {
    makeProject("First");
    makeProject("Second", {fileOf("Second", "a.asm", FileType::text)});
    start();
    const auto file = home.path() / "Kestrel/Second/Second.kst";
    std::filesystem::remove(file);
    EXPECT_TRUE(container->addProjectToEditor(newNode("Second")));
    EXPECT_TRUE(existsAt(file));
    EXPECT_THAT(names(tree().allItems()), ElementsAre("First", "Second"));
    EXPECT_EQ(savedStructure(root(1)), "Second\n  a.asm\n");
    EXPECT_EQ(panes()->projectSettings->currentProject(), root(1));
}

TEST_F(ContainerProject, OneThatGetsItsProjectFileBackWhileItIsSelectedShowsItsSettingsAgain) {
    makeProject("Game");
    makeProject("Other");
    start();
    view().selectIndex(tree().model()->index(1, 0));
    const auto file = home.path() / "Kestrel/Game/Game.kst";
    std::filesystem::remove(file);
    view().selectIndex(tree().model()->index(0, 0));
    ASSERT_EQ(panes()->currentWidget(), panes()->emptyController);
    EXPECT_TRUE(container->addProjectToEditor(newNode("Game")));
    EXPECT_TRUE(existsAt(file));
    EXPECT_EQ(panes()->currentWidget(), panes()->projectSettings);
}

TEST_F(ContainerProject, OneThatIsRegisteredTwiceIsOneTreeSoThatNoRowOverwritesTheOthersChanges) {
    const Node game = makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    ASSERT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(game));
    start();
    ASSERT_THAT(names(tree().allItems()), ElementsAre("Game", "Game"));
    for (const int row : {0, 1}) {
        view().selectIndex(tree().model()->index(row, 0));
        command(Option::newGroup);
    }
    EXPECT_EQ(savedStructure(root()), "Game\n  Group\n  Group\n  a.asm\n");
    start();
    EXPECT_THAT(names(root(1)->subItems()), ElementsAre("Group", "Group", "a.asm"));
    view().selectIndex(tree().model()->index(1, 0));
    command(Option::delete_);
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Game"));
    EXPECT_THAT(registered(), ElementsAre("Game"));
}

TEST_F(ContainerProject, OneReachedThroughALinkIsTheSameOne) {
    makeProject("Game");
    start();
    std::filesystem::create_directory_symlink(home.path() / "Kestrel", home.path() / "link");
    const Node linked = makeNode("Game", FileType::project, {}, home.path() / "link/Game/");
    EXPECT_TRUE(container->addProjectToEditor(linked));
    EXPECT_EQ(tree().allItems().size(), 1U);
}

TEST_F(ContainerProject, TheSameNameInAnotherFolderIsAnotherProject) {
    makeProject("Game");
    start();
    const Node other = makeNode("Game", FileType::project, {}, home.path() / "elsewhere/Game");
    EXPECT_TRUE(container->addProjectToEditor(other));
    EXPECT_THAT(tree().allItems(), ElementsAre(other, testing::Ne(other)));
    EXPECT_THAT(registered(), ElementsAre("Game", "Game"));
}

TEST_F(ContainerProject, OneThatIsOnlyInTheRegistryIsNotListedThereTwice) {
    const Node project = makeProject("Game");
    std::filesystem::remove(home.path() / "Kestrel/Game/Game.kst");
    start(); // without its project file it is not shown
    ASSERT_THAT(tree().allItems(), IsEmpty());
    EXPECT_TRUE(container->addProjectToEditor(newNode("Game")));
    EXPECT_THAT(registered(), ElementsAre("Game"));
    EXPECT_EQ(tree().allItems().size(), 1U);
}

TEST_F(ContainerProject, NothingOfAStructureFileThatIsThereAlreadyIsLost) {
    makeProject("Game", {fileOf("Game", "old.asm", FileType::text),
                         group("Parts", {fileOf("Game", "deep.asm", FileType::text)})});
    std::filesystem::remove(home.path() / ".Kestrel/AllProjects.cfg");
    start();
    EXPECT_TRUE(container->addProjectToEditor(
        newNode("Game", {fileOf("Game", "mine.asm", FileType::text)})));
    const std::string all = "Game\n  old.asm\n  Parts\n    deep.asm\n  mine.asm\n";
    EXPECT_EQ(savedStructure(root()), all);
    EXPECT_THAT(names(root()->subItems()), ElementsAre("old.asm", "Parts", "mine.asm"));
    click("Parts");
    EXPECT_EQ(tree().currentlySelectedProject(), root());
    start();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("old.asm", "Parts", "mine.asm"));
}

TEST_F(ContainerProject, AStructureFileThatSaysTheSameIsNotWrittenAgain) {
    const Node game = newNode("Game", {fileOf("Game", "a.asm", FileType::text)});
    const auto path = structureLocation(*game);
    home.write("Kestrel/Game/.project/Game-ProjectStructure.cfg",
               "  " + *serialiseJson(game->toDictionary(), 7));
    const std::string before = contentOf(path);
    start();
    EXPECT_TRUE(container->addProjectToEditor(game));
    EXPECT_EQ(contentOf(path), before);
}

TEST_F(ContainerProject, AStructureFileThatIsNotUnderstoodStaysAndThenHasABackup) {
    home.write("Kestrel/Game/.project/Game-ProjectStructure.cfg", "{ precious");
    start();
    EXPECT_TRUE(container->addProjectToEditor(newNode("Game")));
    EXPECT_EQ(content("Kestrel/Game/.project/Game-ProjectStructure.cfg"), "{ precious");
    command(Option::newGroup);
    EXPECT_EQ(savedStructure(root()), "Game\n  Group\n");
    EXPECT_EQ(content("Kestrel/Game/.project/Game-ProjectStructure.cfg.bak"), "{ precious");
}

TEST_F(ContainerProject, WhatArrivesWhileASheetIsOpenWaitsInOrderForItsEnd) {
    makeProject("Game");
    start();
    command(Option::newFile);
    std::vector<int> done;
    container->whenNoSheetIsOpen([&] {
        done.push_back(1);
        EXPECT_TRUE(container->addProjectToEditor(newNode("First")));
    });
    container->whenNoSheetIsOpen([&] {
        done.push_back(2);
        EXPECT_TRUE(container->addProjectToEditor(newNode("Second")));
    });
    QApplication::processEvents();
    EXPECT_THAT(done, IsEmpty());
    finishWizard(container->newFileController(), 0, "new.asm");
    EXPECT_TRUE(QTest::qWaitFor([&] { return done.size() == 2; }));
    EXPECT_THAT(done, ElementsAre(1, 2));
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Second", "First", "Game"));
    // The file went into the project for which it was asked.
    EXPECT_EQ(savedStructure(find("Game")), "Game\n  new.asm\n");
}

TEST_F(ContainerProject, WhatArrivesWithoutASheetIsDoneAtOnce) {
    start();
    bool done = false;
    container->whenNoSheetIsOpen([&] { done = true; });
    EXPECT_TRUE(done);
}

TEST_F(ContainerProject, WhatWaitsLongerThanASecondSheetGoesOnWaiting) {
    start();
    command(Option::newProject);
    int done = 0;
    container->whenNoSheetIsOpen([&] {
        ++done;
        auto* other = new Sheet(window.get());
        other->setObjectName(QStringLiteral("second"));
        other->begin([] {});
    });
    container->whenNoSheetIsOpen([&] { ++done; });
    QTest::keyClick(sheet(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return done == 1; }));
    QApplication::processEvents();
    EXPECT_EQ(done, 1);
    window->findChild<Sheet*>(QStringLiteral("second"))->end();
    EXPECT_TRUE(QTest::qWaitFor([&] { return done == 2; }));
}

TEST_F(ContainerProject, WhatStillWaitsWhenTheWindowGoesIsDropped) {
    start();
    command(Option::newProject);
    bool done = false;
    container->whenNoSheetIsOpen([&] { done = true; });
    close();
    QApplication::processEvents();
    EXPECT_FALSE(done);
}

} // namespace
} // namespace kestrel::test
