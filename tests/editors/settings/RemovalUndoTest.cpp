// SPDX-License-Identifier: MIT
#include "editors/settings/ProjectSettingsFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The pane with more.asm in the list of sources, too, and tiles.bin in that of tiles.
class RemovalUndo : public ProjectSettingsTest {
protected:
    void SetUp() override {
        ProjectSettingsTest::SetUp();
        addTo(sources(), "more.asm");
        addTo(tiles(), "tiles.bin");
    }

    const BuildFileList* sources() const { return pane().assemblyList(); }
    const BuildFileList* tiles() const { return pane().graphicsList(); }

    void remove(const BuildFileList* list, int row) const {
        clickRow(list, row);
        QTest::keyClick(list->table(), Qt::Key_Delete);
    }

    bool can(EditCommand command) const { return pane().canPerform(command); }
    void undo() const { pane().perform(EditCommand::undo); }
    void redo() const { pane().perform(EditCommand::redo); }

    std::vector<std::string> savedTiles() const {
        return names(NESBuildSettings(demo).graphicFiles());
    }
};

TEST_F(RemovalUndo, BringsTheFileBackWhereItWasSelectedAndSaved) {
    EXPECT_FALSE(can(EditCommand::undo));
    remove(sources(), 0);
    ASSERT_THAT(savedAssemblyFiles(demo), ElementsAre("more.asm"));
    ASSERT_TRUE(can(EditCommand::undo));
    undo();
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm", "more.asm"));
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm", "more.asm"));
    EXPECT_EQ(sources()->table()->selectedRow(), 0);
    EXPECT_FALSE(can(EditCommand::undo));
    restart();
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm", "more.asm"));
}

TEST_F(RemovalUndo, RedoTakesTheFileOffAgain) {
    remove(sources(), 1);
    EXPECT_FALSE(can(EditCommand::redo));
    undo();
    ASSERT_TRUE(can(EditCommand::redo));
    redo();
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm"));
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm"));
    EXPECT_EQ(sources()->table()->selectedRow(), 0);
    EXPECT_FALSE(can(EditCommand::redo));
    undo();
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm", "more.asm"));
}

TEST_F(RemovalUndo, SeveralRemovalsComeBackOneAfterAnotherTheLatestFirst) {
    remove(sources(), 0);
    remove(tiles(), 0);
    remove(sources(), 0);
    ASSERT_THAT(rows(sources()), IsEmpty());
    undo();
    EXPECT_THAT(rows(sources()), ElementsAre("more.asm"));
    EXPECT_THAT(rows(tiles()), IsEmpty());
    undo();
    EXPECT_THAT(savedTiles(), ElementsAre("tiles.bin"));
    undo();
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm", "more.asm"));
    redo();
    redo();
    EXPECT_THAT(rows(sources()), ElementsAre("more.asm"));
    EXPECT_THAT(savedTiles(), IsEmpty());
    remove(sources(), 0);
    EXPECT_FALSE(can(EditCommand::redo)) << "after another removal";
}

TEST_F(RemovalUndo, EachProjectHasItsOwnRemovals) {
    makeProject("Other", {fileOf("Other", "x.asm", FileType::text)});
    restart();
    remove(sources(), 0);
    click("Other");
    EXPECT_FALSE(can(EditCommand::undo));
    undo();
    click("Demo");
    ASSERT_TRUE(can(EditCommand::undo));
    undo();
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm", "more.asm"));
}

TEST_F(RemovalUndo, ALookAtAFileKeepsTheRemovals) {
    remove(sources(), 0);
    click("main.asm");
    click("Demo");
    undo();
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm", "more.asm"));
}

TEST_F(RemovalUndo, AFileThatWasAddedAgainIsListedOnce) {
    remove(sources(), 0);
    remove(sources(), 0);
    addTo(tiles(), "more.asm");
    undo();
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm"));
    EXPECT_THAT(rows(tiles()), ElementsAre("tiles.bin", "more.asm"));
    EXPECT_FALSE(can(EditCommand::undo));
}

TEST_F(RemovalUndo, WhatCouldNotBeSavedIsNoStep) {
    {
        const FullDisk full;
        remove(sources(), 0);
    }
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm", "more.asm"));
    EXPECT_FALSE(can(EditCommand::undo));
    remove(sources(), 0);
    {
        const FullDisk full;
        undo();
    }
    EXPECT_THAT(rows(sources()), ElementsAre("more.asm"));
    ASSERT_TRUE(can(EditCommand::undo));
    undo();
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm", "more.asm"));
    {
        const FullDisk full;
        redo();
    }
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm", "more.asm"));
    EXPECT_TRUE(can(EditCommand::redo));
}

TEST_F(RemovalUndo, RedoOfAFileThatWentInAnotherWayDoesNothing) {
    remove(sources(), 1);
    undo();
    NESBuildSettings settings(demo);
    settings.assemblyFiles().pop_back();
    settings.saveBuildSettings();
    redo();
    EXPECT_THAT(rows(sources()), ElementsAre("main.asm"));
    EXPECT_FALSE(can(EditCommand::redo));
}

TEST_F(RemovalUndo, OtherCommandsAreNotThePanes) {
    remove(sources(), 0);
    for (const EditCommand command :
         {EditCommand::cut, EditCommand::copy, EditCommand::paste, EditCommand::selectAll}) {
        EXPECT_FALSE(can(command));
        pane().perform(command);
    }
    EXPECT_THAT(rows(sources()), ElementsAre("more.asm"));
}

} // namespace
} // namespace kestrel::test
