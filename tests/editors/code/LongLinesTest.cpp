// SPDX-License-Identifier: MIT
// Lines that the document keeps in pieces: nobody notices but by the speed.
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/FindBar.h"
#include "editors/code/GoToLineBar.h"
#include "editors/code/LineNumberRulerView.h"
#include "editors/code/LinePieces.h"
#include "editors/code/TextSearch.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <random>
#include <string>

namespace kestrel {

namespace {

constexpr int Megabyte = 1'000'000;

/// The first of an endless row of letters that does not repeat.
QString characters(int count) {
    std::minstd_rand random;
    QString text;
    for (int i = 0; i < count; ++i) {
        text += QChar(u'a' + static_cast<int>(random() >> 8U) % 26);
    }
    return text;
}

class LongLines : public ::testing::Test {
protected:
    void SetUp() override {
        editor.lnv_setUpLineNumberView();
        editor.resize(600, 400);
        editor.show();
        QApplication::processEvents();
    }

    void load(const QString& text) { editor.source().load(text); }
    QString text() { return editor.source().text(); }
    QTextBlock block(int number) { return editor.document()->findBlockByNumber(number); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&editor, key, modifiers);
    }
    void setCaret(int position) {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(position);
        editor.setTextCursor(cursor);
    }
    int caret() { return editor.textCursor().position(); }

    /// The first seam: the position before it.
    int seam() {
        EXPECT_TRUE(continuesLine(block(1)));
        return block(1).position() - 1;
    }

    /// How many characters are laid out.
    qsizetype laidOut() {
        QApplication::processEvents();
        editor.grab();
        qsizetype count = 0;
        for (QTextBlock each = block(0); each.isValid(); each = each.next()) {
            count += each.layout()->lineCount() > 0 ? each.length() : 0;
        }
        return count;
    }

    CodeEditorTextView editor;
};

/// What a window of this size shows is within so many characters.
constexpr qsizetype InSight = 3 * LongestPiece;

struct LineOf {
    const char* name;
    const char16_t* unit;
    /// Blanks hang over a row's end, so each row in sight shows a piece of them.
    qsizetype inSight = InSight;
};

class LongLinesOf : public LongLines, public ::testing::WithParamInterface<LineOf> {};

TEST_P(LongLinesOf, LayOutOnlyWhatIsInSight) {
    const QString unit = QString::fromUtf16(GetParam().unit);
    const QString line = unit.repeated(Megabyte / unit.size());
    load(line);
    setCaret(0);
    EXPECT_LE(laidOut(), GetParam().inSight);
    key(Qt::Key_X);
    EXPECT_LE(laidOut(), GetParam().inSight);
    editor.resize(editor.width() + 30, 400);
    EXPECT_LE(laidOut(), GetParam().inSight);
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_LE(laidOut(), GetParam().inSight);
    EXPECT_EQ(text(), u'x' + line);
    editor.verticalScrollBar()->setValue(editor.verticalScrollBar()->maximum());
    EXPECT_LE(laidOut(), 2 * GetParam().inSight);
}

INSTANTIATE_TEST_SUITE_P(Units, LongLinesOf,
                         ::testing::Values(LineOf{"Letters", u"x"}, LineOf{"Words", u"word "},
                                           LineOf{"Blanks", u" ", 60 * LongestPiece},
                                           LineOf{"Ideographs", u"\u6f22\u5b57"}),
                         [](const auto& example) { return std::string(example.param.name); });

TEST_F(LongLines, WhatMakesALineLongIsCutToo) {
    load(QStringLiteral("ab\n"));
    setCaret(1);
    QApplication::clipboard()->setText(characters(Megabyte));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_LE(laidOut(), InSight);
    EXPECT_EQ(text(), u'a' + characters(Megabyte) + QStringLiteral("b\n"));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), QStringLiteral("ab\n"));
    EXPECT_EQ(editor.blockCount(), 2);

    load(characters(LongestPiece) + u'\n' + characters(LongestPiece));
    ASSERT_EQ(editor.blockCount(), 2);
    setCaret(LongestPiece);
    key(Qt::Key_Delete);
    EXPECT_EQ(text(), characters(LongestPiece) + characters(LongestPiece));
    EXPECT_GT(editor.blockCount(), 2);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.blockCount(), 2);

    load(characters(LongestPiece));
    ASSERT_EQ(editor.blockCount(), 1);
    setCaret(0);
    key(Qt::Key_X);
    EXPECT_EQ(editor.blockCount(), 2);
    EXPECT_EQ(text(), u'x' + characters(LongestPiece));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), characters(LongestPiece));
    EXPECT_EQ(editor.blockCount(), 1);
}

TEST_F(LongLines, ALineThatGetsShortIsOnePieceAgain) {
    load(characters(50000));
    QTextCursor cursor = editor.textCursor();
    cursor.setPosition(100);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.setPosition(cursor.position() - 100, QTextCursor::KeepAnchor);
    editor.setTextCursor(cursor);
    key(Qt::Key_Delete);
    EXPECT_EQ(editor.blockCount(), 1);
    EXPECT_EQ(text(), characters(100) + characters(50000).last(100));
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), characters(50000));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), characters(50000));
    EXPECT_EQ(text(), QString());
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), characters(50000));
}

TEST_F(LongLines, TheNumbersCountTheLineOnce) {
    load(characters(20000) + QStringLiteral("\nnop\nrts"));
    QStringList labels;
    for (int value = 0; value <= editor.verticalScrollBar()->maximum(); ++value) {
        editor.verticalScrollBar()->setValue(value);
        QString last;
        for (const auto& label : editor.lineNumberView()->labels()) {
            last = label.text;
            if (labels.isEmpty() || labels.last() != last) {
                if (last != QStringLiteral("-") || labels.size() < 2) {
                    labels += labels.contains(last) ? QStringList() : QStringList(last);
                }
            }
        }
    }
    EXPECT_EQ(labels, (QStringList{QStringLiteral("1"), QStringLiteral("-"), QStringLiteral("2"),
                                   QStringLiteral("3")}));
    EXPECT_EQ(editor.lineCount(), 3);
}

TEST_F(LongLines, TheNumberIsRightWhereTheFirstRowInSightIsWithinTheLine) {
    load(QStringLiteral("nop\n") + characters(20000) + QStringLiteral("\nrts"));
    setCaret(block(2).position()); // the second piece
    editor.verticalScrollBar()->setValue(2 + block(1).layout()->lineCount());
    ASSERT_EQ(editor.cursorForPosition(QPoint(5, 30)).block(), block(2));
    for (const auto& label : editor.lineNumberView()->labels()) {
        EXPECT_EQ(label.text, QStringLiteral("-"));
    }
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(editor.lineNumberView()->labels().back().text, QStringLiteral("3"));
}

TEST_F(LongLines, GoToLineCountsTheLineOnce) {
    load(characters(20000) + QStringLiteral("\nnop\nrts"));
    QWidget window;
    GoToLineBar bar(editor, &window);
    setCaret(seam() + 1);
    bar.open();
    auto* number = bar.findChild<QLineEdit*>(QStringLiteral("goToLineNumber"));
    EXPECT_EQ(number->text(), QStringLiteral("1"));
    EXPECT_EQ(bar.findChild<QLabel*>(QStringLiteral("goToLineCount"))->text(),
              QStringLiteral("of 3"));
    number->setText(QStringLiteral("2"));
    QTest::keyClick(&bar, Qt::Key_Return);
    EXPECT_EQ(editor.textCursor().block().text(), QStringLiteral("nop"));
    number->setText(QStringLiteral("1"));
    QTest::keyClick(&bar, Qt::Key_Return);
    EXPECT_EQ(caret(), 0);
}

TEST_F(LongLines, AMatchMayRunOverASeam) {
    load(characters(20000));
    const int place = seam();
    const QString term = characters(20000).mid(place - 30, 60);
    const TextSearch search(editor.source(), {characters(20000).mid(place - 300, 600), true, true});
    EXPECT_EQ(search.count(), 0) << "no whole word";

    QWidget window;
    FindBar bar(editor, &window);
    window.show();
    bar.open();
    auto* field = bar.findChild<QLineEdit*>(QStringLiteral("findTerm"));
    setCaret(place - 35);
    field->setText(term);
    EXPECT_EQ(editor.textCursor().selectionStart(), place - 30);
    EXPECT_EQ(SourceDocument::selectedText(editor.textCursor()), term);
    EXPECT_EQ(editor.textCursor().selectionEnd(), place + 31);
    editor.selectAll();
    bar.findNext();
    EXPECT_EQ(SourceDocument::selectedText(editor.textCursor()), term);
    bar.hide();
    field->clear();
    bar.open(); // with what is selected
    EXPECT_EQ(field->text(), term);
}

TEST_F(LongLines, MatchesBeginWhereTheyAreBehindSeveralSeams) {
    load(characters(30000) + QStringLiteral("!needle!") + characters(9000));
    const TextSearch search(editor.source(), {QStringLiteral("needle"), true, true});
    ASSERT_EQ(search.count(), 1);
    setCaret(search.position(0));
    QTextCursor cursor = editor.textCursor();
    cursor.setPosition(search.end(0), QTextCursor::KeepAnchor);
    EXPECT_EQ(cursor.selectedText(), QStringLiteral("needle"));
}

TEST_F(LongLines, TheClipboardGetsNoSeams) {
    load(characters(20000) + QStringLiteral("\r\nnop"));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), characters(20000) + QStringLiteral("\nnop"));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), characters(20000) + QStringLiteral("\r\nnop"));
}

TEST_F(LongLines, KeysBesideASeamDoWhatTheyDoElsewhere) {
    const QString line = characters(20000);
    load(line);
    const int place = seam();
    for (const int beside : {place, place + 1}) {
        load(line);
        setCaret(beside);
        key(Qt::Key_Backspace);
        EXPECT_EQ(text(), QString(line).remove(place - 1, 1));
        load(line);
        setCaret(beside);
        key(Qt::Key_Delete);
        EXPECT_EQ(text(), QString(line).remove(place, 1));
        key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(text(), line);
        setCaret(beside);
        key(Qt::Key_X);
        EXPECT_EQ(text(), QString(line).insert(place, u'x'));
        load(line);
        setCaret(beside);
        key(Qt::Key_Return);
        EXPECT_EQ(text(), QString(line).insert(place, u'\n'));
        EXPECT_EQ(editor.lineCount(), 2);
        EXPECT_EQ(editor.lineAt(caret()), 1);
    }
}

TEST_F(LongLines, TheCaretStopsOnceAtASeam) {
    load(characters(20000));
    const int place = seam();
    setCaret(place - 1);
    key(Qt::Key_Right);
    EXPECT_EQ(caret(), place);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(SourceDocument::selectedText(editor.textCursor()).size(), 1);
    EXPECT_EQ(caret(), place + 2);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(caret(), place - 1);
    setCaret(place + 2);
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    EXPECT_EQ(caret(), place - 1);
}

TEST_F(LongLines, ANewLineFarBehindTheTabsIsIndentedLikeTheLine) {
    load(QStringLiteral("\t\t") + characters(20000) + QStringLiteral("\r\n"));
    setCaret(15000);
    const QString before = editor.source().text();
    key(Qt::Key_Return);
    const QStringList lines = text().split(QStringLiteral("\r\n"));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[1].startsWith(QStringLiteral("\t\t")));
    EXPECT_EQ(lines[0] + lines[1].sliced(2) + QStringLiteral("\r\n"), before);
    load(QString(10000, u'\t'));
    EXPECT_EQ(editor.findLastTabItem(9000), 10000);
}

TEST_F(LongLines, OrdinaryLinesAreOneBlockEach) {
    load((characters(LongestPiece) + u'\n').repeated(20));
    EXPECT_EQ(editor.blockCount(), 21);
    EXPECT_FALSE(editor.source().mayHavePieces());
}

TEST(LinePieces, ACutIsBehindABlankAndNeverWithinACharacter) {
    EXPECT_EQ(pieceLength(characters(LongestPiece)), LongestPiece);
    EXPECT_EQ(pieceLength(characters(LongestPiece + 1)), UsualPiece);
    EXPECT_EQ(pieceLength(characters(4000) + u' ' + characters(9000)), 4001);
    EXPECT_EQ(pieceLength(u'x' + QStringLiteral("\U0001F600").repeated(9000)), UsualPiece - 1);
    EXPECT_EQ(pieceLength(u'x' + QStringLiteral("e\u0301").repeated(9000)), UsualPiece - 1);
    // So many marks on one character that it cannot be kept whole.
    EXPECT_EQ(pieceLength(QString(9000, QChar(0x0301))), UsualPiece);
}

} // namespace

} // namespace kestrel
