// SPDX-License-Identifier: MIT
#include "app/BuildSession.h"

#include "app/BuildMark.h"
#include "app/BuildStrip.h"
#include "app/StatusBar.h"
#include "app/WindowFixture.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/TextEditorController.h"
#include "editors/CommonEditorControllers.h"
#include "model/Paths.h"
#include "support/Announced.h"
#include "widgets/ElidedLabel.h"
#include "widgets/WrappedLabel.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QPushButton>
#include <QSignalSpy>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <sys/wait.h>

namespace kestrel {
namespace {

using namespace test;

/// The number of entries in a folder of /proc/self.
std::size_t countIn(const char* folder) {
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

class BuildSessionTest : public WindowTest {
protected:
    void startWith(const std::string& project) {
        registerProject(project);
        start();
        controller->setBuilderFactory([running = std::make_shared<RunningBuilds>()](
                                          std::shared_ptr<BuildSettingsConfiguration> settings) {
            return std::make_shared<NESProjectBuilder>(
                std::move(settings), [] { return std::filesystem::path(FAKE_ASSEMBLER); }, running);
        });
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        QTest::keyClick(&window(), key, modifiers);
    }

    BuildSession& session() const { return controller->buildSession(); }

    /// Waits until no command is under way.
    bool isOver() const {
        return QTest::qWaitFor([this] { return !session().isRunning(); }, 60000);
    }

    /// Whether something is said later, though nothing happens.
    bool willTellMore() const { return session().findChild<QTimer*>()->isActive(); }

    /// Waits until all that was begun has gone as far as it will, and until each emulator that was
    /// started has done its work.
    static bool comesToRest() {
        do {
            if (!QThreadPool::globalInstance()->waitForDone(60000)) {
                return false;
            }
            QApplication::processEvents(); // may begin the next part
        } while (QThreadPool::globalInstance()->activeThreadCount() > 0);
        return QTest::qWaitFor([] { return !isRunning(FAKE_EMULATOR); }, 60000);
    }

    /// Whether a process of this program file runs.
    static bool isRunning(const std::filesystem::path& program) {
        const std::filesystem::directory_iterator processes("/proc");
        return std::any_of(begin(processes), end(processes), [&](const auto& process) {
            std::error_code error;
            return std::filesystem::read_symlink(process.path() / "exe", error) == program;
        });
    }

    QString text() const {
        const auto* strip = controller->windowController()->buildStrip();
        return strip->findChild<WrappedLabel*>(QStringLiteral("buildText"))->text();
    }
    QString hint() const { return session().news().hint; }

    QString statusText() const {
        return window().findChild<ElidedLabel*>(QStringLiteral("buildStatus"))->text();
    }

    bool waitForFile(const std::string& name) const {
        return QTest::qWaitFor([&] { return existsAt(folder("Game") / name); }, 60000);
    }

    /// How often a script's command "count" was carried out for this file.
    std::size_t timesCounted(const std::string& name) const {
        const std::string lines = contentOf(folder("Game") / name);
        return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n'));
    }

    std::filesystem::path fifo(const std::string& name) const {
        const auto path = folder("Game") / name;
        EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
        return path;
    }

    /// Shows the main file and types into it.
    void editMainFile() const {
        tree().select(tree().allItems().at(0)->subItems().at(0));
        auto* code = editor().commonController()->textEditor->codeEditor.data();
        ASSERT_NE(code, nullptr);
        code->insertPlainText(QStringLiteral("; edited\n"));
    }
};

TEST_F(BuildSessionTest, TheResultIsInTheStripAndInTheStatusBar) {
    startWith("Game");
    script("Game", "image made\n");
    press(Qt::Key_B);
    ASSERT_TRUE(consoleEndsWith("\nInternal Error when building"));
    ASSERT_TRUE(isOver());
    EXPECT_TRUE(text().startsWith(QStringLiteral("Game.nes built in "))) << text().toStdString();
    EXPECT_TRUE(text().endsWith(QStringLiteral(" s: 4 bytes, no warnings")));
    EXPECT_EQ(statusText(), text());
    auto* mark = window().statusBar()->findChild<BuildMark*>();
    EXPECT_TRUE(mark->isVisible());
    EXPECT_EQ(mark->kind(), BuildMarkKind::made);
    script("Game", "print main.asm:1:1: error: no\nexit 1\n");
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    EXPECT_EQ(text(), QStringLiteral("1 error: no image"));
    EXPECT_EQ(statusText(), text());
    EXPECT_EQ(mark->kind(), BuildMarkKind::failed);
}

TEST_F(BuildSessionTest, ACrashIsToldByItsSignal) {
    startWith("Game");
    script("Game", "kill\n");
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    EXPECT_TRUE(session().news().text.startsWith(QStringLiteral("The assembler crashed (")));
}

TEST_F(BuildSessionTest, ARefusedBuildHasTheHintThatTheCommandLinePrints) {
    startWith("Game");
    home.write("Kestrel/Game/main.asm", "; nothing");
    press(Qt::Key_B);
    EXPECT_EQ(consoleText(), "\nCould not find main entry point for assembly file(s)");
    ASSERT_TRUE(isOver());
    EXPECT_EQ(text(), QStringLiteral("Could not find main entry point for assembly file(s)"));
    EXPECT_TRUE(
        hint().contains(QStringLiteral("The main file is the first listed one that holds")));
}

TEST_F(BuildSessionTest, ASetUpThatFailsHasItsHintToo) {
    startWith("Game");
    controller->setBuilderFactory([](std::shared_ptr<BuildSettingsConfiguration> settings) {
        return std::make_shared<NESProjectBuilder>(
            std::move(settings), []() -> std::optional<std::filesystem::path> { return {}; });
    });
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    EXPECT_EQ(text(), QStringLiteral("Could not create temp folder to build project"));
    EXPECT_TRUE(hint().startsWith(QStringLiteral("The assembler NESasm is neither beside")));
}

TEST_F(BuildSessionTest, WithoutAProjectTheStripSaysWhatTheConsoleSays) {
    start();
    press(Qt::Key_B);
    EXPECT_EQ(text(), QStringLiteral("Please select a project to build"));
    EXPECT_FALSE(session().isRunning());
}

TEST_F(BuildSessionTest, OfAShortBuildNothingIsToldBeforeItsResult) {
    startWith("Game");
    script("Game", "image made\n");
    const QSignalSpy told(&session(), &BuildSession::newsChanged);
    controller->build();
    ASSERT_TRUE(isOver());
    EXPECT_FALSE(willTellMore());
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.at(0).at(0).value<BuildNews>().mark, BuildMarkKind::made);
}

TEST_F(BuildSessionTest, OfALongBuildItIsToldHowLongItTakes) {
    startWith("Game");
    script("Game", "await go\nimage made\n");
    const auto go = fifo("go");
    QElapsedTimer clock;
    clock.start();
    controller->showConsole();
    press(Qt::Key_B);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !statusText().isEmpty(); }, 10000));
    EXPECT_GE(clock.elapsed(), BuildSession::QuietMilliseconds);
    const QString first = text();
    EXPECT_TRUE(first.startsWith(QStringLiteral("Building Game... 0."))) << first.toStdString();
    EXPECT_EQ(statusText(), first);
    EXPECT_EQ(session().news().mark, BuildMarkKind::running);
    EXPECT_TRUE(QTest::qWaitFor([&] { return text() != first; }, 10000)) << "the time goes on";
    std::ofstream(go).close();
    ASSERT_TRUE(isOver());
    EXPECT_TRUE(text().startsWith(QStringLiteral("Game.nes built in ")));
    EXPECT_FALSE(willTellMore());
}

TEST_F(BuildSessionTest, ARunNamesTheEmulatorAndIsAnnouncedOnce) {
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    script("Game", "image made\n");
    const QSignalSpy told(&session(), &BuildSession::newsChanged);
    press(Qt::Key_R);
    ASSERT_TRUE(consoleEndsWith("\nRunning Project"));
    EXPECT_FALSE(session().isRunning()) << "the strip is not behind the console";
    const QString name = QString::fromStdString(std::filesystem::path(FAKE_EMULATOR).filename());
    EXPECT_TRUE(text().endsWith(QStringLiteral("; started in ") + name)) << text().toStdString();
    for (const auto& news : told) {
        EXPECT_NE(news.at(0).value<BuildNews>().text, QString());
    }
    EXPECT_EQ(told.back().at(0).value<BuildNews>().mark, BuildMarkKind::made);
}

TEST_F(BuildSessionTest, ARunSaysWhyTheEmulatorWasNotStarted) {
    startWith("Game");
    chooseEmulator("Game", folder("Game") / "gone");
    script("Game", "image made\n");
    press(Qt::Key_R);
    ASSERT_TRUE(consoleEndsWith("\nRunning Project"));
    EXPECT_TRUE(text().endsWith(QStringLiteral("; gone could not be started")));
    EXPECT_EQ(hint(), QStringLiteral("No such file or directory."));
}

TEST_F(BuildSessionTest, ARunWhoseBuildMakesNoImageSaysThatTheOneShownIsAnOldOne) {
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    script("Game", "image made\n");
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    script("Game", "print main.asm:1:1: error: no\nexit 1\n");
    press(Qt::Key_R);
    ASSERT_TRUE(consoleEndsWith("\nRunning Project"));
    EXPECT_EQ(text(), QStringLiteral("1 error: no image"));
    EXPECT_TRUE(hint().endsWith(
        QStringLiteral("was started with the image of an earlier build; this build made none.")));
}

TEST_F(BuildSessionTest, ARunWithoutAnEmulatorSaysWhereToChooseOne) {
    startWith("Game");
    script("Game", "image made\n");
    press(Qt::Key_R);
    ASSERT_TRUE(consoleEndsWith("\n" + textOf(BuildError{"2", 0, std::nullopt})));
    EXPECT_TRUE(text().endsWith(QStringLiteral("; no emulator is set")));
}

TEST_F(BuildSessionTest, UnsavedChangesAreNamedAndSavedAndBuiltByOneClick) {
    startWith("Game");
    script("Game", "image made\n");
    editMainFile();
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    ASSERT_TRUE(consoleEndsWith("\nInternal Error when building"));
    EXPECT_EQ(contentOf(folder("Game") / "tmp/main.asm"), "\t.org $FFFA\n")
        << "the build reads the disk";
    EXPECT_TRUE(hint().contains(QStringLiteral("with unsaved changes in main.asm")));
    auto* button = controller->windowController()->findChild<QPushButton*>(
        QStringLiteral("saveAndBuildButton"));
    ASSERT_TRUE(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_TRUE(isOver());
    EXPECT_EQ(contentOf(folder("Game") / "tmp/main.asm"), "; edited\n\t.org $FFFA\n");
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(hint(), QString());
}

TEST_F(BuildSessionTest, TheOfferToSaveGoesWhenTheFileIsSavedOrLeft) {
    startWith("Game");
    script("Game", "image made\n");
    const auto offered = [this] {
        editMainFile();
        press(Qt::Key_B);
        EXPECT_TRUE(isOver());
        const auto* button = controller->windowController()->findChild<QPushButton*>(
            QStringLiteral("saveAndBuildButton"));
        EXPECT_TRUE(button->isVisible());
        return button;
    };
    const QPushButton* button = offered();
    const QString said = hint();
    action("saveAction")->trigger();
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(hint(), said);
    button = offered();
    tree().select(tree().allItems().at(0));
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(session().news().again, BuildNews::Again::nothing);
}

TEST_F(BuildSessionTest, NothingIsBuiltWhenSavingToBuildFails) {
    startWith("Game");
    script("Game", "count runs\nimage made\n");
    editMainFile();
    std::filesystem::remove(folder("Game") / "main.asm");
    std::filesystem::create_directory(folder("Game") / "main.asm"); // cannot be replaced
    press(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(session().isRunning());
    EXPECT_FALSE(existsAt(folder("Game") / "runs"));
    // In place of what an earlier build came to, so that nobody takes that for this one's.
    EXPECT_EQ(session().news().mark, BuildMarkKind::failed);
    EXPECT_TRUE(session().news().text.startsWith(QStringLiteral("Nothing was built: main.asm ")))
        << session().news().text.toStdString();
    EXPECT_TRUE(controller->windowController()->isVisible());
}

TEST_F(BuildSessionTest, SavingThatFailsWhileABuildRunsIsSaidBesideIt) {
    startWith("Game");
    script("Game", "await go\nimage made\n");
    const auto go = fifo("go");
    press(Qt::Key_B);
    ASSERT_TRUE(session().isRunning());
    editMainFile();
    std::filesystem::remove(folder("Game") / "main.asm");
    std::filesystem::create_directory(folder("Game") / "main.asm"); // cannot be replaced
    press(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    const auto* notice = controller->windowController()->buildStrip()->findChild<WrappedLabel*>(
        QStringLiteral("buildNotice"));
    EXPECT_TRUE(notice->isVisible());
    EXPECT_TRUE(notice->text().startsWith(QStringLiteral("Nothing was built: main.asm ")))
        << notice->text().toStdString();
    std::ofstream(go).close();
    EXPECT_TRUE(isOver());
}

TEST_F(BuildSessionTest, WhatBecomesOfAnotherProjectsBuildIsSaidBelow) {
    registerProject("Other");
    startWith("Game");
    script("Game", "await go\nprint main.asm:1:1: error: no\nexit 1\n");
    script("Other", "image made\n");
    const auto go = fifo("go");
    const auto selectNamed = [this](const std::string& name) {
        for (const auto& project : tree().allItems()) {
            if (project->itemName() == name) {
                tree().select(project);
            }
        }
    };
    selectNamed("Game");
    press(Qt::Key_B);
    selectNamed("Other");
    press(Qt::Key_B);
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return hint() == QStringLiteral("Game is still being built."); }, 60000));
    EXPECT_TRUE(text().startsWith(QStringLiteral("Other.nes built in ")));
    std::ofstream(go).close();
    ASSERT_TRUE(isOver());
    EXPECT_TRUE(text().startsWith(QStringLiteral("Other.nes built in ")));
    EXPECT_EQ(hint(), QStringLiteral("Game: 1 error: no image."));
}

TEST_F(BuildSessionTest, OneKeySavesAndBuilds) {
    startWith("Game");
    script("Game", "image made\n");
    editMainFile();
    press(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(isOver());
    EXPECT_EQ(contentOf(folder("Game") / "tmp/main.asm"), "; edited\n\t.org $FFFA\n");
    EXPECT_EQ(hint(), QString());
}

TEST_F(BuildSessionTest, AnEditThatWasTakenBackIsNoUnsavedChange) {
    startWith("Game");
    script("Game", "image made\n");
    editMainFile();
    editor().commonController()->textEditor->codeEditor->undo();
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    EXPECT_EQ(hint(), QString());
    editMainFile();
    action("saveAction")->trigger();
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    EXPECT_EQ(hint(), QString());
}

TEST_F(BuildSessionTest, StopCanBeGivenOnlyWhileSomethingRuns) {
    startWith("Game");
    script("Game", "await go\n");
    const auto go = fifo("go");
    EXPECT_FALSE(action("stopAction")->isEnabled());
    press(Qt::Key_B);
    EXPECT_TRUE(action("stopAction")->isEnabled());
    std::ofstream(go).close();
    ASSERT_TRUE(isOver());
    EXPECT_FALSE(action("stopAction")->isEnabled());
}

TEST_F(BuildSessionTest, StopEndsAnAssemblerThatIgnoresSignalsWithinASecond) {
    for (const auto& [key, modifiers] : {std::pair{Qt::Key_Period, Qt::ControlModifier},
                                         std::pair{Qt::Key_F5, Qt::ShiftModifier}}) {
        if (!controller) {
            startWith("Game");
        }
        std::filesystem::remove(folder("Game") / "ready");
        script("Game", "ignore\ncount ready\nforever\n");
        press(Qt::Key_B);
        ASSERT_TRUE(waitForFile("ready"));
        QElapsedTimer clock;
        clock.start();
        press(key, modifiers);
        ASSERT_TRUE(isOver());
        EXPECT_LT(clock.elapsed(), 1000);
        EXPECT_TRUE(text().startsWith(QStringLiteral("The build was stopped after ")));
        EXPECT_EQ(session().news().mark, BuildMarkKind::stopped);
        ASSERT_TRUE(consoleEndsWith("\nThe build was stopped"));
    }
}

TEST_F(BuildSessionTest, StopDropsTheRestOfARunInEitherOfItsBuilds) {
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    script("Game", "count ready\nforever\n");
    press(Qt::Key_R);
    ASSERT_TRUE(waitForFile("ready"));
    press(Qt::Key_Period);
    ASSERT_TRUE(isOver());
    ASSERT_TRUE(consoleEndsWith("\nThe build was stopped"));
    EXPECT_EQ(timesCounted("ready"), 1) << "there is no second build";
    std::filesystem::remove(folder("Game") / "ready");
    script("Game", "await go\ncount ready\nawait go\n");
    const auto go = fifo("go");
    press(Qt::Key_R);
    std::ofstream(go).close();
    ASSERT_TRUE(waitForFile("ready"));
    script("Game", "count second\nforever\n");
    std::ofstream(go).close();
    ASSERT_TRUE(waitForFile("second"));
    press(Qt::Key_Period);
    ASSERT_TRUE(isOver());
    ASSERT_TRUE(consoleEndsWith("\nThe build was stopped"));
    EXPECT_EQ(session().news().mark, BuildMarkKind::stopped);
    ASSERT_TRUE(comesToRest());
    EXPECT_FALSE(existsAt(folder("Game") / "output/opened"));
}

TEST_F(BuildSessionTest, StopBetweenTheTwoBuildsOfARunDropsTheSecond) {
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    script("Game", "count builds\nimage made\n");
    controller->buildAndRun();
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    session().stop(); // before the result of the first has come here
    ASSERT_TRUE(isOver());
    ASSERT_TRUE(consoleEndsWith("\nThe build was stopped"));
    EXPECT_EQ(timesCounted("builds"), 1);
    EXPECT_TRUE(text().endsWith(QStringLiteral("; stopped before the emulator was started")));
}

TEST_F(BuildSessionTest, ANewerBuildEndsAnOlderRunWhole) {
    startWith("Game");
    chooseEmulator("Game", FAKE_EMULATOR);
    script("Game", "image old\n");
    controller->buildAndRun();
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    script("Game", "count newer\nimage new\n");
    controller->build(); // before the result of the run's first build has come here
    ASSERT_TRUE(isOver());
    ASSERT_TRUE(comesToRest());
    EXPECT_EQ(timesCounted("newer"), 1) << "the run builds no second time";
    EXPECT_EQ(contentOf(folder("Game") / "output/Game.nes"), "new");
    EXPECT_FALSE(existsAt(folder("Game") / "output/opened"));
    EXPECT_TRUE(text().startsWith(QStringLiteral("Game.nes built in ")));
}

TEST_F(BuildSessionTest, TheResultOfAnOverlappedBuildIsNotTold) {
    startWith("Game");
    script("Game", "await go\nimage made\n");
    const auto go = fifo("go");
    const QSignalSpy told(&session(), &BuildSession::newsChanged);
    controller->build();
    script("Game", "image made\n");
    controller->build();
    ASSERT_TRUE(isOver());
    for (const auto& news : told) {
        EXPECT_NE(news.at(0).value<BuildNews>().mark, BuildMarkKind::stopped);
    }
    EXPECT_EQ(session().news().mark, BuildMarkKind::made);
}

TEST_F(BuildSessionTest, BuildsThatWereOvertakenLeaveNoLineInTheConsole) {
    startWith("Game");
    script("Game", "ignore\ncount ready\nforever\n");
    controller->build();
    ASSERT_TRUE(waitForFile("ready"));
    script("Game", "image made\nprint last\n");
    for (int i = 0; i < 5; ++i) {
        controller->build();
    }
    ASSERT_TRUE(isOver());
    ASSERT_TRUE(consoleEndsWith("\nInternal Error when building"));
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    QApplication::processEvents();
    EXPECT_EQ(consoleText(), "\nlast\n\nInternal Error when building");
}

TEST_F(BuildSessionTest, TheResultThatOpensTheConsoleIsAnnouncedOnce) {
    startWith("Game");
    std::unique_ptr<Announced> announced;
    QObject::connect(controller.get(), &MainWindowController::consoleMade, &window(), [&] {
        announced = std::make_unique<Announced>(*controller->windowController());
    });
    for (const char* lines :
         {"image made\n", "print main.asm:1:1: error: no\nexit 1\n", "image other\n"}) {
        script("Game", lines);
        controller->build();
        ASSERT_TRUE(isOver());
        ASSERT_TRUE(consoleEndsWith("\nInternal Error when building"));
        EXPECT_EQ(announced->take(), std::vector{text()}) << lines;
        controller->windowController()->close();
    }
    // One that takes so long that the strip would say meanwhile that it runs.
    script("Game", "await go\nimage made\n");
    const auto go = fifo("go");
    controller->build();
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return session().news().mark == BuildMarkKind::running; }, 60000));
    std::ofstream(go).close();
    ASSERT_TRUE(isOver());
    EXPECT_EQ(announced->take(), std::vector{text()});
}

TEST_F(BuildSessionTest, WarningsAloneHaveTheirOwnMark) {
    startWith("Game");
    script("Game", "image made\nprint main.asm:1:1: warning: odd\n");
    press(Qt::Key_B);
    ASSERT_TRUE(isOver());
    EXPECT_TRUE(text().endsWith(QStringLiteral(": 4 bytes, 1 warning")));
    EXPECT_EQ(window().statusBar()->findChild<BuildMark*>()->kind(), BuildMarkKind::warned);
}

TEST_F(BuildSessionTest, ManyBuildsAndStopsLeaveNothingBehind) {
    startWith("Game");
    script("Game", "ignore\ncount ready\nforever\n");
    const auto buildAndStop = [&] {
        std::filesystem::remove(folder("Game") / "ready");
        controller->build();
        EXPECT_TRUE(waitForFile("ready"));
        action("stopAction")->trigger();
        EXPECT_TRUE(isOver());
    };
    buildAndStop();
    ASSERT_TRUE(consoleEndsWith("\nThe build was stopped"));
    script("Game", "count ready\nforever\n");
    buildAndStop();
    const std::size_t files = countIn("/proc/self/fd");
    const std::size_t threads = countIn("/proc/self/task");
    QSignalSpy running(&session(), &BuildSession::runningChanged);
    for (int i = 0; i < STOPS_IN_A_ROW; ++i) {
        buildAndStop();
        script("Game", "image made\n");
        controller->build();
        controller->build();
        session().stop();
        ASSERT_TRUE(isOver()) << i;
        script("Game", "count ready\nforever\n");
    }
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    QApplication::processEvents();
    EXPECT_LE(countIn("/proc/self/fd"), files);
    EXPECT_LE(countIn("/proc/self/task"), threads + 2) << "the pool's workers stay for a while";
    siginfo_t child{};
    EXPECT_EQ(::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT), -1);
    EXPECT_EQ(errno, ECHILD);
    EXPECT_EQ(running.size(), 4 * STOPS_IN_A_ROW) << "each command ends once";
}

TEST_F(BuildSessionTest, AWindowThatGoesDuringABuildLeavesNothingRunning) {
    startWith("Game");
    script("Game", "count ready\nawait go\n");
    const auto go = fifo("go");
    controller->build();
    ASSERT_TRUE(waitForFile("ready"));
    close();
    std::ofstream(go).close();
    EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    QApplication::processEvents();
}

} // namespace
} // namespace kestrel
