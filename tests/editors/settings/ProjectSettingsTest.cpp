// SPDX-License-Identifier: MIT
#include "editors/settings/ProjectSettingsFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Names = std::vector<std::string>;

/// Counts what the pane reports, and passes it on to the container.
struct CountingDataSource final : ProjectSettingsDataSource {
    explicit CountingDataSource(ProjectSettingsDataSource& container)
        : next(container) {}
    ProjectSettingsDataSource& next;
    int calls = 0;
    void updatedFileType() override {
        ++calls;
        next.updatedFileType();
    }
};

TEST_F(ProjectSettingsTest, ShowsTheSettingsOfTheSelectedProject) {
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
    EXPECT_THAT(rows(pane().graphicsList()), IsEmpty());
    EXPECT_THAT(rows(pane().paletteList()), IsEmpty());
    EXPECT_EQ(pane().numberOfRows(pane().assemblyList()->table()), 1);
    EXPECT_EQ(pane().numberOfRows(pane().graphicsList()->table()), 0);
    EXPECT_EQ(pane().numberOfRows(nullptr), 0);
    EXPECT_EQ(pane().numberOfRows(&view()), 0);
    EXPECT_EQ(pane().buildSettings()->projectToBuild(), demo);
    EXPECT_EQ(pane().buildSettings()->projectPath(), demo->itemPath());
}

TEST_F(ProjectSettingsTest, ACellShowsTheFilesName) {
    const ProjectSettingCell* cell = pane().viewFor(pane().assemblyList()->table(), 0);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->projectSettingsLabel.lock()->stringValue, QStringLiteral("main.asm"));
    EXPECT_EQ(pane().viewFor(pane().assemblyList()->table(), 1), nullptr);
    EXPECT_EQ(pane().viewFor(pane().assemblyList()->table(), -1), nullptr);
    EXPECT_EQ(pane().viewFor(&view(), 0), nullptr);
}

TEST_F(ProjectSettingsTest, PressingMinusWithNoRowSelectedDoesNothing) {
    const std::string before = content("Kestrel/Demo/.project/Demo-BuildSettings.cfg");
    const std::size_t lines = log.lines().size();
    for (const BuildFileList* list :
         {pane().assemblyList(), pane().graphicsList(), pane().paletteList()}) {
        EXPECT_FALSE(list->subtractButton()->isEnabled());
        press(list->subtractButton());
        pane().subtractEntry(list->subtractButton());
        QTest::keyClick(list->table(), Qt::Key_Delete);
    }
    EXPECT_EQ(log.lines().size(), lines); // a save would be logged
    EXPECT_EQ(content("Kestrel/Demo/.project/Demo-BuildSettings.cfg"), before);
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
}

TEST_F(ProjectSettingsTest, AFileOfUnknownKindAddedToTheGraphicsOpensInTheGraphicsEditor) {
    home.write("Kestrel/Demo/tiles.bin", std::string(8192, '\0'));
    click("tiles.bin");
    EXPECT_EQ(shown(), panes()->emptyController);
    click(demo);
    addTo(pane().graphicsList(), "tiles.bin");
    EXPECT_EQ(find("tiles.bin")->itemFileType(), FileType::graphics);
    EXPECT_THAT(rows(pane().graphicsList()), ElementsAre("tiles.bin"));
    click("tiles.bin");
    EXPECT_EQ(shown(), panes()->graphicsEditor);
}

TEST_F(ProjectSettingsTest, OfSeveralChosenFilesOnlyTheFirstIsAdded) {
    pane().setFilePicker([&](const Node& project, QWidget* on, const auto& handler) {
        EXPECT_EQ(project, demo);
        EXPECT_EQ(on, window.get());
        handler({find("tiles.bin"), find("more.asm")});
        return nullptr;
    });
    press(pane().paletteList()->addButton());
    EXPECT_THAT(rows(pane().paletteList()), ElementsAre("tiles.bin"));
    EXPECT_EQ(find("more.asm")->itemFileType(), FileType::unknown);
}

TEST_F(ProjectSettingsTest, AnAddedFileIsShownSavedAndStillThereAfterARestart) {
    addTo(pane().assemblyList(), "more.asm");
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm", "more.asm"));
    EXPECT_THAT(names(pane().buildSettings()->assemblyFiles()),
                ElementsAre("main.asm", "more.asm"));
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm", "more.asm"));
    restart();
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm", "more.asm"));
    EXPECT_EQ(find("more.asm")->itemFileType(), FileType::text);
    click("more.asm");
    EXPECT_EQ(shown(), typing);
}

TEST_F(ProjectSettingsTest, EachPlusButtonGivesItsOwnKind) {
    addTo(pane().paletteList(), "tiles.bin");
    EXPECT_EQ(find("tiles.bin")->itemFileType(), FileType::palette);
    EXPECT_THAT(names(NESBuildSettings(demo).paletteFiles()), ElementsAre("tiles.bin"));
    addTo(pane().assemblyList(), "tiles.bin");
    EXPECT_EQ(find("tiles.bin")->itemFileType(), FileType::text);
}

TEST_F(ProjectSettingsTest, AddingTellsTheContainerAndRefreshesTheTree) {
    CountingDataSource counting(*panes());
    pane().setDatasource(&counting);
    int looked = 0;
    tree().setFileExistence([&](const std::filesystem::path&) {
        ++looked;
        return true;
    });
    view().grab();
    looked = 0;
    addTo(pane().graphicsList(), "tiles.bin");
    view().grab();
    EXPECT_EQ(counting.calls, 1);
    EXPECT_GT(looked, 0);
    EXPECT_EQ(tree().selectedItem(), demo);
    pane().setDatasource(panes());
}

TEST_F(ProjectSettingsTest, AddingAFileAgainListsItOnceButSavesAndTells) {
    addTo(pane().graphicsList(), "tiles.bin");
    CountingDataSource counting(*panes());
    pane().setDatasource(&counting);
    find("tiles.bin")->setItemFileType(FileType::unknown);
    home.write("Kestrel/Demo/.project/Demo-BuildSettings.cfg", "{}");
    addTo(pane().graphicsList(), "tiles.bin");
    EXPECT_THAT(rows(pane().graphicsList()), ElementsAre("tiles.bin"));
    EXPECT_THAT(names(NESBuildSettings(demo).graphicFiles()), ElementsAre("tiles.bin"));
    EXPECT_EQ(find("tiles.bin")->itemFileType(), FileType::graphics);
    EXPECT_EQ(counting.calls, 1);
    pane().setDatasource(panes());
}

TEST_F(ProjectSettingsTest, AddingAFileToAnotherListTakesItOutOfItsFormerOne) {
    addTo(pane().paletteList(), "main.asm");
    EXPECT_THAT(rows(pane().assemblyList()), IsEmpty());
    EXPECT_THAT(rows(pane().paletteList()), ElementsAre("main.asm"));
    restart();
    EXPECT_THAT(rows(pane().assemblyList()), IsEmpty());
    EXPECT_THAT(rows(pane().paletteList()), ElementsAre("main.asm"));
}

TEST_F(ProjectSettingsTest, AFileOfTheSameNameInAnotherFolderIsAnotherFile) {
    const TemporaryFolder elsewhere;
    elsewhere.write("main.asm", "");
    click("more.asm");
    answer.emplace(elsewhere.path() / "main.asm");
    command(Option::importFile);
    click(demo);
    const Node other = find("Group")->subItems().back();
    ASSERT_EQ(other->itemName(), "main.asm");
    pane().setFilePicker([&](const Node&, QWidget*, const auto& handler) {
        handler({other});
        return nullptr;
    });
    press(pane().assemblyList()->addButton());
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm", "main.asm"));
    press(pane().graphicsList()->addButton());
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
    EXPECT_EQ(pane().assemblyFiles().front()->itemPath(), demo->itemPath());
}

TEST_F(ProjectSettingsTest, TheRowAfterTheRemovedOneIsSelected) {
    addTo(pane().assemblyList(), "tiles.bin");
    addTo(pane().assemblyList(), "more.asm");
    const BuildFileList* list = pane().assemblyList();
    clickRow(list, 1);
    press(list->subtractButton());
    EXPECT_THAT(rows(list), ElementsAre("main.asm", "more.asm"));
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), 1);
    EXPECT_TRUE(list->subtractButton()->isEnabled());
    press(list->subtractButton());
    EXPECT_THAT(rows(list), ElementsAre("main.asm"));
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), 0); // there is none after it
    press(list->subtractButton());
    EXPECT_THAT(rows(list), IsEmpty());
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), -1);
    EXPECT_FALSE(list->subtractButton()->isEnabled());
    EXPECT_THAT(savedAssemblyFiles(demo), IsEmpty());
    EXPECT_EQ(find("more.asm")->itemFileType(), FileType::text); // the tree keeps the kind
    EXPECT_TRUE(exists("Kestrel/Demo/more.asm"));
}

TEST_F(ProjectSettingsTest, TheMinusButtonKeepsTheFocusWhileThereIsSomethingToRemove) {
    addTo(pane().assemblyList(), "more.asm");
    const BuildFileList* list = pane().assemblyList();
    clickRow(list, 0);
    list->subtractButton()->setFocus();
    ASSERT_TRUE(list->subtractButton()->hasFocus());
    QTest::keyClick(list->subtractButton(), Qt::Key_Space);
    EXPECT_THAT(rows(list), ElementsAre("more.asm"));
    EXPECT_TRUE(list->subtractButton()->hasFocus());
}

TEST_F(ProjectSettingsTest, AHeldDeleteKeyRemovesOneFile) {
    addTo(pane().assemblyList(), "more.asm");
    clickRow(pane().assemblyList(), 0);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::KeypadModifier);
    QApplication::sendEvent(pane().assemblyList()->table(), &press);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(pane().assemblyList()->table(), &repeated);
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("more.asm"));
}

TEST_F(ProjectSettingsTest, TheDeleteKeyRemovesTheSelectedFile) {
    addTo(pane().paletteList(), "tiles.bin");
    clickRow(pane().paletteList(), 0);
    QTest::keyClick(pane().paletteList()->table(), Qt::Key_Delete);
    EXPECT_THAT(rows(pane().paletteList()), IsEmpty());
    EXPECT_NE(find("tiles.bin"), nullptr); // the file's row in the tree stays
    clickRow(pane().assemblyList(), 0);
    QTest::keyClick(pane().assemblyList()->table(), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
    QTest::keyClick(pane().assemblyList()->table(), Qt::Key_Backspace);
    EXPECT_THAT(rows(pane().assemblyList()), IsEmpty());
}

TEST_F(ProjectSettingsTest, OfTwoFilesOfOneNameTheFirstIsRemoved) {
    NESBuildSettings settings(demo);
    settings.addNewFile(makeNode("a.asm", FileType::text, {}, "/first"));
    settings.addNewFile(makeNode("a.asm", FileType::text, {}, "/second"));
    ASSERT_TRUE(pane().updateBuildSettings());
    clickRow(pane().assemblyList(), 2);
    press(pane().assemblyList()->subtractButton());
    ASSERT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm", "a.asm"));
    EXPECT_EQ(pane().assemblyFiles().back()->itemPath(), "/second");
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), 1);
}

TEST_F(ProjectSettingsTest, NothingIsSelectedAtFirstAndAfterAnotherProjectIsShown) {
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), -1);
    EXPECT_EQ(pane().currentlySelectedForForGraphics(), -1);
    EXPECT_EQ(pane().currentlySelectedForForPalettes(), -1);
    addTo(pane().graphicsList(), "tiles.bin");
    clickRow(pane().assemblyList(), 0);
    clickRow(pane().graphicsList(), 0);
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), 0);
    EXPECT_EQ(pane().currentlySelectedForForGraphics(), 0);
    const Node other = makeNode("Other", FileType::project, {}, home.path() / "Kestrel" / "Other");
    ASSERT_TRUE(container->addProjectToEditor(other));
    ASSERT_EQ(pane().buildSettings()->projectToBuild(), other);
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), -1);
    EXPECT_EQ(pane().currentlySelectedForForGraphics(), -1);
    EXPECT_FALSE(pane().assemblyList()->subtractButton()->isEnabled());
    click(demo);
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), -1);
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
}

TEST_F(ProjectSettingsTest, ThePickerShowsTheProjectExpandedAndPicksNothingWhenItIsCancelled) {
    press(pane().graphicsList()->addButton());
    AddNewItemFromProjectController* picker = pane().addNewItemFromProjectController();
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->parentWindow(), window.get());
    EXPECT_EQ(picker->allItems(), ProjectItems{demo});
    EXPECT_TRUE(
        picker->outlineView()->visualRect(picker->model()->indexOf(find("more.asm"))).isValid());
    press(pane().paletteList()->addButton()); // while it is open no other opens
    EXPECT_EQ(pane().addNewItemFromProjectController(), picker);
    EXPECT_EQ(sheets().size(), 1U);
    press(picker->cancelButton());
    EXPECT_EQ(pane().addNewItemFromProjectController(), nullptr);
    EXPECT_THAT(rows(pane().graphicsList()), IsEmpty());
}

TEST_F(ProjectSettingsTest, ThePickerIsWorkedByKeysAlone) {
    pane().graphicsList()->addButton()->setFocus();
    QTest::keyClick(window->focusWidget(), Qt::Key_Space);
    AddNewItemFromProjectController* picker = pane().addNewItemFromProjectController();
    ASSERT_NE(picker, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(picker->window()));
    QTest::keyClicks(picker->window()->focusWidget(), QStringLiteral("tiles"));
    QTest::keyClick(picker->window()->focusWidget(), Qt::Key_Return);
    EXPECT_THAT(rows(pane().graphicsList()), ElementsAre("tiles.bin"));
}

TEST_F(ProjectSettingsTest, TheWindowMayGoWhileThePickerIsOpen) {
    press(pane().graphicsList()->addButton());
    close();
    EXPECT_THAT(names(NESBuildSettings(demo).graphicFiles()), IsEmpty());
}

TEST_F(ProjectSettingsTest, SettingsWithoutAnOutputFolderAreNotShown) {
    click("main.asm");
    home.write("Kestrel/Demo/.project/Demo-BuildSettings.cfg", R"({"emulator": "/x"})");
    click(demo);
    EXPECT_EQ(shown(), panes()->emptyController);
    EXPECT_EQ(message(), "Build Project settings is misconfigured and could not display");
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
    EXPECT_FALSE(pane().updateBuildSettings());
    EXPECT_FALSE(pane().buildSettings()->outputFilePath().has_value());
}

TEST_F(ProjectSettingsTest, WithoutAProjectNothingCanBeDone) {
    ProjectSettingsController lonely;
    EXPECT_FALSE(lonely.updateBuildSettings());
    for (const BuildFileList* list :
         {lonely.assemblyList(), lonely.graphicsList(), lonely.paletteList()}) {
        EXPECT_FALSE(list->addButton()->isEnabled());
        EXPECT_FALSE(list->subtractButton()->isEnabled());
        lonely.addEntry(list->addButton());
        lonely.subtractEntry(list->subtractButton());
    }
    lonely.setPathForEmulator();
    EXPECT_EQ(lonely.addNewItemFromProjectController(), nullptr);
    EXPECT_EQ(lonely.buildSettings(), nullptr);
    EXPECT_FALSE(lonely.emulatorField()->chooseButton()->isEnabled());
    EXPECT_FALSE(lonely.emulatorField()->installedButton()->isEnabled());
}

TEST_F(ProjectSettingsTest, AFileThatIsGoneIsRedUntilItIsBack) {
    const auto colour = [&] {
        return pane()
            .viewFor(pane().assemblyList()->table(), 0)
            ->projectSettingsLabel.lock()
            ->textColour;
    };
    EXPECT_EQ(colour(), ProjectNavigationItem::TextColour::black);
    std::filesystem::remove(home.path() / "Kestrel/Demo/main.asm");
    QWidget other;
    const auto comeBack = [&] {
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    };
    comeBack();
    EXPECT_EQ(colour(), ProjectNavigationItem::TextColour::red);
    const QModelIndex row = pane().assemblyList()->model()->index(0);
    EXPECT_EQ(row.data(Qt::AccessibleTextRole).toString(), QStringLiteral("main.asm (missing)"));
    EXPECT_EQ(row.data().toString(), QStringLiteral("main.asm"));
    home.write("Kestrel/Demo/main.asm", "");
    comeBack();
    EXPECT_EQ(colour(), ProjectNavigationItem::TextColour::black);
}

TEST_F(ProjectSettingsTest, ATooltipShowsTheWholePath) {
    const auto relative = makeNode("<b>deep.asm", FileType::text, {}, "code/deep");
    relative->setItemPathType(FilePathType::relative);
    NESBuildSettings(demo).addNewFile(relative);
    ASSERT_TRUE(pane().updateBuildSettings());
    const auto tip = [&](int row) {
        return pane()
            .assemblyList()
            ->model()
            ->index(row)
            .data(Qt::ToolTipRole)
            .toString()
            .toStdString();
    };
    EXPECT_EQ(tip(0), demo->itemPath().string() + "/main.asm");
    EXPECT_THAT(tip(1),
                testing::HasSubstr(demo->itemPath().string() + "/code/deep/&lt;b&gt;deep.asm"));
}

TEST_F(ProjectSettingsTest, OnAFullDiskTheFileToRemoveStaysListed) {
    clickRow(pane().assemblyList(), 0);
    {
        const FullDisk full;
        press(pane().assemblyList()->subtractButton());
    }
    EXPECT_THAT(log.lines(), testing::Contains("Could not save build settings"));
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm"));
}

TEST_F(ProjectSettingsTest, LooksForNoFileThatIsOutOfSight) {
    NESBuildSettings settings(demo);
    for (int number = 0; number < 5000; ++number) {
        settings.assemblyFiles().push_back(
            makeNode("file" + std::to_string(number), FileType::text, {}, "/nowhere"));
    }
    settings.saveBuildSettings();
    ASSERT_TRUE(pane().updateBuildSettings());
    EXPECT_EQ(pane().numberOfRows(pane().assemblyList()->table()), 5001);
    int asked = 0;
    pane().assemblyList()->model()->setFileExistence([&](const std::filesystem::path&) {
        ++asked;
        return false;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] {
        pane().assemblyList()->table()->grab(); // lays its rows out first, which it does later
        return asked > 0;
    }));
    EXPECT_LT(asked, 100);
}

} // namespace
} // namespace kestrel::test
