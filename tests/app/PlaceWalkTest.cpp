// SPDX-License-Identifier: MIT
#include "app/PlaceWalk.h"

#include "app/BuildStrip.h"
#include "app/WindowFixture.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/SourceMarks.h"
#include "editors/code/SourcePlace.h"
#include "editors/code/TextEditorController.h"
#include "editors/CommonEditorControllers.h"
#include "model/StructureFile.h"
#include "widgets/StatusBoard.h"

#include <QLabel>
#include <QTextBlock>

namespace kestrel {
namespace {

using namespace test;

/// A built project with two sources, and an assembler that complains of both.
class PlaceWalkTest : public WindowTest {
protected:
    void startAndBuild(const std::string& output) {
        layOut("Game");
        const auto inc = makeNode("inc.asm", FileType::text, {}, folder("Game") / "code");
        home.write("Kestrel/Game/code/inc.asm", "first\n\tlda wrong\nthird\n");
        home.write("Kestrel/Game/main.asm", "\t.org $FFFA\n\tjmp nowhere\n");
        const auto main = makeNode("main.asm", FileType::text, {}, folder("Game"));
        const auto root = makeNode("Game", FileType::project, {main, inc}, folder("Game"));
        NESBuildSettings::add(inc, root);
        ASSERT_TRUE(saveStructure(*root));
        ASSERT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(root));
        start();
        build(output);
    }

    void build(const std::string& output) {
        script("Game", output);
        QTest::keyClick(&window(), Qt::Key_B, Qt::ControlModifier);
        ASSERT_TRUE(consoleEndsWith("Internal Error when building"));
    }

    PlaceWalk& walk() const { return *window().findChild<PlaceWalk*>(); }
    TextEditorController& pane() const { return *editor().commonController()->textEditor; }
    CodeEditorTextView& text() const { return *pane().codeEditor; }
    void next() const { action("nextProblemAction")->trigger(); }
    void previous() const { action("previousProblemAction")->trigger(); }

    /// The shown file's name and the caret's place in it.
    std::string place() const {
        const SourcePlace caret = placeAt(text(), text().textCursor().position());
        return pane().path().value_or("").filename().string() + ":" + std::to_string(caret.line) +
               ":" + std::to_string(caret.column);
    }

    std::string marked() const {
        std::string words;
        for (const auto& selection : text().extraSelections()) {
            words += selection.cursor.selectedText().toStdString() + " ";
        }
        return words;
    }

    /// What the status bar tells of the last step.
    QString told() const {
        return editor().commonController()->statusBoard()->text(StatusField::notice);
    }

    void insert(int line, const char* typed) const {
        QTextCursor cursor(text().document());
        cursor.setPosition(positionOf(text(), {line, 1}));
        text().source().insert(cursor, QString::fromLatin1(typed));
    }
};

constexpr const char* Complaints = "print main.asm:2:6: warning: jumps away\n"
                                   "print code/inc:2:6: error: no such name\n"
                                   "print inc.asm:3:1: error: what is this\n";

TEST_F(PlaceWalkTest, TheFirstStepGoesToTheFirstErrorAndTheNextOnesRound) {
    startAndBuild(Complaints);
    next();
    EXPECT_EQ(place(), "inc.asm:2:6");
    EXPECT_EQ(told(), QStringLiteral("Error (2 of 3): no such name"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return text().hasFocus(); }));
    EXPECT_EQ(tree().selectedItem()->itemName(), "inc.asm");
    next();
    EXPECT_EQ(place(), "inc.asm:3:1");
    next();
    EXPECT_EQ(place(), "main.asm:2:6");
    previous();
    EXPECT_EQ(place(), "inc.asm:3:1");
}

TEST_F(PlaceWalkTest, APlaceBeyondTheEndOfTheFileIsSaidToBeThere) {
    startAndBuild("print main.asm:2:6: error: jumps away\nprint inc.asm:2:6: error: no such name\n"
                  "print inc.asm:23:1: error: what is this\n");
    home.write("Kestrel/Game/code/inc.asm", "only\n");
    next();
    next();
    EXPECT_EQ(place(), "inc.asm:2:1") << "the last line, which is empty";
    EXPECT_EQ(told(), QStringLiteral("Error (2 of 3): no such name"));
    next();
    EXPECT_EQ(place(), "inc.asm:2:1");
    EXPECT_EQ(told(),
              QStringLiteral("“inc.asm” ends before line 23. Error (3 of 3): what is this"));
    const auto* notice = controller->windowController()->buildStrip()->findChild<QLabel*>(
        QStringLiteral("buildNotice"));
    EXPECT_EQ(notice->text(), QStringLiteral("“inc.asm” ends before line 23"));
    EXPECT_EQ(text().accessibleDescription(), QStringLiteral("Error: no such name"))
        << "what is of no line of the text is no mark";
    next();
    EXPECT_EQ(place(), "main.asm:2:6");
    EXPECT_EQ(told(), QStringLiteral("Error (1 of 3): jumps away"));
}

TEST_F(PlaceWalkTest, TheStatusBarTellsTheProblemWhileTheCaretIsInItsLine) {
    startAndBuild(Complaints);
    previous();
    EXPECT_EQ(told(), QStringLiteral("Error (3 of 3): what is this"));
    QTest::keyClick(&text(), Qt::Key_End);
    EXPECT_EQ(told(), QStringLiteral("Error (3 of 3): what is this"));
    QTest::keyClick(&text(), Qt::Key_Up);
    EXPECT_EQ(told(), QStringLiteral(""));
    next();
    EXPECT_EQ(told(), QStringLiteral("Warning (1 of 3): jumps away"));
    QTest::keyClick(&window(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(told(), QStringLiteral(""));
}

TEST_F(PlaceWalkTest, TheCommandsActEverywhereByTheirKeys) {
    startAndBuild("");
    EXPECT_EQ(action("nextProblemAction")->shortcut(), QKeySequence(Qt::Key_F4));
    EXPECT_EQ(action("previousProblemAction")->shortcut(), QKeySequence(Qt::SHIFT | Qt::Key_F4));
    for (const char* const name : {"nextProblemAction", "previousProblemAction"}) {
        EXPECT_EQ(action(name)->shortcutContext(), Qt::ApplicationShortcut);
        EXPECT_TRUE(menu("buildMenu")->actions().contains(action(name)));
    }
}

TEST_F(PlaceWalkTest, ALineOfTheConsoleIsGoneToAndTheWalkGoesOnFromThere) {
    startAndBuild(Complaints);
    QPlainTextEdit* console = controller->consoleOutputController()->console();
    QTextCursor caret(console->document()->find(QStringLiteral("inc.asm:3")));
    console->setTextCursor(caret);
    QTest::keyClick(console, Qt::Key_Return);
    EXPECT_EQ(place(), "inc.asm:3:1");
    next();
    EXPECT_EQ(place(), "main.asm:2:6");
    EXPECT_EQ(console->textCursor().block().text(), u"main.asm:2:6: warning: jumps away");
}

TEST_F(PlaceWalkTest, AfterUsesALineOfTheConsoleLeadsTheWalkBackToTheProblems) {
    startAndBuild(Complaints);
    walk().list().fill(PlaceList::Content::uses, tree().allItems().at(0),
                       {{QStringLiteral("main.asm"), 1, 1, Place::Kind::use, {}, {}}});
    next();
    EXPECT_EQ(place(), "main.asm:1:1");
    QPlainTextEdit* console = controller->consoleOutputController()->console();
    console->setTextCursor(console->document()->find(QStringLiteral("code/inc")));
    QTest::keyClick(console, Qt::Key_Return);
    EXPECT_EQ(place(), "inc.asm:2:6");
    next();
    EXPECT_EQ(place(), "inc.asm:3:1");
}

TEST_F(PlaceWalkTest, AChainIsFollowedAndAFileInNoTreeIsNamed) {
    startAndBuild("print code/inc:2:6: error: x\nprint   included at main.asm:2\n"
                  "print   included at lost.asm:7\n");
    QPlainTextEdit* console = controller->consoleOutputController()->console();
    console->setTextCursor(console->document()->find(QStringLiteral("included at main")));
    QTest::keyClick(console, Qt::Key_Return);
    EXPECT_EQ(place(), "main.asm:2:1");
    console->setTextCursor(console->document()->find(QStringLiteral("included at lost")));
    QTest::keyClick(console, Qt::Key_Return);
    EXPECT_EQ(place(), "main.asm:2:1");
    const QString notice = QStringLiteral("“lost.asm” is in no project of the tree");
    EXPECT_EQ(told(), notice);
    const auto* label = controller->windowController()->buildStrip()->findChild<QLabel*>(
        QStringLiteral("buildNotice"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), notice);
    EXPECT_TRUE(label->isVisible());
    next();
    EXPECT_EQ(told(), QStringLiteral("Error (1 of 1): x"));
    EXPECT_FALSE(label->isVisible());
}

TEST_F(PlaceWalkTest, TheShownFileIsMarkedUntilTheNextBuild) {
    startAndBuild(Complaints);
    next();
    EXPECT_EQ(marked(), "wrong third ");
    previous();
    EXPECT_EQ(marked(), "nowhere ");
    build(Complaints); // marked at once
    EXPECT_EQ(marked(), "nowhere ");
    build("");
    EXPECT_EQ(marked(), "");
    EXPECT_TRUE(walk().list().places().empty());
}

TEST_F(PlaceWalkTest, StepsFollowWhatWasEditedAndKeepUnsavedText) {
    startAndBuild(Complaints);
    next();
    insert(1, "new\nlines\n");
    previous();
    next();
    next(); // read anew from the disk, so nothing has moved
    EXPECT_EQ(place(), "inc.asm:3:1");
    insert(1, "new\nlines\n");
    previous();
    EXPECT_EQ(place(), "inc.asm:4:6");
    EXPECT_TRUE(text().toPlainText().startsWith(QStringLiteral("new\nlines\nfirst")));
}

TEST_F(PlaceWalkTest, OnceSavedMovedAndMendedLinesStaySo) {
    startAndBuild(Complaints);
    next();
    insert(1, "new\n");
    insert(4, ";"); // the third line, which is mended
    pane().saveFile();
    previous();
    ASSERT_EQ(place(), "main.asm:2:6");
    next();
    EXPECT_EQ(place(), "inc.asm:3:6");
    EXPECT_EQ(marked(), "wrong ");
}

TEST_F(PlaceWalkTest, WhoeverFillsTheListIsWalkedThrough) {
    startAndBuild(Complaints);
    next();
    walk().list().fill(PlaceList::Content::uses, tree().allItems().at(0),
                       {{QStringLiteral("main.asm"), 1, 2, Place::Kind::use, {}}});
    next();
    EXPECT_EQ(place(), "main.asm:1:2");
    EXPECT_EQ(marked(), "nowhere ");
    build(Complaints);
    next();
    EXPECT_EQ(place(), "inc.asm:2:6");
}

TEST_F(PlaceWalkTest, WithoutAProblemThatIsSaid) {
    startAndBuild("print all is well\n");
    next();
    EXPECT_EQ(told(), QStringLiteral("There is no problem to go to"));
}

} // namespace
} // namespace kestrel
