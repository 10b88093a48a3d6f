// SPDX-License-Identifier: MIT
#include "model/Json.h"
#include "navigation/container/ContainerFixture.h"
#include "support/ChildProcess.h"

#include <QSplitter>

namespace kestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ContainerStart : public ContainerTest {};

void becomeActive() {
    QMetaObject::invokeMethod(qGuiApp, "applicationStateChanged",
                              Q_ARG(Qt::ApplicationState, Qt::ApplicationActive));
    QApplication::processEvents();
}

TEST_F(ContainerStart, WithoutProjectsTheTreeIsEmptyAndTheMessageSaysWhatToDo) {
    start();
    EXPECT_THAT(tree().allItems(), IsEmpty());
    EXPECT_EQ(message(), "Please select a file or project");
    EXPECT_EQ(shown(), panes()->emptyController);
    EXPECT_THAT(log.lines(), IsEmpty());
    for (const Option option :
         {Option::newFile, Option::importFile, Option::newGroup, Option::delete_}) {
        EXPECT_FALSE(tree().menu()->action(option)->isEnabled());
    }
}

/// What the empty tree says, to the eye and to assistive technology alike.
TEST_F(ContainerStart, ARegistryThatCannotBeReadIsNotAnEmptyOne) {
    const auto registry = home.path() / ".Kestrel/AllProjects.cfg";
    const std::string hint = "No projects yet";
    start();
    const QImage empty = view().grab().toImage();
    EXPECT_THAT(view().accessibleDescription().toStdString(), testing::HasSubstr(hint));
    std::filesystem::create_directories(registry);
    start();
    const std::string sentence =
        "The list of projects could not be read: " + registry.string() + " (it is a folder).";
    EXPECT_THAT(view().accessibleDescription().toStdString(), testing::StartsWith(sentence));
    EXPECT_THAT(view().accessibleDescription().toStdString(),
                testing::Not(testing::HasSubstr(hint)));
    EXPECT_NE(view().grab().toImage(), empty);
    EXPECT_THAT(log.lines(), Contains(sentence));
    std::filesystem::remove(registry);
    for (const auto& [content, reason] : {std::pair("{\"version\":", "it is no whole JSON file"),
                                          std::pair("[1, 2]", "it is no list of projects"),
                                          std::pair("", "it is no whole JSON file")}) {
        home.write(".Kestrel/AllProjects.cfg", content);
        start();
        EXPECT_THAT(view().accessibleDescription().toStdString(), testing::HasSubstr(reason));
    }
    home.write(".Kestrel/AllProjects.cfg", "{\"version\":\"1\"}");
    start();
    EXPECT_THAT(view().accessibleDescription().toStdString(), testing::HasSubstr(hint));
}

TEST_F(ContainerStart, ARegistryThatMayNotBeReadSaysSo) {
    if (isRoot()) {
        EXPECT_TRUE(passesAsOrdinaryUser());
        return;
    }
    const auto registry = home.write(".Kestrel/AllProjects.cfg", "{}");
    std::filesystem::permissions(registry, std::filesystem::perms::none);
    start();
    EXPECT_THAT(view().accessibleDescription().toStdString(),
                testing::HasSubstr("(Permission denied)"));
}

TEST_F(ContainerStart, LoadsTheRegisteredProjectsInTheRegistrysOrderAndSelectsTheFirst) {
    makeProject("First", {fileOf("First", "a.asm", FileType::text)});
    makeProject("Second");
    start();
    EXPECT_THAT(names(tree().allItems()), ElementsAre("First", "Second"));
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm"));
    EXPECT_EQ(tree().selectedItem(), root());
    EXPECT_EQ(shown(), panes()->projectSettings);
    EXPECT_EQ(panes()->projectSettings->currentProject(), root());
}

TEST_F(ContainerStart, AProjectWhoseStructureCannotBeReadIsListedBare) {
    const Node broken = makeProject("Broken", {fileOf("Broken", "a.asm", FileType::text)});
    home.write("Kestrel/Broken/.project/Broken-ProjectStructure.cfg", "{ no JSON");
    makeProject("Whole");
    start();
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Broken", "Whole"));
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_EQ(root()->itemFileType(), FileType::project);
}

TEST_F(ContainerStart, TheStructureFileOfTheProjectsOwnNameWins) {
    // The project file may name another structure file; what was saved last lies under the
    // project's own name.
    const Node project = makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    home.write("Kestrel/Game/Game.kst", R"({"ProjectStructure":"other.cfg"})");
    home.write("Kestrel/Game/other.cfg",
               *serialiseJson(
                   makeNode("Game", FileType::project, {}, project->itemPath())->toDictionary()));
    start();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm"));
}

TEST_F(ContainerStart,
       AStructureWithARelativeRootIsSavedInTheProjectsFolderAndNotWhereKestrelRuns) {
    const Node project = makeProject("Game", {group("Parts")});
    Dictionary structure = project->toDictionary();
    structure["path"] = ".";
    home.write("Kestrel/Game/.project/Game-ProjectStructure.cfg", *serialiseJson(structure));
    const TemporaryFolder working;
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(working.path());
    start();
    EXPECT_EQ(root()->itemPath(), project->itemPath());
    EXPECT_EQ(shown(), panes()->projectSettings);
    command(Option::newGroup);
    makeFile(0, "new.asm");
    std::filesystem::current_path(former);
    EXPECT_TRUE(std::filesystem::is_empty(working.path()));
    EXPECT_TRUE(exists("Kestrel/Game/new.asm"));
    EXPECT_EQ(savedStructure(project), "Game\n  new.asm\n  Group\n  Parts\n");
    EXPECT_THAT(savedAssemblyFiles(project), ElementsAre("new.asm"));
}

TEST_F(ContainerStart, TheTreeTakes240PixelsAndAWiderWindowGivesTheRestToThePanes) {
    start();
    EXPECT_EQ(tree().width(), 240);
    window->resize(1600, 600);
    QApplication::processEvents();
    EXPECT_EQ(tree().width(), 240);
    EXPECT_GT(panes()->width(), 1300);
    window->resize(10, 10);
    QApplication::processEvents();
    EXPECT_GE(tree().width(), 120);
    EXPECT_GE(panes()->width(), 280);
}

TEST_F(ContainerStart, EachKindOfNodeShowsItsPane) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text),
                         fileOf("Game", "a.pal", FileType::palette),
                         fileOf("Game", "a.chr", FileType::graphics),
                         fileOf("Game", "a.txt", FileType::unknown), group("Parts")});
    start();
    click("a.asm");
    EXPECT_EQ(shown(), typing);
    EXPECT_EQ(typing->path(), home.path() / "Kestrel/Game/a.asm");
    click("a.pal");
    EXPECT_EQ(shown(), panes()->paletteEditor);
    click("a.chr");
    EXPECT_EQ(shown(), panes()->graphicsEditor);
    click("a.txt");
    EXPECT_EQ(shown(), panes()->emptyController);
    EXPECT_EQ(message(), "File type unspecified.\n Please set file to appropriate type in project "
                         "settings");
    click("Parts");
    EXPECT_EQ(message(), "Folder selected");
    click("Game");
    EXPECT_EQ(shown(), panes()->projectSettings);
}

TEST_F(ContainerStart, AnEmptyKindLeavesTheEditorAreaAsItWas) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text),
                         fileOf("Game", "nothing", FileType::empty)});
    makeProject("Other");
    start();
    click("a.asm");
    click("Other");
    click("nothing");
    EXPECT_EQ(shown(), panes()->projectSettings);
    // Only the project that the settings pane would show follows.
    EXPECT_EQ(panes()->projectSettings->currentProject(), root(0));
}

TEST_F(ContainerStart, AMissingProjectFileIsSaidAndTheSettingsPaneKnowsTheProjectAllTheSame) {
    makeProject("Game");
    makeProject("Gone");
    start();
    std::filesystem::remove(home.path() / "Kestrel/Gone/Gone.kst");
    click("Gone");
    EXPECT_EQ(message(), "File does not exist at path");
    EXPECT_EQ(panes()->projectSettings->currentProject(), root(1));
}

TEST_F(ContainerStart, WithoutASelectedProjectASelectionShowsNothing) {
    start();
    container->projectNavigation(text("a.asm"));
    EXPECT_EQ(message(), "Please select a file or project");
    EXPECT_EQ(panes()->projectSettings->currentProject(), nullptr);
}

TEST_F(ContainerStart, ComingBackSaysSoWhenTheProjectFileWentMeanwhile) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("a.asm");
    becomeActive();
    EXPECT_EQ(shown(), typing);
    std::filesystem::remove(home.path() / "Kestrel/Game/Game.kst");
    becomeActive();
    EXPECT_EQ(shown(), panes()->emptyController);
    EXPECT_EQ(message(), "File does not exist at path");
}

TEST_F(ContainerStart, AFileThatIsBackIsShownByAClickOnItsSelectedRow) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    const auto file = home.path() / "Kestrel/Game/a.asm";
    std::filesystem::rename(file, home.path() / "away");
    click("a.asm");
    ASSERT_EQ(message(), "File does not exist at path");
    EXPECT_THAT(log.lines(), testing::Contains("File could not be found for code editor").Times(1));
    std::filesystem::rename(home.path() / "away", file);
    click("a.asm");
    EXPECT_EQ(shown(), typing);
    EXPECT_EQ(typing->loads, 1);
    // Gone behind a message it is not shown, and the message says why.
    panes()->displayError(QStringLiteral("other"));
    std::filesystem::rename(file, home.path() / "away");
    click("a.asm");
    EXPECT_EQ(shown(), panes()->emptyController);
    EXPECT_EQ(message(), "File does not exist at path");
}

TEST_F(ContainerStart, ComingBackWithoutAProjectAsksForASelection) {
    start();
    panes()->displayError(QStringLiteral("something else"));
    becomeActive();
    EXPECT_EQ(message(), "Please select a file or project");
}

TEST_F(ContainerStart, LosingTheFrontRefreshesNothing) {
    start();
    panes()->displayError(QStringLiteral("something else"));
    QMetaObject::invokeMethod(qGuiApp, "applicationStateChanged",
                              Q_ARG(Qt::ApplicationState, Qt::ApplicationInactive));
    EXPECT_EQ(message(), "something else");
}

TEST_F(ContainerStart, ComingBackAsksAgainWhichFilesAreThere) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("a.asm");
    int asked = 0;
    tree().setFileExistence([&asked](const std::filesystem::path&) {
        ++asked;
        return true;
    });
    becomeActive();
    view().grab();
    EXPECT_GT(asked, 0);
}

TEST_F(ContainerStart, TypedTextCaretAndUndoSurviveComingBackGroupingAndImporting) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("a.asm");
    QTest::keyClicks(typing->edit, QStringLiteral("lda "));
    const int caret = typing->edit->textCursor().position();
    becomeActive();
    command(Option::newGroup);
    becomeActive();
    answer = home.path() / "Kestrel/Game/a.asm";
    command(Option::importFile);
    becomeActive();
    EXPECT_EQ(typing->loads, 1);
    EXPECT_EQ(typing->edit->toPlainText(), QStringLiteral("lda a.asm"));
    EXPECT_EQ(typing->edit->textCursor().position(), caret);
    EXPECT_TRUE(typing->edit->document()->isUndoAvailable());
}

TEST_F(ContainerStart, ANotificationOfAnotherKindIsLoggedAndDoesNothing) {
    makeProject("Game");
    start();
    centre.post(ProjectNavigationMenuClicked, std::any(std::string("delete")));
    tree().requestNewProject();
    const std::string guard = "projectNavigationMenuSelected called but failed at guard";
    EXPECT_THAT(log.lines(), ElementsAre("Did save build settings", guard, guard));
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(container->newProjectController(), nullptr);
    EXPECT_EQ(tree().allItems().size(), 1U);
}

TEST_F(ContainerStart, AChangedFileKindIsSavedByWayOfThePanes) {
    makeProject("Game", {fileOf("Game", "a.txt", FileType::unknown)});
    start();
    find("a.txt")->setItemFileType(FileType::text);
    panes()->updatedFileType();
    start();
    EXPECT_EQ(find("a.txt")->itemFileType(), FileType::text);
}

TEST_F(ContainerStart, WithoutASelectedProjectNothingIsSaved) {
    start();
    container->saveProjectStructure();
    container->updatedFileType();
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST_F(ContainerStart, CommandsDoNothingWithoutATree) {
    start();
    delete container->projectNavigationController();
    container->addNewFile();
    container->importFile();
    container->addNewGroup();
    container->delete_();
    container->undoDelete();
    container->saveProjectStructure();
    container->reloadControllers();
    EXPECT_FALSE(container->addProjectToEditor(project("Game")));
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(panels, 0);
    EXPECT_EQ(message(), "Please select a file or project");
}

TEST_F(ContainerStart, CommandsDoNothingWithoutASelectedProject) {
    start();
    for (const Option option : {Option::newFile, Option::importFile, Option::newGroup}) {
        centre.post(ProjectNavigationMenuClicked, std::any(option));
    }
    centre.post(ProjectNavigationMenuClicked, std::any(Option::delete_));
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(panels, 0);
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST_F(ContainerStart, OnlyASplitViewBringsTreeAndPanes) {
    start();
    const QPointer<ProjectNavigationController> before = container->projectNavigationController();
    QWidget plain;
    new ProjectNavigationController(&centre, &plain);
    container->prepare(&plain);
    container->prepare(nullptr);
    EXPECT_EQ(container->projectNavigationController(), before);
    QSplitter split;
    auto* other = new ProjectNavigationController(&centre, &split);
    container->prepare(&split);
    EXPECT_EQ(container->projectNavigationController(), other);
    EXPECT_NE(container->commonController(), nullptr);
}

TEST_F(ContainerStart, TheProjectDirectoryIsADictionaryThatAnyoneMayFill) {
    EXPECT_THAT(EditorContainerController::projectDirectory(), IsEmpty());
    EditorContainerController::projectDirectory()["key"] = 3;
    EXPECT_EQ(std::any_cast<int>(EditorContainerController::projectDirectory().at("key")), 3);
    EditorContainerController::projectDirectory().clear();
}

TEST_F(ContainerStart, EveryControlHasANameForPeopleAndForTests) {
    start();
    for (const QWidget* widget : {static_cast<QWidget*>(container), static_cast<QWidget*>(&tree()),
                                  static_cast<QWidget*>(panes()),
                                  container->findChild<QWidget*>(QStringLiteral("splitView"))}) {
        ASSERT_NE(widget, nullptr);
        EXPECT_FALSE(widget->objectName().isEmpty());
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
}

} // namespace
} // namespace kestrel::test
