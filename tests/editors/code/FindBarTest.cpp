// SPDX-License-Identifier: MIT
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/TextEditorController.h"
#include "editors/code/TextSearch.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>

namespace kestrel {

namespace {

/// A pane with a text, its bars and its commands.
class EditorBars : public ::testing::Test {
protected:
    void SetUp() override {
        pane.resize(600, 400);
        pane.show();
        pane.activateWindow();
    }

    void load(const QString& text) {
        pane.loadFile(m_folder.write("a" + std::to_string(++m_files), text.toStdString()));
    }
    CodeEditorTextView& editor() { return *pane.codeEditor; }

    void trigger(const QString& text) {
        for (QAction* action : pane.editActions() + pane.viewActions()) {
            if (action->text() == text) {
                action->trigger();
                return;
            }
        }
        FAIL() << text.toStdString();
    }
    template<typename Widget> Widget& widget(const char* objectName) {
        auto* found = pane.findChild<Widget*>(QString::fromLatin1(objectName));
        EXPECT_NE(found, nullptr) << objectName;
        return *found;
    }
    void find(const QString& term) {
        trigger(QStringLiteral("Find..."));
        widget<QLineEdit>("findTerm").clear();
        QTest::keyClicks(&widget<QLineEdit>("findTerm"), term);
    }
    QString count() { return widget<QLabel>("findCount").text(); }
    int place() { return editor().textCursor().selectionStart(); }
    QString selected() { return SourceDocument::selectedText(editor().textCursor()); }

    TextEditorController pane;

private:
    test::TemporaryFolder m_folder;
    int m_files = 0;
};

TEST_F(EditorBars, TheCommandsStandInOrderWithTheirKeys) {
    QStringList edit;
    for (const QAction* action : pane.editActions()) {
        edit += action->text() + u' ' + action->shortcut().toString();
    }
    EXPECT_EQ(edit, (QStringList{QStringLiteral("Find... Ctrl+F"), QStringLiteral("Find Next F3"),
                                 QStringLiteral("Find Previous Shift+F3"),
                                 QStringLiteral("Go to Line... Ctrl+L"),
                                 QStringLiteral("Go to Definition F12"),
                                 QStringLiteral("Find Uses Shift+F12")}));
    QStringList view;
    for (const QAction* action : pane.viewActions()) {
        view += action->text() + u' ' +
                QKeySequence::listToString(action->shortcuts(), QKeySequence::PortableText);
    }
    EXPECT_EQ(view, (QStringList{QStringLiteral("Zoom In Ctrl++; Ctrl+="),
                                 QStringLiteral("Zoom Out Ctrl+-"),
                                 QStringLiteral("Actual Size Ctrl+0")}));
    EXPECT_EQ(pane.editActions(), pane.editActions());
}

TEST_F(EditorBars, FindSearchesWhileOneTypesFromTheCaret) {
    load(QStringLiteral("lda\nsta\nldx\nlda\n"));
    editor().moveCursor(QTextCursor::Down);
    find(QStringLiteral("ld"));
    EXPECT_EQ(place(), 8);
    EXPECT_EQ(count(), QStringLiteral("2 of 3"));
    QTest::keyClicks(&widget<QLineEdit>("findTerm"), QStringLiteral("a"));
    EXPECT_EQ(place(), 12);
    EXPECT_EQ(selected(), QStringLiteral("lda"));
    EXPECT_EQ(count(), QStringLiteral("2 of 2"));
}

TEST_F(EditorBars, FindNextAndPreviousGoAroundTheText) {
    load(QStringLiteral("a b a b a"));
    find(QStringLiteral("a"));
    EXPECT_EQ(place(), 0);
    for (const int expected : {4, 8, 0}) {
        trigger(QStringLiteral("Find Next"));
        EXPECT_EQ(place(), expected);
    }
    for (const int expected : {8, 4, 0, 8}) {
        trigger(QStringLiteral("Find Previous"));
        EXPECT_EQ(place(), expected);
    }
    EXPECT_EQ(count(), QStringLiteral("3 of 3"));
    auto& term = widget<QLineEdit>("findTerm");
    QTest::keyClick(&term, Qt::Key_Return);
    EXPECT_EQ(place(), 0);
    QTest::keyClick(&term, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(place(), 8);
    widget<QToolButton>("findNextButton").click();
    EXPECT_EQ(place(), 0);
    widget<QToolButton>("findPreviousButton").click();
    EXPECT_EQ(place(), 8);
}

TEST_F(EditorBars, TheOnlyMatchIsFoundAgain) {
    load(QStringLiteral("xx lda xx"));
    find(QStringLiteral("lda"));
    trigger(QStringLiteral("Find Next"));
    EXPECT_EQ(place(), 3);
    trigger(QStringLiteral("Find Previous"));
    EXPECT_EQ(place(), 3);
}

TEST_F(EditorBars, CaseAndWholeWordsCountWhenSwitchedOn) {
    load(QStringLiteral("LDA lda ldax _lda lda_ .lda ldA"));
    find(QStringLiteral("lda"));
    EXPECT_EQ(count(), QStringLiteral("1 of 7"));
    widget<QCheckBox>("findMatchCase").click();
    EXPECT_EQ(count(), QStringLiteral("1 of 5"));
    EXPECT_EQ(place(), 4);
    widget<QCheckBox>("findWholeWords").click();
    EXPECT_EQ(count(), QStringLiteral("1 of 2"));
    widget<QCheckBox>("findMatchCase").click();
    EXPECT_EQ(count(), QStringLiteral("2 of 4"));
}

TEST_F(EditorBars, WhatIsNotThereIsSaidAndTheSelectionIsGone) {
    load(QStringLiteral("lda\n"));
    find(QStringLiteral("ldx"));
    EXPECT_EQ(count(), QStringLiteral("No matches"));
    EXPECT_FALSE(editor().textCursor().hasSelection());
    EXPECT_EQ(place(), 0);
    trigger(QStringLiteral("Find Next"));
    EXPECT_EQ(place(), 0);
    widget<QLineEdit>("findTerm").clear();
    EXPECT_EQ(count(), QString());
}

TEST_F(EditorBars, EscapeClosesTheBarAndKeepsTheMatchSelected) {
    load(QStringLiteral("nop lda"));
    find(QStringLiteral("lda"));
    EXPECT_TRUE(widget<QWidget>("findBar").isVisible());
    QTest::keyClick(&widget<QLineEdit>("findTerm"), Qt::Key_Escape);
    EXPECT_FALSE(widget<QWidget>("findBar").isVisible());
    EXPECT_EQ(selected(), QStringLiteral("lda"));
    EXPECT_EQ(pane.focusWidget(), &editor());
    find(QStringLiteral("nop"));
    QTest::keyClick(&editor(), Qt::Key_Escape);
    EXPECT_FALSE(widget<QWidget>("findBar").isVisible());
    widget<QLineEdit>("findTerm").setText(QStringLiteral("p"));
    trigger(QStringLiteral("Find Next"));
    EXPECT_EQ(selected(), QStringLiteral("p")) << "with the bar closed, too";
    EXPECT_FALSE(widget<QWidget>("findBar").isVisible());
}

TEST_F(EditorBars, FindTakesTheSelectedTextForItsTerm) {
    load(QStringLiteral("lda sta\u2028 sta\u2028\nx"));
    QTextCursor cursor = editor().textCursor();
    cursor.setPosition(4);
    cursor.setPosition(8, QTextCursor::KeepAnchor);
    editor().setTextCursor(cursor);
    trigger(QStringLiteral("Find..."));
    EXPECT_EQ(widget<QLineEdit>("findTerm").text(), QStringLiteral("sta\u2028"));
    EXPECT_EQ(count(), QStringLiteral("1 of 2"));
    editor().selectAll();
    trigger(QStringLiteral("Find..."));
    EXPECT_EQ(widget<QLineEdit>("findTerm").text(), QStringLiteral("sta\u2028")) << "one line only";
}

TEST_F(EditorBars, WithoutATermFindNextAsksForOne) {
    load(QStringLiteral("lda"));
    trigger(QStringLiteral("Find Next"));
    EXPECT_TRUE(widget<QWidget>("findBar").isVisible());
}

TEST_F(EditorBars, TypingATermSearchesFromWhereTheCaretIsNow) {
    load(QStringLiteral("lda sta lda sta"));
    find(QStringLiteral("sta"));
    EXPECT_EQ(place(), 4);
    editor().moveCursor(QTextCursor::End);
    editor().moveCursor(QTextCursor::StartOfLine);
    widget<QLineEdit>("findTerm").clear();
    QTest::keyClicks(&widget<QLineEdit>("findTerm"), QStringLiteral("lda"));
    EXPECT_EQ(place(), 0);
}

TEST_F(EditorBars, FindNeverSelectsHalfOfACharacter) {
    // The second half of U+1F428 looks like the stand-in for U+2028.
    load(QStringLiteral("a\U0001F428b\u2028c"));
    const TextSearch search(editor().source(), {QString(QChar(0x2028)), false, false});
    ASSERT_TRUE(search.atOrAfter(0));
    EXPECT_EQ(search.position(*search.atOrAfter(0)), 4);
    EXPECT_EQ(search.atOrAfter(5), search.atOrAfter(0)) << "there is no other";
}

TEST_F(EditorBars, TheCountFollowsEdits) {
    load(QStringLiteral("lda lda"));
    find(QStringLiteral("lda"));
    editor().moveCursor(QTextCursor::End);
    QTest::keyClicks(&editor(), QStringLiteral("\tlda"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == QStringLiteral("0 of 3"); }, 60000))
        << count().toStdString();
    trigger(QStringLiteral("Find Previous"));
    EXPECT_EQ(count(), QStringLiteral("3 of 3"));
}

TEST_F(EditorBars, AMatchOutOfSightIsBroughtIntoView) {
    load(QStringLiteral("nop\n").repeated(1000) + QStringLiteral("lda\n") +
         QStringLiteral("nop\n").repeated(1000));
    find(QStringLiteral("lda"));
    EXPECT_EQ(place(), 4000);
    EXPECT_TRUE(editor().viewport()->rect().contains(editor().cursorRect()));
    EXPECT_GT(editor().cursorRect().top(), 50);
    EXPECT_LT(editor().cursorRect().bottom(), editor().viewport()->height() - 50);
}

TEST_F(EditorBars, FindingNeverChangesTheText) {
    load(QStringLiteral("lda\r\nlda\n"));
    find(QStringLiteral("lda"));
    trigger(QStringLiteral("Find Next"));
    EXPECT_EQ(editor().source().text(), QStringLiteral("lda\r\nlda\n"));
    EXPECT_FALSE(editor().document()->isUndoAvailable());
}

TEST_F(EditorBars, GoToLineGoesThere) {
    load(QStringLiteral("nop\n").repeated(999));
    trigger(QStringLiteral("Go to Line..."));
    auto& number = widget<QLineEdit>("goToLineNumber");
    EXPECT_EQ(number.text(), QStringLiteral("1"));
    EXPECT_EQ(number.selectedText(), QStringLiteral("1"));
    EXPECT_EQ(widget<QLabel>("goToLineCount").text(), QStringLiteral("of 1000"));
    QTest::keyClicks(&number, QStringLiteral("500"));
    QTest::keyClick(&number, Qt::Key_Return);
    EXPECT_EQ(editor().textCursor().blockNumber(), 499);
    EXPECT_TRUE(editor().viewport()->rect().contains(editor().cursorRect()));
    EXPECT_FALSE(widget<QWidget>("goToLineBar").isVisible());
    EXPECT_EQ(pane.focusWidget(), &editor());
}

TEST_F(EditorBars, GoToLineTakesAnyNumberAndNothingElse) {
    load(QStringLiteral("nop\n").repeated(9));
    for (const auto& [typed, line] : {std::pair{"99999999999999999999", 9}, std::pair{"0", 0},
                                      std::pair{"-3x", 2}, std::pair{"007", 6}}) {
        trigger(QStringLiteral("Go to Line..."));
        auto& number = widget<QLineEdit>("goToLineNumber");
        number.clear();
        QTest::keyClicks(&number, QString::fromLatin1(typed));
        QTest::keyClick(&number, Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(editor().textCursor().blockNumber(), line) << typed;
    }
    trigger(QStringLiteral("Go to Line..."));
    widget<QLineEdit>("goToLineNumber").clear();
    QTest::keyClick(&widget<QLineEdit>("goToLineNumber"), Qt::Key_Return);
    EXPECT_TRUE(widget<QWidget>("goToLineBar").isVisible()) << "there is nowhere to go";
    QTest::keyClick(&widget<QLineEdit>("goToLineNumber"), Qt::Key_Escape);
    EXPECT_FALSE(widget<QWidget>("goToLineBar").isVisible());
}

TEST_F(EditorBars, OneBarIsShownAtATime) {
    trigger(QStringLiteral("Find..."));
    trigger(QStringLiteral("Go to Line..."));
    EXPECT_FALSE(widget<QWidget>("findBar").isVisible());
    trigger(QStringLiteral("Find..."));
    EXPECT_FALSE(widget<QWidget>("goToLineBar").isVisible());
}

TEST_F(EditorBars, ZoomCommandsChangeTheFont) {
    const int actual = editor().font().pixelSize();
    trigger(QStringLiteral("Zoom In"));
    trigger(QStringLiteral("Zoom In"));
    trigger(QStringLiteral("Zoom Out"));
    EXPECT_EQ(editor().font().pixelSize(), actual + 1);
    trigger(QStringLiteral("Actual Size"));
    EXPECT_EQ(editor().font().pixelSize(), actual);
}

TEST_F(EditorBars, EveryControlHasANameForEverybody) {
    trigger(QStringLiteral("Find..."));
    for (const QWidget* control : pane.findChildren<QWidget*>()) {
        if (control->focusPolicy() != Qt::NoFocus && control->parentWidget() != &editor()) {
            EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
            EXPECT_FALSE(control->accessibleName().isEmpty())
                << control->objectName().toStdString();
        }
    }
}

TEST(TextSearch, MatchesDoNotOverlapAndDoNotRunOverLineEnds) {
    QTextDocument document(QStringLiteral("aaaa\naa"));
    const SourceDocument source(document);
    const TextSearch search(source, {QStringLiteral("aa"), true, false});
    ASSERT_EQ(search.count(), 3);
    EXPECT_EQ(search.position(1), 2);
    EXPECT_EQ(search.position(2), 5);
    EXPECT_EQ(search.end(2), 7);
    EXPECT_EQ(search.atOrAfter(3), 2);
    EXPECT_EQ(search.atOrAfter(6), 0);
    EXPECT_EQ(search.before(0), 2);
    EXPECT_EQ(search.before(5), 1);
    EXPECT_EQ(search.at(1), std::nullopt);
    EXPECT_EQ(search.at(2), 1);
}

TEST(TextSearch, AnEmptyTermAndAnEmptyTextHaveNoMatches) {
    QTextDocument document;
    const SourceDocument source(document);
    EXPECT_EQ(TextSearch(source, {QStringLiteral("a"), false, false}).count(), 0);
    document.setPlainText(QStringLiteral("abc"));
    EXPECT_EQ(TextSearch(source, {}).count(), 0);
    EXPECT_EQ(TextSearch(source, {}).atOrAfter(0), std::nullopt);
    EXPECT_EQ(TextSearch(source, {}).before(0), std::nullopt);
}

/// That no widget of a bar lies over another, out of the bar or narrower than it can be.
void expectRoomForAll(const QWidget& bar) {
    const QList<QWidget*> widgets = bar.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (const QWidget* widget : widgets) {
        const std::string name =
            widget->objectName().toStdString() + " at " + std::to_string(bar.width());
        EXPECT_TRUE(bar.rect().contains(widget->geometry())) << name;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << name;
        for (const QWidget* other : widgets) {
            EXPECT_TRUE(other == widget || !other->geometry().intersects(widget->geometry()))
                << name << " and " << other->objectName().toStdString();
        }
    }
}

TEST_F(EditorBars, TheFindBarHasRoomForAllOfItAtEveryWidth) {
    load(QStringLiteral("lda ").repeated(2000));
    find(QStringLiteral("lda"));
    ASSERT_EQ(count(), QStringLiteral("1 of 2000"));
    QWidget& bar = widget<QWidget>("findBar");
    int heights = 0;
    for (const int width : {900, 600, 420, 330, 270, 420, 900}) {
        pane.resize(width, 400);
        QApplication::processEvents();
        expectRoomForAll(bar);
        heights = std::max(heights, bar.height());
    }
    EXPECT_GT(heights, 2 * bar.height()) << "the narrowest bar has three rows, the widest one";
}

TEST_F(EditorBars, TheGoToLineBarHasRoomForAllOfItAtEveryWidth) {
    load(QStringLiteral("\n").repeated(100000));
    trigger(QStringLiteral("Go to Line..."));
    for (const int width : {900, 270}) {
        pane.resize(width, 400);
        QApplication::processEvents();
        expectRoomForAll(widget<QWidget>("goToLineBar"));
    }
}

} // namespace

} // namespace kestrel
