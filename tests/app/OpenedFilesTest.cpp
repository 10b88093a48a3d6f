// SPDX-License-Identifier: MIT
#include "app/ConsoleProjectsDocument.h"
#include "app/KestrelDocumentController.h"
#include "app/WindowFixture.h"
#include "widgets/Sheet.h"

#include <QFileOpenEvent>

#include <algorithm>
#include <fstream>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;

class OpenedFiles : public WindowTest {};

TEST_F(OpenedFiles, AProjectFileOpenedBeforeTheMainWindowExistsIsIgnored) {
    AppDelegate early;
    const auto game = layOut("Game");
    early.openFiles({game});
    controller = makeMainWindow(early, centre);
    early.applicationDidFinishLaunching(controller);
    QCoreApplication::processEvents();
    EXPECT_TRUE(projects().empty());
    controller.reset();
}

TEST_F(OpenedFiles, OfThreeTheSecondWithoutAStructureEntryIsLeftOutAndOrderIsKept) {
    start();
    const auto first = layOut("First");
    const auto broken = home.write("Broken/Broken.kst", R"({"BuildSettings": "x"})");
    const auto third = layOut("Third");
    delegate->openFiles({first, broken, third});
    // Each goes on top, so the one added last is the topmost.
    EXPECT_THAT(projects(), ElementsAre("Third", "First"));
    start();
    EXPECT_THAT(projects(), ElementsAre("First", "Third"));
}

TEST_F(OpenedFiles, UnreadableAndMissingFilesAreLeftOutSilently) {
    start();
    delegate->openFiles({home.path() / "gone.kst", home.write("a.kst", "not json"),
                         home.write("b.kst", ""), home.path(), "/dev/null"});
    EXPECT_TRUE(projects().empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(OpenedFiles, AStructureThatIsNoNodeIsLeftOutWithALineInTheLog) {
    start();
    const auto bad = home.write("Bad/Bad.kst", R"({"ProjectStructure":"tree.cfg"})");
    home.write("Bad/tree.cfg", R"({"name":"Bad"})");
    delegate->openFiles({bad, layOut("Good")});
    EXPECT_THAT(projects(), ElementsAre("Good"));
    EXPECT_FALSE(controller->importNewProjectFromFile(bad));
    const auto lines = log.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "FAILLLEED"), 2);
}

TEST_F(OpenedFiles, AnEmptyListChangesNothing) {
    start();
    delegate->openFiles({});
    EXPECT_TRUE(projects().empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(OpenedFiles, ARelativeRootCountsFromTheProjectFilesFolderAndNotFromTheWorkingOne) {
    const auto file = layOut("Game");
    const auto structure = folder("Game") / ".project/Game-ProjectStructure.cfg";
    auto stored = parseJson(contentOf(structure)).value();
    stored["path"] = "";
    std::ofstream(structure) << stored.dump();
    const TemporaryFolder working;
    const std::filesystem::path former = std::filesystem::current_path();
    start();
    std::filesystem::current_path(working.path());
    delegate->openFiles({file});
    EXPECT_TRUE(controller->importNewProjectFromFile(file)); // the same one, so it is selected
    std::filesystem::current_path(former);
    EXPECT_THAT(projects(), ElementsAre("Game"));
    EXPECT_EQ(tree().selectedItem()->itemPath(), folder("Game"));
    EXPECT_TRUE(std::filesystem::is_empty(working.path()));
}

TEST_F(OpenedFiles, AProjectThatIsInTheTreeAlreadyIsSelectedInsteadOfAddedAgain) {
    registerProject("Game");
    registerProject("Other");
    start();
    ASSERT_EQ(tree().selectedItem()->itemName(), "Game");
    delegate->openFiles({folder("Other") / "Other.kst"});
    EXPECT_THAT(projects(), ElementsAre("Game", "Other"));
    EXPECT_EQ(tree().selectedItem()->itemName(), "Other");
}

TEST_F(OpenedFiles, FilesThatArriveWhileASheetIsOpenWaitForItsEnd) {
    registerProject("Game");
    start();
    const auto other = layOut("Other");
    action("newProjectAction")->trigger();
    auto* sheet = window().findChild<Sheet*>();
    ASSERT_NE(sheet, nullptr);
    delegate->openFiles({other});
    EXPECT_THAT(projects(), ElementsAre("Game"));
    QTest::keyClick(sheet, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([this] { return projects().size() == 2; }));
    EXPECT_THAT(projects(), ElementsAre("Other", "Game"));
}

TEST_F(OpenedFiles, QtsFileOpenEventAddsTheProject) {
    start();
    qApp->installEventFilter(delegate.get());
    QFileOpenEvent event(QString::fromStdString(layOut("Game").string()));
    QApplication::sendEvent(qApp, &event);
    EXPECT_THAT(projects(), ElementsAre("Game"));
}

TEST_F(OpenedFiles, ImportingTellsWhetherTheProjectFileCouldBeRead) {
    start();
    EXPECT_FALSE(controller->importNewProjectFromFile(home.path() / "gone.kst"));
    EXPECT_FALSE(controller->importNewProjectFromFile(home.write("a.kst", "{}")));
    EXPECT_TRUE(controller->importNewProjectFromFile(layOut("Game")));
    EXPECT_THAT(projects(), ElementsAre("Game"));
}

TEST_F(OpenedFiles, ImportingWithoutAnEditorReadsTheFileAndAddsNothing) {
    const auto game = layOut("Game");
    const auto bare = std::make_shared<MainWindowController>(std::make_unique<Window>());
    bare->awakeFromNib();
    EXPECT_EQ(bare->editorController(), nullptr);
    EXPECT_TRUE(bare->importNewProjectFromFile(game));
    AppDelegate early;
    early.applicationDidFinishLaunching(bare);
    early.openFiles({game});
    EXPECT_TRUE(FileProcessor::loadRecentlyConfiguredProjects().empty());
}

TEST_F(OpenedFiles, TheMainWindowComesBackFromTheTaskBar) {
    start();
    window().showMinimized();
    delegate->comeToFront();
    EXPECT_FALSE(window().isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

TEST_F(OpenedFiles, ANewUntitledDocumentOpensNoWindow) {
    const KestrelDocumentController documents;
    const auto before = QApplication::topLevelWidgets().size();
    const auto document = documents.openUntitledDocumentAndDisplay(true);
    ASSERT_NE(document, nullptr);
    documents.addDocument(document);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), before);
    EXPECT_EQ(document.use_count(), 1);
}

TEST_F(OpenedFiles, ADocumentSavesNothingAndReadsAnything) {
    ConsoleProjectsDocument document;
    document.windowControllerDidLoadNib();
    EXPECT_TRUE(document.data(QStringLiteral("any")).isEmpty());
    EXPECT_TRUE(document.read(QByteArrayLiteral("bytes"), QStringLiteral("any")));
    EXPECT_TRUE(document.data(QStringLiteral("any")).isEmpty());
    EXPECT_TRUE(ConsoleProjectsDocument::autosavesInPlace());
}

} // namespace
} // namespace kestrel
