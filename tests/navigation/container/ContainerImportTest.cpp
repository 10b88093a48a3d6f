// SPDX-License-Identifier: MIT
#include "navigation/container/ContainerFixture.h"

namespace kestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ContainerImport : public ContainerTest {
protected:
    /// Starts an import with a panel that stays open; returns what ends it.
    FilePanelHandler importWithPanelOpen() {
        FilePanelHandler chosen;
        container->setFilePanel([&](QWidget*, const QString&, const std::filesystem::path&,
                                    const FilePanelHandler& handler) { chosen = handler; });
        command(Option::importFile);
        return chosen;
    }

    std::filesystem::path foreign = home.write("elsewhere/foreign.asm", "text");
};

class ContainerGroup : public ContainerTest {};

TEST_F(ContainerImport, TheFileIsReferencedWhereItIsAsAFileOfUnknownKind) {
    makeProject("Game");
    start();
    answer = foreign;
    command(Option::importFile);
    const Node node = find("foreign.asm");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->itemFileType(), FileType::unknown);
    EXPECT_EQ(node->itemPathType(), FilePathType::absolute);
    EXPECT_EQ(node->itemPath(), home.path() / "elsewhere");
    EXPECT_FALSE(exists("Kestrel/Game/foreign.asm"));
    EXPECT_EQ(savedStructure(root()), "Game\n  foreign.asm\n");
    EXPECT_THAT(savedAssemblyFiles(root()), IsEmpty());
}

TEST_F(ContainerImport, ItsKindIsSaidToBeUnspecifiedAtOnceAndWhenItIsSelected) {
    makeProject("Game");
    start();
    answer = foreign;
    command(Option::importFile);
    const std::string said =
        "File type unspecified.\n Please set file to appropriate type in project settings";
    EXPECT_EQ(message(), said);
    EXPECT_EQ(tree().selectedItem(), root()); // it is shown without being selected
    click("Game");
    panes()->displayError(QStringLiteral("other"));
    click("foreign.asm");
    EXPECT_EQ(message(), said);
    EXPECT_EQ(tree().currentlySelectedProject(), root());
}

TEST_F(ContainerImport, AClickOnTheRowThatIsStillSelectedBringsItsPaneBackAsItWas) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("a.asm");
    QTest::keyClicks(typing->edit, QStringLiteral("lda "));
    answer = foreign;
    command(Option::importFile);
    ASSERT_EQ(shown(), panes()->emptyController);
    click("a.asm");
    EXPECT_EQ(shown(), typing);
    EXPECT_EQ(typing->edit->toPlainText(), QStringLiteral("lda a.asm"));
    EXPECT_EQ(typing->loads, 1);
    click("a.asm"); // with its pane in sight nothing happens
    EXPECT_EQ(typing->loads, 1);
}

TEST_F(ContainerImport, ReturnOnTheRowThatIsStillSelectedBringsItsPaneBack) {
    makeProject("Game");
    start();
    ASSERT_EQ(shown(), panes()->projectSettings);
    answer = foreign;
    command(Option::importFile);
    ASSERT_EQ(shown(), panes()->emptyController);
    QTest::keyClick(&view(), Qt::Key_Return);
    EXPECT_EQ(shown(), panes()->projectSettings);
    EXPECT_EQ(panes()->projectSettings->currentProject(), root());
}

TEST_F(ContainerImport, AnotherSelectedRowIsNotMistakenForTheOneWhosePaneItWas) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text), group("Parts")});
    start();
    click("a.asm");
    click("Parts");
    answer = foreign;
    command(Option::importFile);
    click("Parts");
    EXPECT_EQ(shown(), panes()->emptyController);
    EXPECT_EQ(message(), "Folder selected");
}

TEST_F(ContainerImport, TheSheetStandsOnTheMainWindowAndAsksForAPath) {
    makeProject("Game");
    start();
    QWidget console;
    console.show();
    console.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&console));
    command(Option::importFile);
    EXPECT_EQ(panels, 1);
    EXPECT_EQ(panelWindow, window.get());
    EXPECT_EQ(panelPrompt, "Select path");
    EXPECT_EQ(panelFolder, home.path() / "Kestrel/Game");
}

TEST_F(ContainerImport, AnyOtherEndingIsLoggedAndChangesNothing) {
    makeProject("Game");
    start();
    answer.emplace(std::nullopt);
    command(Option::importFile);
    EXPECT_THAT(log.lines(), Contains("Could not import file"));
    EXPECT_THAT(root()->subItems(), IsEmpty());
}

TEST_F(ContainerImport, ImportSelectDeleteRestart) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    answer = foreign;
    command(Option::importFile);
    EXPECT_EQ(find("foreign.asm")->parent(), root());
    click("foreign.asm");
    EXPECT_EQ(tree().currentlySelectedProject(), root());
    command(Option::delete_);
    // Nothing was taken for a project: no settings lie beside the foreign file.
    EXPECT_FALSE(exists("elsewhere/.project"));
    EXPECT_TRUE(exists("elsewhere/foreign.asm"));
    EXPECT_EQ(savedStructure(root()), "Game\n  a.asm\n");
    start();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm"));
}

TEST_F(ContainerImport, WhatIsMadeBesideAnImportedFileIsThereAfterARestart) {
    makeProject("Game");
    start();
    answer = foreign;
    command(Option::importFile);
    click("foreign.asm");
    makeFile(0, "new.asm");
    EXPECT_TRUE(exists("Kestrel/Game/new.asm"));
    start();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("foreign.asm", "new.asm"));
}

TEST_F(ContainerImport, IntoAGroupTheGroupIsTheParent) {
    makeProject("Game", {group("Parts")});
    start();
    click("Parts");
    answer = foreign;
    command(Option::importFile);
    EXPECT_EQ(find("foreign.asm")->parent(), find("Parts"));
    EXPECT_EQ(savedStructure(root()), "Game\n  Parts\n    foreign.asm\n");
}

TEST_F(ContainerImport, AKindSetLaterIsSaved) {
    makeProject("Game");
    start();
    answer = foreign;
    command(Option::importFile);
    find("foreign.asm")->setItemFileType(FileType::text);
    container->updatedFileType();
    start();
    EXPECT_EQ(find("foreign.asm")->itemFileType(), FileType::text);
}

TEST_F(ContainerImport, WithoutASelectedRowNothingIsAsked) {
    makeProject("Game");
    start();
    deselect();
    centre.post(ProjectNavigationMenuClicked, std::any(Option::importFile));
    EXPECT_EQ(panels, 0);
    EXPECT_THAT(root()->subItems(), IsEmpty());
}

TEST_F(ContainerImport, ARowDeselectedWhileThePanelWasOpenGetsNothing) {
    makeProject("Game");
    start();
    const FilePanelHandler chosen = importWithPanelOpen();
    deselect();
    chosen(foreign);
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_EQ(savedStructure(root()), "Game\n");
}

TEST_F(ContainerImport, APanelThatOutlivesTheContainerIsHarmless) {
    makeProject("Game");
    start();
    const FilePanelHandler chosen = importWithPanelOpen();
    close();
    chosen(foreign);
    EXPECT_THAT(log.lines(), Contains("Could not import file"));
}

TEST_F(ContainerImport, QtsOwnPanelIsUsedUnlessAnotherOneIsGiven) {
    makeProject("Game");
    start();
    container->setFilePanel(openFilePanel);
    command(Option::importFile);
    auto* panel = window->findChild<QDialog*>(QStringLiteral("filePanel"));
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(panel->isVisible());
    QTest::keyClick(panel, Qt::Key_Escape);
    EXPECT_THAT(log.lines(), Contains("Could not import file"));
}

TEST_F(ContainerGroup, IsNamedGroupAndHasNoFolderOnDisk) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("a.asm");
    command(Option::newGroup);
    command(Option::newGroup);
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm", "Group", "Group"));
    const Node made = find("Group");
    EXPECT_EQ(made->itemFileType(), FileType::group);
    EXPECT_EQ(made->itemPathType(), FilePathType::noPath);
    EXPECT_EQ(made->itemPath(), root()->itemPath());
    EXPECT_EQ(made->parent(), root());
    EXPECT_THAT(made->subItems(), IsEmpty());
    EXPECT_FALSE(exists("Kestrel/Game/Group"));
    EXPECT_EQ(savedStructure(root()), "Game\n  a.asm\n  Group\n  Group\n");
    EXPECT_EQ(tree().selectedItem(), find("a.asm"));
}

TEST_F(ContainerGroup, OnAProjectRowAddIntoItRestart) {
    makeProject("Game");
    start();
    click("Game");
    command(Option::newGroup);
    EXPECT_EQ(find("Group")->parent(), root());
    click("Group");
    EXPECT_EQ(tree().currentlySelectedProject(), root());
    makeFile(0, "new.asm");
    EXPECT_EQ(savedStructure(root()), "Game\n  Group\n    new.asm\n");
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre("new.asm"));
    EXPECT_FALSE(exists("Kestrel/Game/.project/Group-ProjectStructure.cfg"));
    start();
    EXPECT_THAT(names(find("Group")->subItems()), ElementsAre("new.asm"));
}

TEST_F(ContainerGroup, OnACollapsedProjectRowItHasTheProjectAsParent) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    ASSERT_FALSE(view().isExpanded(tree().model()->indexOf(root())));
    command(Option::newGroup);
    EXPECT_EQ(find("Group")->parent(), root());
}

TEST_F(ContainerGroup, InAGroupItKeepsTheParentOfTheGroup) {
    makeProject("Game", {group("Parts")});
    start();
    click("Parts");
    command(Option::newGroup);
    EXPECT_THAT(names(find("Parts")->subItems()), ElementsAre("Group"));
    EXPECT_EQ(find("Group")->parent(), root());
    click("Group");
    command(Option::delete_);
    EXPECT_THAT(find("Parts")->subItems(), IsEmpty());
    EXPECT_EQ(savedStructure(root()), "Game\n  Parts\n");
}

TEST_F(ContainerGroup, WhileNothingIsSelectedNoGroupIsMade) {
    makeProject("Game");
    start();
    deselect();
    ASSERT_EQ(tree().currentlySelectedProject(), root());
    centre.post(ProjectNavigationMenuClicked, std::any(Option::newGroup));
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_EQ(savedStructure(root()), "Game\n");
    EXPECT_THAT(log.lines(), Contains("NSOutlineView not set for ProjectNavigationController"));
}

TEST_F(ContainerGroup, ThePaneThatIsShownStays) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("a.asm");
    command(Option::newGroup);
    EXPECT_EQ(shown(), typing);
    EXPECT_EQ(typing->loads, 1);
}

} // namespace
} // namespace kestrel::test
