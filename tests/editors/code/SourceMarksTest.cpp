// SPDX-License-Identifier: MIT
#include "editors/code/SourceMarks.h"

#include "editors/code/CodeEditorTextView.h"
#include "editors/code/TextEditorController.h"
#include "support/TemporaryFolder.h"
#include "widgets/StatusBoard.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QTextBlock>
#include <QToolTip>

namespace kestrel::test {
namespace {

using Kind = SourceMark::Kind;

class SourceMarksTest : public testing::Test {
protected:
    void SetUp() override {
        view.resize(600, 400);
        view.show();
        view.source().load(QStringLiteral("first\n\tlda wrong,x\nthird\nfourth\n"));
    }

    void mark(int line, int column, Kind kind = Kind::error, const char* text = "no such name",
              std::size_t id = 0) {
        marks.add({{id, {line, column}, kind, QString::fromLatin1(text)}});
    }

    void type(int line, int column, const char* text) {
        QTextCursor cursor(view.document());
        cursor.setPosition(positionOf(view, {line, column}));
        view.source().insert(cursor, QString::fromLatin1(text));
    }

    /// The underlined words, each with the style of its line.
    std::vector<std::pair<std::string, int>> underlined() const {
        std::vector<std::pair<std::string, int>> words;
        for (const auto& selection : view.extraSelections()) {
            words.emplace_back(selection.cursor.selectedText().toStdString(),
                               selection.format.underlineStyle());
        }
        return words;
    }

    using Words = std::vector<std::pair<std::string, int>>;
    static Words error(const char* word) { return {{word, QTextCharFormat::WaveUnderline}}; }

    CodeEditorTextView view;
    SourceMarks marks{view};
};

TEST_F(SourceMarksTest, TheWordIsUnderlinedInAShapeForEachKind) {
    mark(2, 6);
    mark(2, 12, Kind::warning);
    mark(3, 1, Kind::note);
    EXPECT_EQ(underlined(), (Words{{"wrong", QTextCharFormat::WaveUnderline},
                                   {"x", QTextCharFormat::DashUnderline},
                                   {"third", QTextCharFormat::DotLine}}));
    marks.clear();
    EXPECT_EQ(underlined(), Words());
}

TEST_F(SourceMarksTest, AtTheEndOfALineTheCharacterBeforeItIsUnderlined) {
    mark(1, 6);
    EXPECT_EQ(underlined(), error("t"));
    marks.clear();
    mark(5, 1); // an empty line
    EXPECT_EQ(marks.textAt(view.document()->characterCount() - 1, false), u"Error: no such name");
}

TEST_F(SourceMarksTest, AMarkMovesWithEditsOfOtherLines) {
    mark(2, 6, Kind::error, "x", 7);
    type(1, 1, "new\nlines\n");
    type(1, 1, "more ");
    type(4, 12 + 1, "\n"); // a new line behind it
    EXPECT_EQ(underlined(), error("wrong"));
    EXPECT_EQ(marks.placeOf(7), (SourcePlace{4, 6}));
    ASSERT_EQ(marks.marks().size(), 1U);
    EXPECT_EQ(marks.marks().front().place, (SourcePlace{4, 6}));
    EXPECT_EQ(marks.placeOf(8), std::nullopt);
}

TEST_F(SourceMarksTest, AMarkGoesWhenItsLineIsEdited) {
    mark(2, 6, Kind::error, "x", 7);
    mark(3, 1, Kind::warning);
    type(2, 13, " ");
    EXPECT_EQ(underlined(), (Words{{"third", QTextCharFormat::DashUnderline}}));
    EXPECT_EQ(marks.placeOf(7), std::nullopt);
    view.undo();
    EXPECT_EQ(underlined().size(), 1U); // it does not come back
}

TEST_F(SourceMarksTest, AMarkGoesWithItsLine) {
    mark(3, 1);
    QTextCursor cursor(view.document());
    cursor.setPosition(positionOf(view, {2, 3}));
    cursor.setPosition(positionOf(view, {4, 3}), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    EXPECT_EQ(underlined(), Words());
}

TEST_F(SourceMarksTest, InALongLineTheRightWordIsUnderlined) {
    const QString blanks(20'000, u' ');
    view.source().load(QStringLiteral("one\n") + blanks + QStringLiteral("wrong\nlast"));
    mark(2, 20'001);
    EXPECT_EQ(underlined(), error("wrong"));
    type(1, 1, "x"); // another line
    EXPECT_EQ(underlined(), error("wrong"));
    type(2, 5, "x"); // another piece of its own
    EXPECT_EQ(underlined(), Words());
}

TEST_F(SourceMarksTest, WhatIsSaidIsTheToolTipAndTheDescriptionInTheLine) {
    mark(2, 6, Kind::error, "no <such> name");
    mark(2, 6, Kind::warning, "odd");
    EXPECT_EQ(view.accessibleDescription(), QString());
    QTextCursor caret = view.textCursor();
    caret.setPosition(positionOf(view, {2, 1}));
    view.setTextCursor(caret);
    EXPECT_EQ(view.accessibleDescription(), u"Error: no <such> name\nWarning: odd");
    caret.setPosition(positionOf(view, {2, 8}));
    const QPoint place = view.cursorRect(caret).center();
    QHelpEvent event(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view.viewport(), &event);
    EXPECT_EQ(QToolTip::text(), u"<qt>Error: no &lt;such&gt; name<br>Warning: odd</qt>");
    caret.setPosition(0);
    view.setTextCursor(caret);
    EXPECT_EQ(view.accessibleDescription(), QString());
    EXPECT_EQ(marks.textAt(0, false), QString());
}

TEST_F(SourceMarksTest, ColoursFollowThePalette) {
    mark(2, 6);
    const QColor onLight = view.extraSelections().front().format.underlineColor();
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    view.setPalette(dark);
    EXPECT_GT(view.extraSelections().front().format.underlineColor().lightness(),
              onLight.lightness());
}

TEST_F(SourceMarksTest, NoMoreThanTheLimitAreShown) {
    marks.add(
        std::vector<SourceMark>(SourceMarks::Limit + 5, SourceMark{0, {1, 1}, Kind::error, {}}));
    EXPECT_EQ(marks.marks().size(), SourceMarks::Limit);
}

class MarkedPane : public testing::Test {
protected:
    void SetUp() override {
        pane.setStatusBoard(&status);
        pane.show();
        QObject::connect(&pane, &TextEditorController::fileShown, &pane,
                         [this](bool isOther) { shown.push_back(isOther); });
        QObject::connect(&pane, &TextEditorController::fileSaved, &pane, [this] { ++saved; });
        pane.loadFile(path);
    }

    std::string place() const { return status.text(StatusField::place).toStdString(); }

    TemporaryFolder folder;
    std::filesystem::path path = folder.write("a.asm", "one\ntwo\n");
    StatusBoard status;
    TextEditorController pane;
    std::vector<bool> shown;
    int saved = 0;
};

TEST_F(MarkedPane, MarksStayWhenTheFileIsReadAgainButForChangedLines) {
    pane.marks().add({{0, {1, 1}, Kind::error, {}}, {1, {2, 1}, Kind::error, {}}});
    folder.write("a.asm", "1\nzero\ntwo\n");
    pane.loadFile(path);
    ASSERT_EQ(pane.marks().marks().size(), 1U);
    EXPECT_EQ(pane.marks().placeOf(1), (SourcePlace{3, 1}));
    pane.loadFile(folder.write("b.asm", "one\ntwo\n"));
    EXPECT_TRUE(pane.marks().marks().empty());
    EXPECT_TRUE(pane.codeEditor->extraSelections().isEmpty());
    EXPECT_EQ(shown, std::vector({true, false, true}));
}

TEST_F(MarkedPane, TellsWhenTheFileIsSaved) {
    EXPECT_EQ(saved, 0);
    pane.saveFile();
    EXPECT_EQ(saved, 1);
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    pane.saveFile();
    EXPECT_EQ(saved, 1);
}

TEST_F(MarkedPane, TheStatusBarTellsThePlaceOfTheCaretWhileThePaneIsShown) {
    EXPECT_EQ(place(), "Line 1, Column 1");
    moveCaretTo(*pane.codeEditor, {2, 3});
    EXPECT_EQ(place(), "Line 2, Column 3");
    QTest::keyClick(pane.codeEditor, Qt::Key_Left);
    EXPECT_EQ(place(), "Line 2, Column 2");
    // A letter becomes a line end before the caret, which so keeps its position.
    QTextCursor cursor(pane.codeEditor->document());
    cursor.setPosition(1);
    cursor.setPosition(2, QTextCursor::KeepAnchor);
    pane.codeEditor->source().insert(cursor, QStringLiteral("\n"));
    EXPECT_EQ(place(), "Line 3, Column 2");
    pane.hide();
    EXPECT_EQ(place(), "");
    pane.show();
    EXPECT_EQ(place(), "Line 3, Column 2");
}

} // namespace
} // namespace kestrel::test
