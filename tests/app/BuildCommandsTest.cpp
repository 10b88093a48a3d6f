// SPDX-License-Identifier: MIT
#include "app/WindowFixture.h"

#include <fstream>
#include <sys/stat.h>
#include <thread>

namespace kestrel {
namespace {

using namespace test;

constexpr const char* ClosingLine = "\nInternal Error when building";

class BuildCommands : public WindowTest {
protected:
    void startWith(const std::string& project) {
        registerProject(project);
        start();
    }

    void build() const { QTest::keyClick(&window(), Qt::Key_B, Qt::ControlModifier); }
    void run() const { QTest::keyClick(&window(), Qt::Key_R, Qt::ControlModifier); }

    std::filesystem::path fifo(const std::string& project, const std::string& name) const {
        const auto path = folder(project) / name;
        EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
        return path;
    }
};

TEST_F(BuildCommands, TheFirstMessageMakesTheConsoleAndItsTextIsALineBreakAndIt) {
    start();
    EXPECT_EQ(controller->windowController(), nullptr);
    controller->console(QStringLiteral("<b>hello</b>"));
    ASSERT_NE(controller->windowController(), nullptr);
    EXPECT_TRUE(controller->windowController()->isVisible());
    EXPECT_EQ(consoleText(), "\n<b>hello</b>");
}

TEST_F(BuildCommands, HoweverManyMessagesThereIsOneConsoleWindowWhichComesToTheFront) {
    start();
    controller->console(QStringLiteral("one"));
    const QWidget* first = controller->windowController();
    ASSERT_TRUE(QTest::qWaitForWindowActive(controller->windowController()));
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    controller->console(QStringLiteral("two"));
    EXPECT_TRUE(QTest::qWaitForWindowActive(controller->windowController()));
    EXPECT_EQ(controller->windowController(), first);
    EXPECT_EQ(consoleText(), "\none\ntwo");
    int consoles = 0;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        consoles += qobject_cast<const ConsoleWindow*>(widget) != nullptr ? 1 : 0;
    }
    EXPECT_EQ(consoles, 1);
}

TEST_F(BuildCommands, ClosingTheConsoleHidesItAndTheNextMessageBringsItBackWhole) {
    start();
    controller->console(QStringLiteral("one"));
    ASSERT_TRUE(QTest::qWaitForWindowActive(controller->windowController()));
    QTest::keyClick(controller->windowController(), Qt::Key_Escape);
    EXPECT_FALSE(controller->windowController()->isVisible());
    controller->console(QStringLiteral("two"));
    EXPECT_TRUE(controller->windowController()->isVisible());
    EXPECT_EQ(consoleText(), "\none\ntwo");
}

TEST_F(BuildCommands, WithNoProjectSelectedBothCommandsSaySoAndNothingElseHappens) {
    start();
    build();
    EXPECT_EQ(consoleText(), "\nPlease select a project to build");
    controller->console(QStringLiteral("old"));
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    run();
    EXPECT_EQ(consoleText(), "\nPlease select a project to build") << "cleared, then written";
    EXPECT_EQ(controller->projectBuilder(), nullptr);
}

TEST_F(BuildCommands, WithoutAProjectAnImageIsNotRunAndNothingIsSaid) {
    start();
    controller->runProject("/x.nes", nullptr);
    EXPECT_EQ(controller->projectBuilder(), nullptr);
    EXPECT_EQ(controller->windowController(), nullptr);
}

TEST_F(BuildCommands, ABuildAskedForWithoutAProjectTellsItsCaller) {
    start();
    bool told = false;
    controller->buildProject([&](const std::optional<std::filesystem::path>& image,
                                 const std::optional<BuildError>& error) {
        told = true;
        EXPECT_FALSE(image);
        EXPECT_EQ(error, (BuildError{"", 100, "Please select a project to build"}));
    });
    EXPECT_TRUE(told);
    controller->buildProject(nullptr); // nobody waits for that
}

TEST_F(BuildCommands, ABuildShowsTheAssemblersOutputAndThenTheClosingLine) {
    startWith("Game");
    script("Game", "print hello\nimage made\n");
    build();
    ASSERT_TRUE(consoleEndsWith(ClosingLine));
    EXPECT_EQ(consoleText(), std::string("\nhello\n") + ClosingLine);
    EXPECT_EQ(contentOf(folder("Game") / "output/Game.nes"), "made");
}

TEST_F(BuildCommands, ABuildersErrorIsShownByItsDescription) {
    startWith("Game");
    home.write("Kestrel/Game/main.asm", "; nothing");
    build();
    EXPECT_EQ(consoleText(), "\nCould not find main entry point for assembly file(s)");
}

TEST_F(BuildCommands, ASecondBuildClearsWhatTheFirstLeftBeforeAnythingIsWritten) {
    startWith("Game");
    script("Game", "print first\n");
    build();
    ASSERT_TRUE(consoleEndsWith(ClosingLine));
    script("Game", "await go\nprint second\n");
    const auto go = fifo("Game", "go");
    // The console is in front now, and its window knows the command, too.
    QTest::keyClick(controller->windowController(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(consoleText(), "");
    std::ofstream(go).close();
    ASSERT_TRUE(consoleEndsWith(ClosingLine));
    EXPECT_EQ(consoleText(), std::string("\nsecond\n") + ClosingLine);
}

TEST_F(BuildCommands, OfTwoBuildsInQuickSuccessionBothEndAndTheLaterShowsItsOutput) {
    startWith("Game");
    script("Game", "print output\n");
    controller->build();
    controller->build();
    const auto count = [this](const char* text) {
        return QString::fromStdString(consoleText()).count(QLatin1String(text));
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return count("Internal Error when building") == 2; }, 60000));
    EXPECT_EQ(count("output"), 1);
}

TEST_F(BuildCommands, RunningOpensTheSecondImageAndShowsTheOutputOfTheFirstBuildOnly) {
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    script("Game", "print assembled\nimage made\n");
    run();
    ASSERT_TRUE(consoleEndsWith("\nRunning Project"));
    EXPECT_EQ(consoleText(), "\nassembled\n\nRunning Project");
    const auto opened = folder("Game") / "output/opened";
    ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(opened); }, 60000));
    EXPECT_NE(contentOf(opened).find((folder("Game") / "output/Game.nes").string()),
              std::string::npos);
}

TEST_F(BuildCommands, RunningWithoutAnEmulatorShowsTheFirstOutputAndWhereToChooseOne) {
    startWith("Game");
    script("Game", "print assembled\n");
    run();
    const std::string generic = textOf(BuildError{"2", 0, std::nullopt});
    ASSERT_TRUE(consoleEndsWith("\n" + generic));
    EXPECT_EQ(consoleText(), "\nassembled\n\n" + generic);
}

TEST_F(BuildCommands, RunningTakesTheProjectThatIsSelectedWhenTheFirstBuildHasEnded) {
    registerProject("Other");
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    chooseEmulator("Other", FAKE_EMULATOR);
    script("Game", "await go\n");
    script("Other", "image other\n");
    const auto go = fifo("Game", "go");
    for (const auto& root : tree().allItems()) {
        if (root->itemName() == "Game") {
            tree().select(root);
        }
    }
    controller->buildAndRun();
    for (const auto& root : tree().allItems()) {
        if (root->itemName() == "Other") {
            tree().select(root);
        }
    }
    std::ofstream(go).close();
    ASSERT_TRUE(consoleEndsWith("\nRunning Project"));
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return std::filesystem::exists(folder("Other") / "output/opened"); }, 60000));
    EXPECT_FALSE(std::filesystem::exists(folder("Game") / "output/opened"));
}

TEST_F(BuildCommands, TheRunHandlerAndTheLocationGivenToRunProjectAreNeverUsed) {
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    bool called = false;
    controller->runProject("/nonexistent.nes",
                           [&called](const std::optional<BuildError>&) { called = true; });
    ASSERT_TRUE(consoleEndsWith("\nRunning Project"));
    EXPECT_FALSE(called);
}

TEST_F(BuildCommands, ARunThatCannotBeBuiltShowsTheBuildersErrorOnly) {
    startWith("Game");
    home.write("Kestrel/Game/main.asm", "; nothing");
    run();
    EXPECT_EQ(consoleText(), "\nCould not find main entry point for assembly file(s)");
}

TEST_F(BuildCommands, ATextFromAnotherThreadWaitsForTheUserInterfaceThread) {
    start();
    std::thread([this] { controller->console(QStringLiteral("from afar")); }).join();
    EXPECT_EQ(consoleText(), "");
    ASSERT_TRUE(consoleEndsWith("\nfrom afar"));
}

TEST_F(BuildCommands, TheClosingLineFollowsTheOutputInEveryOneOfManyBuilds) {
    startWith("Game");
    script("Game", "print output\n");
    for (int i = 0; i < BUILDS_IN_A_ROW; ++i) {
        controller->build();
        ASSERT_TRUE(consoleEndsWith(ClosingLine)) << i;
        ASSERT_EQ(consoleText(), std::string("\noutput\n") + ClosingLine) << i;
    }
}

TEST_F(BuildCommands, DeletingTheProjectDuringItsBuildLetsTheBuildEnd) {
    startWith("Game");
    script("Game", "await go\nprint done\n");
    const auto go = fifo("Game", "go");
    controller->build();
    tree().outlineView()->setFocus();
    QTest::keyClick(tree().outlineView(), Qt::Key_Delete);
    EXPECT_TRUE(projects().empty());
    std::ofstream(go).close();
    ASSERT_TRUE(consoleEndsWith(ClosingLine));
    EXPECT_EQ(consoleText(), std::string("\ndone\n") + ClosingLine);
}

TEST_F(BuildCommands, AWindowThatGoesDuringABuildTakesNothingAlong) {
    startWith("Game");
    script("Game", "await go\nprint done\n");
    const auto go = fifo("Game", "go");
    controller->build();
    close();
    std::ofstream(go).close();
    QThreadPool::globalInstance()->waitForDone();
    QApplication::processEvents();
    start();
    EXPECT_EQ(consoleText(), "");
}

TEST_F(BuildCommands, MuchOutputIsShownWholeWithTheClosingLineBehindIt) {
    startWith("Game");
    script("Game", "fill 4000000\n");
    build();
    ASSERT_TRUE(consoleEndsWith(ClosingLine));
    EXPECT_EQ(consoleText().size(), 1 + 4000000 + std::string(ClosingLine).size());
}

TEST_F(BuildCommands, TheMenuItemsCallTheCommandsAndAreNeverDisabled) {
    start();
    EXPECT_EQ(delegate->buildMenuItem(), action("buildAction"));
    EXPECT_EQ(controller->buildMenuItem(), action("buildAction"));
    EXPECT_EQ(controller->runMenuItem(), action("runAction"));
    EXPECT_TRUE(action("buildAction")->isEnabled());
    EXPECT_TRUE(action("runAction")->isEnabled());
    QAction other;
    controller->setBuildMenuItem(&other);
    action("buildAction")->trigger();
    EXPECT_EQ(consoleText(), "");
    other.trigger();
    EXPECT_EQ(consoleText(), "\nPlease select a project to build");
}

} // namespace
} // namespace kestrel
