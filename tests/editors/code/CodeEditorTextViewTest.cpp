// SPDX-License-Identifier: MIT
#include "editors/code/CodeEditorTextView.h"

#include "editors/code/CharacterPosition.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>

namespace kestrel {

namespace {

class CodeEditor : public ::testing::Test {
protected:
    void SetUp() override {
        editor.resize(600, 400);
        editor.show();
    }

    void load(const QString& text, int caret = 0) {
        editor.source().load(text);
        select(caret, caret);
    }
    void select(int anchor, int position) {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        editor.setTextCursor(cursor);
    }
    QString text() { return editor.source().text(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&editor, key, modifiers);
    }

    CodeEditorTextView editor;
};

TEST_F(CodeEditor, ReturnAtTheEndOfALineCopiesItsTabs) {
    load(QStringLiteral("\t\tlda #0"), 8);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("\t\tlda #0\n\t\t"));
    EXPECT_EQ(editor.textCursor().position(), 11);
}

TEST_F(CodeEditor, ReturnOnALineThatBeginsWithBlanksIndentsNothing) {
    load(QStringLiteral("  lda #0"), 8);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("  lda #0\n"));
}

TEST_F(CodeEditor, ReturnInTheMiddleOfALineCopiesItsOwnTabsNotTheNextLines) {
    load(QStringLiteral("\tlda #0\n\t\t\tsta 1\n"), 4);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("\tlda\n\t #0\n\t\t\tsta 1\n"));
}

TEST_F(CodeEditor, ReturnBeforeOrInsideTheTabsCopiesThoseBeforeTheCaret) {
    load(QStringLiteral("\t\tnop"), 0);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("\n\t\tnop"));
    load(QStringLiteral("\t\tnop"), 1);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("\t\n\t\tnop"));
}

TEST_F(CodeEditor, ReturnWithAltBreaksNoLine) {
    load(QStringLiteral("\tnop"), 4);
    key(Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(text(), QStringLiteral("\tnop"));
}

TEST_F(CodeEditor, TabsAfterOtherCharactersAreNotCopied) {
    load(QStringLiteral("\tlda\t\t#0"), 8);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("\tlda\t\t#0\n\t"));
}

TEST_F(CodeEditor, ReturnReplacesASelectionAndTakesTheTabsOfItsFirstLine) {
    load(QStringLiteral("\ta\n\t\tb\nc"), 0);
    select(6, 2); // from behind b to behind a
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("\ta\n\t\nc"));
}

TEST_F(CodeEditor, EveryKindOfReturnDoesTheSame) {
    for (const auto& [k, modifiers] :
         {std::pair{Qt::Key_Return, Qt::KeyboardModifiers()},
          std::pair{Qt::Key_Return, Qt::KeyboardModifiers(Qt::ShiftModifier)},
          std::pair{Qt::Key_Enter, Qt::KeyboardModifiers(Qt::KeypadModifier)},
          std::pair{Qt::Key_Enter,
                    Qt::KeyboardModifiers(Qt::KeypadModifier | Qt::ShiftModifier)}}) {
        load(QStringLiteral("\tnop"), 4);
        key(k, modifiers);
        EXPECT_EQ(text(), QStringLiteral("\tnop\n\t")) << k << " " << modifiers.toInt();
    }
}

TEST_F(CodeEditor, ReturnAndItsTabsAreOneUndoStepApartFromWhatIsTypedAfter) {
    load(QStringLiteral("\t\tnop"), 5);
    key(Qt::Key_Return);
    QTest::keyClicks(&editor, QStringLiteral("rts"));
    editor.undo();
    EXPECT_EQ(text(), QStringLiteral("\t\tnop\n\t\t"));
    editor.undo();
    EXPECT_EQ(text(), QStringLiteral("\t\tnop"));
    editor.redo();
    EXPECT_EQ(text(), QStringLiteral("\t\tnop\n\t\t"));
}

TEST_F(CodeEditor, ANewLineEndsLikeTheLineItWasSplitFrom) {
    load(QStringLiteral("a\r\nb\nc\rd"), 1);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("a\r\n\r\nb\nc\rd"));
    select(4, 4);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("a\r\n\r\nb\n\nc\rd"));
    editor.moveCursor(QTextCursor::End);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("a\r\n\r\nb\n\nc\rd\r"))
        << "the last line: like the one before";
    load(QStringLiteral("a"), 1);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), QStringLiteral("a\n")) << "the only line: LF";
}

TEST_F(CodeEditor, TabInsertsATabCharacterOrReplacesTheSelection) {
    load(QStringLiteral("nop"), 0);
    key(Qt::Key_Tab);
    EXPECT_EQ(text(), QStringLiteral("\tnop"));
    select(1, 3);
    key(Qt::Key_Tab);
    EXPECT_EQ(text(), QStringLiteral("\t\tp"));
    EXPECT_EQ(editor.tabCounter, 0) << "the caret is never at the start after a tab";
    EXPECT_TRUE(editor.hasFocus() || !editor.isActiveWindow());
}

TEST_F(CodeEditor, TabsAreEightColumnsWideAtEverySize) {
    for (const int steps : {0, 7, -9}) {
        editor.zoomBy(steps);
        EXPECT_DOUBLE_EQ(editor.tabStopDistance(),
                         8 * QFontMetricsF(editor.font()).horizontalAdvance(u' '));
    }
}

TEST_F(CodeEditor, QuotesStayStraight) {
    QTest::keyClicks(&editor, QStringLiteral("\"it's\" -- ..."));
    EXPECT_EQ(text(), QStringLiteral("\"it's\" -- ..."));
}

TEST_F(CodeEditor, CountsTheTabsThatALineBeginsWith) {
    load(QStringLiteral("a\n\t\tb\t\n\t"));
    EXPECT_EQ(editor.findLastTabItem(0), 0);
    EXPECT_EQ(editor.findLastTabItem(1), 0);
    EXPECT_EQ(editor.findLastTabItem(2), 2);
    EXPECT_EQ(editor.findLastTabItem(6), 2);
    EXPECT_EQ(editor.findLastTabItem(7), 1);
    EXPECT_EQ(editor.findLastTabItem(8), 1);
    EXPECT_EQ(editor.findLastTabItem(9), 0);
    EXPECT_EQ(editor.findLastTabItem(-1), 0);
    load(QString());
    EXPECT_EQ(editor.findLastTabItem(0), 0);
}

TEST_F(CodeEditor, PastedTextTakesTheLineEndOfItsPlace) {
    load(QStringLiteral("a\r\nb\n"), 1);
    QApplication::clipboard()->setText(QStringLiteral("x\ny\rz\r\nw"));
    editor.paste();
    EXPECT_EQ(text(), QStringLiteral("ax\r\ny\r\nz\r\nw\r\nb\n"));
    editor.undo();
    EXPECT_EQ(text(), QStringLiteral("a\r\nb\n"));
}

TEST_F(CodeEditor, PastedMarkupIsPlainText) {
    auto* data = new QMimeData; // the clipboard takes it
    data->setHtml(QStringLiteral("<b>bold</b>"));
    data->setText(QStringLiteral("<b>bold</b>"));
    QApplication::clipboard()->setMimeData(data);
    editor.paste();
    EXPECT_EQ(text(), QStringLiteral("<b>bold</b>"));
}

TEST_F(CodeEditor, TheClipboardCarriesTheCharactersOfTheFile) {
    const QString line = QStringLiteral("a\u2028b\u2029c\ufdd0\ufdd1\u00a0\U0001F600");
    load(line + QStringLiteral("\r\n") + line);
    editor.selectAll();
    editor.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), line + QStringLiteral("\n") + line);
    editor.cut();
    EXPECT_EQ(text(), QString());
    editor.paste();
    EXPECT_EQ(text(), line + QStringLiteral("\r\n") + line);
}

TEST_F(CodeEditor, HalfASurrogatePairFromOutsideBecomesAReplacementCharacter) {
    const QString halves = QString(QChar(0xd83d)) + u'x' + QChar(0xdc28) + u'y' + QChar(0xdc30);
    QApplication::clipboard()->setText(halves);
    editor.paste();
    EXPECT_EQ(text(), QStringLiteral("\ufffdx\ufffdy\ufffd"));
}

TEST_F(CodeEditor, ComposedTextGoesThroughTheSameMapping) {
    load(QStringLiteral("a\r\n"), 1);
    QInputMethodEvent composing(QStringLiteral("\u3042"), {});
    QApplication::sendEvent(&editor, &composing);
    EXPECT_EQ(text(), QStringLiteral("a\r\n"));
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("\u2028\n\u3042"));
    QApplication::sendEvent(&editor, &commit);
    EXPECT_EQ(text(), QStringLiteral("a\u2028\r\n\u3042\r\n"));
    QInputMethodEvent ordinary;
    ordinary.setCommitString(QStringLiteral("\u3044"), -1, 1);
    QApplication::sendEvent(&editor, &ordinary);
    EXPECT_EQ(text(), QStringLiteral("a\u2028\r\n\u3044\r\n"));
    EXPECT_TRUE(editor.textCursor().block().layout()->preeditAreaText().isEmpty());
}

TEST_F(CodeEditor, TypedSeparatorsOfOtherSystemsAreCharacters) {
    load(QStringLiteral("a"), 1);
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("\u2029"));
    QApplication::sendEvent(&editor, &press);
    EXPECT_EQ(text(), QStringLiteral("a\u2029"));
    EXPECT_EQ(editor.blockCount(), 1);
}

TEST_F(CodeEditor, DroppedTextTakesTheLineEndOfItsPlace) {
    load(QStringLiteral("one\r\ntwo\r\nthree\n"));
    QMimeData data;
    data.setText(QStringLiteral("x\ny"));
    QTextCursor target(editor.document());
    target.setPosition(3);
    const QPointF place = editor.cursorRect(target).center();
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &drop);
    EXPECT_EQ(text(), QStringLiteral("onex\r\ny\r\ntwo\r\nthree\n"));
}

TEST_F(CodeEditor, UndoAndRedoThroughTheKeysKeepLineEnds) {
    load(QStringLiteral("a\r\nb\nc\r"), 0);
    editor.selectAll();
    key(Qt::Key_Delete);
    EXPECT_EQ(text(), QString());
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), QStringLiteral("a\r\nb\nc\r"));
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(text(), QString());
}

TEST_F(CodeEditor, ZoomsByThePixelWithinBounds) {
    const int actual = editor.font().pixelSize();
    editor.zoomBy(3);
    EXPECT_EQ(editor.font().pixelSize(), actual + 3);
    editor.zoomBy(1000);
    EXPECT_EQ(editor.font().pixelSize(), 72);
    editor.zoomBy(-1000);
    EXPECT_EQ(editor.font().pixelSize(), 6);
    editor.zoomToActualSize();
    EXPECT_EQ(editor.font().pixelSize(), actual);
}

TEST_F(CodeEditor, TheWheelWithControlZoomsAndCollectsSmallTurns) {
    const int actual = editor.font().pixelSize();
    const auto turn = [&](int angle) {
        QWheelEvent wheel(QPointF(10, 10), editor.mapToGlobal(QPointF(10, 10)), {}, {0, angle},
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(editor.viewport(), &wheel);
    };
    turn(120);
    EXPECT_EQ(editor.font().pixelSize(), actual + 1);
    turn(60);
    EXPECT_EQ(editor.font().pixelSize(), actual + 1);
    turn(60);
    EXPECT_EQ(editor.font().pixelSize(), actual + 2);
    turn(-360);
    EXPECT_EQ(editor.font().pixelSize(), actual - 1);
}

TEST_F(CodeEditor, TabWithAModifierAndBacktabDoNothing) {
    for (const auto& [k, modifiers] :
         {std::pair{Qt::Key_Backtab, Qt::KeyboardModifiers(Qt::ShiftModifier)},
          std::pair{Qt::Key_Backtab, Qt::ShiftModifier | Qt::ControlModifier},
          std::pair{Qt::Key_Backtab, Qt::ShiftModifier | Qt::AltModifier},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::ShiftModifier)},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::ControlModifier)},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::AltModifier)},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::MetaModifier)}}) {
        load(QStringLiteral("nop\nrts"), 0);
        select(1, 5);
        // A system may give the key a text whatever goes with it.
        QKeyEvent event(QEvent::KeyPress, k, modifiers, QStringLiteral("\t"));
        event.ignore();
        QApplication::sendEvent(&editor, &event);
        EXPECT_TRUE(event.isAccepted()) << k << " " << modifiers.toInt() << ": passed on";
        EXPECT_EQ(text(), QStringLiteral("nop\nrts")) << k << " " << modifiers.toInt();
        EXPECT_EQ(editor.textCursor().anchor(), 1);
        EXPECT_EQ(editor.textCursor().position(), 5);
    }
}

TEST_F(CodeEditor, InAReadOnlyEditorTabAndShiftTabMoveTheFocus) {
    QWidget window;
    auto* before = new QLineEdit(&window);
    auto* readOnly = new CodeEditorTextView(&window);
    auto* after = new QLineEdit(&window);
    readOnly->source().load(QStringLiteral("nop"));
    readOnly->setReadOnly(true);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    readOnly->setFocus();
    QTest::keyClick(readOnly, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), after);
    readOnly->setFocus();
    QTest::keyClick(readOnly, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), before);
    EXPECT_EQ(readOnly->toPlainText(), QStringLiteral("nop"));
}

TEST_F(CodeEditor, AReadOnlyEditorTakesNoText) {
    load(QStringLiteral("a"));
    editor.setReadOnly(true);
    key(Qt::Key_Return);
    key(Qt::Key_Tab);
    QApplication::clipboard()->setText(QStringLiteral("b"));
    editor.paste();
    EXPECT_EQ(text(), QStringLiteral("a"));
}

TEST(CharacterPositionTest, FindsRowColumnCharacterAndTabs) {
    const QStringList lines{QStringLiteral("ab"), QString(), QStringLiteral("\t\tc\td")};
    EXPECT_EQ(characterRowAndLineAt(lines, 0), (CharacterPosition{QStringLiteral("a"), 0, 0, 0}));
    EXPECT_EQ(characterRowAndLineAt(lines, 2), (CharacterPosition{QStringLiteral("\n"), 0, 2, 0}));
    EXPECT_EQ(characterRowAndLineAt(lines, 3), (CharacterPosition{QStringLiteral("\n"), 1, 0, 0}));
    EXPECT_EQ(characterRowAndLineAt(lines, 4), (CharacterPosition{QStringLiteral("\t"), 2, 0, 2}));
    EXPECT_EQ(characterRowAndLineAt(lines, 8), (CharacterPosition{QStringLiteral("d"), 2, 4, 2}));
    EXPECT_EQ(characterRowAndLineAt(lines, 9), (CharacterPosition{QStringLiteral("\n"), 2, 5, 2}));
}

TEST(CharacterPositionTest, OutsideTheTextThereIsNothing) {
    EXPECT_EQ(characterRowAndLineAt({}, 0), CharacterPosition{});
    EXPECT_EQ(characterRowAndLineAt({QStringLiteral("\ta")}, 3), CharacterPosition{});
    EXPECT_EQ(characterRowAndLineAt({QStringLiteral("\ta")}, -1), CharacterPosition{});
}

} // namespace

} // namespace kestrel
