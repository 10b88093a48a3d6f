// SPDX-License-Identifier: MIT
#include "editors/code/TextEditorController.h"

#include "editors/code/CodeEditorTextView.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"
#include "widgets/ElidedLabel.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <sys/stat.h>

namespace kestrel {

namespace {

using namespace std::string_literals;
using test::contentOf;
using test::holdsWithFileSizeLimit;
using test::LogCapture;
using test::TemporaryFolder;

class TextEditorPane : public ::testing::Test {
protected:
    void SetUp() override {
        pane.setStatusBoard(&status);
        pane.resize(600, 400);
        pane.show();
    }

    CodeEditorTextView& editor() { return *pane.codeEditor; }
    QString shown() { return editor().toPlainText(); }

    std::string told(StatusField field) const { return status.text(field).toStdString(); }

    TemporaryFolder folder;
    LogCapture log;
    StatusBoard status;
    TextEditorController pane;
};

TEST_F(TextEditorPane, ShowsAFileAndSavesItUnchanged) {
    const std::string bytes = "\xef\xbb\xbfone\r\ntwo\nthree\rfour\xe2\x80\xa8\xc2\xa0\0"s;
    const auto path = folder.write("a.asm", bytes);
    pane.loadFile(path);
    EXPECT_EQ(pane.path(), path);
    EXPECT_TRUE(shown().startsWith(QStringLiteral("one\ntwo\nthree\nfour")));
    pane.saveFile();
    EXPECT_EQ(contentOf(path), bytes);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(TextEditorPane, OnlyTheEditedLineDiffersInTheFile) {
    const auto path = folder.write("a.asm", "one\r\ntwo\nthree\rfour");
    pane.loadFile(path);
    QTest::keyClick(&editor(), Qt::Key_Down);
    QTest::keyClick(&editor(), Qt::Key_End);
    QTest::keyClicks(&editor(), QStringLiteral("!"));
    QTest::keyClick(&editor(), Qt::Key_Up);
    QTest::keyClick(&editor(), Qt::Key_Return);
    pane.savePane();
    EXPECT_EQ(contentOf(path), "one\r\n\r\ntwo!\nthree\rfour");
}

TEST_F(TextEditorPane, TheSaveButtonSaves) {
    const auto path = folder.write("a.asm", "");
    pane.loadFile(path);
    QTest::keyClicks(&editor(), QStringLiteral("rts"));
    QTest::mouseClick(pane.saveButton, Qt::LeftButton);
    EXPECT_EQ(contentOf(path), "rts");
}

TEST_F(TextEditorPane, SavingWithoutAFileDoesNothing) {
    QTest::keyClicks(&editor(), QStringLiteral("rts"));
    pane.savePane();
    QTest::mouseClick(pane.saveButton, Qt::LeftButton);
    EXPECT_EQ(pane.path(), std::nullopt);
    EXPECT_TRUE(log.lines().empty());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(TextEditorPane, AFailedSaveIsLoggedAndKeepsTheText) {
    const auto path = folder.write("sub/a.asm", "rts\n");
    pane.loadFile(path);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    std::filesystem::remove_all(path.parent_path());
    folder.write("sub", "in the way");
    pane.saveFile();
    EXPECT_EQ(log.lines(), (std::vector<std::string>{"Could not save file",
                                                     path.string() + ": Not a directory"}));
    EXPECT_EQ(shown(), QStringLiteral("xrts\n"));
    EXPECT_EQ(pane.path(), path);
}

TEST_F(TextEditorPane, SavingIntoAFolderThatIsGoneMakesItAgain) {
    const auto path = folder.write("sub/a.asm", "rts\n");
    pane.loadFile(path);
    std::filesystem::remove_all(path.parent_path());
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "rts\n");
}

TEST_F(TextEditorPane, AnUnreadableFileIsLoggedAndNothingElseChanges) {
    const auto path = folder.write("a.asm", "rts\n");
    pane.loadFile(path);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::size_t lines = 0;
    for (const auto& other :
         {folder.path() / "none.asm", folder.path(), fifo, folder.write("a.nes", "NES\x1a\xff\x01"),
          folder.write("b.nes", "\xff\xfez")}) {
        pane.loadFile(other);
        ++lines;
        ASSERT_EQ(log.lines().size(), lines) << other;
        EXPECT_NE(log.lines().back().find(other.string()), std::string::npos);
        EXPECT_EQ(pane.path(), path);
        EXPECT_EQ(shown(), QStringLiteral("xrts\n"));
        EXPECT_TRUE(editor().document()->isUndoAvailable());
    }
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "xrts\n");
}

TEST_F(TextEditorPane, AnotherEncodingIsShownAndSavedAsUtf8) {
    const auto path =
        folder.write("a.asm", "; \x8f\x89\x8a\xfa\x89\xbb\x82\xb7\x82\xe9\r\nrts\r\n");
    pane.loadFile(path);
    const QString text = QStringLiteral("; \u521d\u671f\u5316\u3059\u308b\nrts\n");
    EXPECT_EQ(shown(), text);
    pane.saveFile();
    EXPECT_EQ(contentOf(path), QString(text).replace(u'\n', QStringLiteral("\r\n")).toStdString());
}

TEST_F(TextEditorPane, AnotherFileStartsAtItsTopWithoutUndo) {
    std::string longText;
    for (int i = 0; i < 500; ++i) {
        longText += "nop\n";
    }
    pane.loadFile(folder.write("a.asm", longText));
    editor().moveCursor(QTextCursor::End);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    ASSERT_GT(editor().verticalScrollBar()->value(), 0);
    pane.loadFile(folder.write("b.asm", longText + "rts\n"));
    EXPECT_EQ(editor().verticalScrollBar()->value(), 0);
    EXPECT_EQ(editor().textCursor().position(), 0);
    EXPECT_FALSE(editor().document()->isUndoAvailable());
    EXPECT_FALSE(editor().document()->isRedoAvailable());
}

TEST_F(TextEditorPane, SavingKeepsCaretSelectionScrollPositionAndUndo) {
    std::string longText;
    for (int i = 0; i < 500; ++i) {
        longText += "nop\n";
    }
    pane.loadFile(folder.write("a.asm", longText));
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    QTextCursor cursor = editor().textCursor();
    cursor.setPosition(1000);
    cursor.setPosition(1010, QTextCursor::KeepAnchor);
    editor().setTextCursor(cursor);
    editor().verticalScrollBar()->setValue(240);
    pane.saveFile();
    EXPECT_EQ(editor().textCursor().anchor(), 1000);
    EXPECT_EQ(editor().textCursor().position(), 1010);
    EXPECT_EQ(editor().verticalScrollBar()->value(), 240);
    editor().undo();
    pane.saveFile();
    EXPECT_EQ(contentOf(folder.path() / "a.asm"), longText);
    editor().redo();
    pane.saveFile();
    EXPECT_EQ(contentOf(folder.path() / "a.asm"), "x" + longText);
}

TEST_F(TextEditorPane, ShowingTheSameFileAgainDropsEditsAndUndoBringsThemBack) {
    const auto path = folder.write("a.asm", "one\r\ntwo\n");
    pane.loadFile(path);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    pane.loadFile(path);
    EXPECT_EQ(shown(), QStringLiteral("one\ntwo\n"));
    editor().undo();
    EXPECT_EQ(shown(), QStringLiteral("xone\ntwo\n"));
    editor().undo();
    EXPECT_EQ(shown(), QStringLiteral("one\ntwo\n"));
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "one\r\ntwo\n");
}

TEST_F(TextEditorPane, ShowingAnUnchangedFileAgainLeavesEverythingAlone) {
    const auto path = folder.write("a.asm", "one\ntwo\n");
    pane.loadFile(path);
    editor().moveCursor(QTextCursor::End);
    pane.loadFile(path);
    EXPECT_EQ(editor().textCursor().position(), 8);
    EXPECT_FALSE(editor().document()->isUndoAvailable());
}

TEST_F(TextEditorPane, ShowingTheSameFileAgainTakesWhatAnotherProgramWrote) {
    const auto path = folder.write("a.asm", "one\ntwo\nthree\n");
    pane.loadFile(path);
    folder.write("a.asm", "\xef\xbb\xbfone\r\nTWO\rthree\n");
    pane.loadFile(path);
    EXPECT_EQ(shown(), QStringLiteral("one\nTWO\nthree\n"));
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "\xef\xbb\xbfone\r\nTWO\rthree\n");
    editor().undo();
    EXPECT_EQ(shown(), QStringLiteral("one\ntwo\nthree\n"));
}

TEST_F(TextEditorPane, NamesTheFileThatIsShown) {
    pane.loadFile(folder.write("a&<b>.asm", ""));
    const auto* name = pane.findChild<QLabel*>(QStringLiteral("textFileName"));
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->text(), QStringLiteral("a&<b>.asm"));
    EXPECT_TRUE(name->toolTip().contains(QStringLiteral("a&amp;&lt;b&gt;.asm")));
}

TEST_F(TextEditorPane, OneBadByteInUtf8StaysThroughEditsUndoAndTheClipboard) {
    const std::string bytes = "; f\xc3\xbcr \xe9\xe9 Gr\xc3\xb6\xc3\x9f"
                              "e\r\n; \xff\xed\xa0\x80\n";
    const auto path = folder.write("a.asm", bytes);
    pane.loadFile(path);
    EXPECT_EQ(told(StatusField::encoding), "UTF-8 with 6 bytes kept as they are, mixed line ends");
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "x" + bytes);
    editor().selectAll();
    editor().cut();
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "");
    editor().undo();
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "x" + bytes);
    // The line is "; für ??": its last byte goes, then comes back by pasting the one before.
    editor().moveCursor(QTextCursor::Start);
    for (int i = 0; i < 9; ++i) {
        editor().moveCursor(QTextCursor::NextCharacter);
    }
    QTest::keyClick(&editor(), Qt::Key_Backspace);
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "x; f\xc3\xbcr \xe9 " + bytes.substr(10));
    QTest::keyClick(&editor(), Qt::Key_Left, Qt::ShiftModifier);
    editor().copy();
    QTest::keyClick(&editor(), Qt::Key_Right);
    editor().paste();
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "x" + bytes);
    EXPECT_EQ(told(StatusField::saving), "");
}

TEST_F(TextEditorPane, TheOriginalOfAConvertedFileIsKeptOnce) {
    const std::string bytes = "; \x89\xe6\x96\xca\x82\xf0\x8f\xc1\x82\xb7\r\n";
    const auto path = folder.write("a.asm", bytes);
    pane.loadFile(path);
    EXPECT_EQ(told(StatusField::encoding), "Shift-JIS, saved as UTF-8, CRLF");
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "x; 画面を消す\r\n");
    EXPECT_EQ(contentOf(folder.path() / "a.asm.bak"), bytes);
    EXPECT_EQ(told(StatusField::saving),
              "Saved as UTF-8; the file on the disk was kept as a.asm.bak");
    EXPECT_EQ(told(StatusField::encoding), "UTF-8, CRLF");
    QTest::keyClicks(&editor(), QStringLiteral("y"));
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "xy; 画面を消す\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "a.asm.bak1"));
    EXPECT_EQ(told(StatusField::saving), "");
}

TEST_F(TextEditorPane, Utf16IsKeptBeforeItIsConvertedAndNeverOverABackup) {
    const std::string bytes = "\xff\xfe;\0\xe4\0\n\0"s;
    const auto path = folder.write("a.asm", bytes);
    folder.write("a.asm.bak", "older");
    pane.loadFile(path);
    EXPECT_EQ(told(StatusField::encoding), "UTF-16, saved as UTF-8, LF");
    pane.saveFile();
    EXPECT_EQ(contentOf(path), ";ä\n");
    EXPECT_EQ(contentOf(folder.path() / "a.asm.bak"), "older");
    EXPECT_EQ(contentOf(folder.path() / "a.asm.bak1"), bytes);
}

TEST_F(TextEditorPane, WhatAnotherProgramWroteMeanwhileIsKept) {
    const auto path = folder.write("a.asm", "one\n");
    pane.loadFile(path);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    folder.write("a.asm", "two\n");
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "xone\n");
    EXPECT_EQ(contentOf(folder.path() / "a.asm.bak"), "two\n");
    EXPECT_EQ(told(StatusField::saving), "What another program had written was kept as a.asm.bak");
    QTest::keyClicks(&editor(), QStringLiteral("y"));
    std::filesystem::remove(path);
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "xyone\n") << "deleted meanwhile, it is written anew";
    EXPECT_EQ(told(StatusField::saving), "");
    pane.saveFile();
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "a.asm.bak1"));
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(TextEditorPane, WithoutABackupNothingIsReplaced) {
    const std::string bytes = "; \x89\xe6\x96\xca\x82\xf0\x8f\xc1\x82\xb7\r\n";
    const auto path = folder.write("a.asm", bytes);
    pane.loadFile(path);
    EXPECT_TRUE(holdsWithFileSizeLimit(4, [this] {
        pane.saveFile();
        const auto lines = log.lines();
        return lines.size() == 2 && lines[0] == "Could not save file" &&
               lines[1].ends_with("a.asm.bak could not be made: File too large") &&
               told(StatusField::saving) == "a.asm was not saved: the file on the disk could not "
                                            "be kept as a backup" &&
               told(StatusField::encoding) == "Shift-JIS, saved as UTF-8, CRLF";
    }));
    EXPECT_EQ(contentOf(path), bytes);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "a.asm.bak"));
    pane.saveFile();
    EXPECT_EQ(contentOf(folder.path() / "a.asm.bak"), bytes) << "the next save tries it again";
}

TEST_F(TextEditorPane, AFailedSaveIsToldUntilTheNextFile) {
    const auto path = folder.write("a.asm", "one\n");
    pane.loadFile(path);
    QTest::keyClicks(&editor(), QStringLiteral("x"));
    EXPECT_TRUE(holdsWithFileSizeLimit(2, [this] {
        pane.saveFile();
        const bool wasTold =
            told(StatusField::saving) == "a.asm could not be saved: File too large";
        pane.loadFile(folder.path() / "a.asm");
        return wasTold && told(StatusField::saving).empty();
    }));
    EXPECT_EQ(contentOf(path), "one\n");
}

TEST_F(TextEditorPane, ANameTooLongForTheHeaderIsShortenedInSight) {
    pane.resize(300, 200);
    pane.show();
    const std::string name(120, 'n');
    pane.loadFile(folder.write(name + ".asm", ""));
    QApplication::processEvents();
    const auto* label = pane.findChild<ElidedLabel*>(QStringLiteral("textFileName"));
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->visibleText().contains(QChar(0x2026)));
    EXPECT_TRUE(label->toolTip().contains(QString::fromStdString(name)));
    EXPECT_EQ(pane.width(), 300);
}

TEST_F(TextEditorPane, AnEmptyFileIsEditedAndSaved) {
    const auto path = folder.write("a.asm", "");
    pane.loadFile(path);
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "");
    QTest::keyClick(&editor(), Qt::Key_Return);
    pane.saveFile();
    EXPECT_EQ(contentOf(path), "\n");
}

TEST_F(TextEditorPane, TheLogSaysWhyAFileCannotBeRead) {
    const auto large = folder.write("large.asm", "");
    std::filesystem::resize_file(large, std::uintmax_t{129} * 1024 * 1024);
    pane.loadFile(folder.path() / "none.asm");
    pane.loadFile(folder.path());
    pane.loadFile(large);
    const std::string before = "The file " + folder.path().string();
    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{
                  before + "/none.asm could not be read: No such file or directory",
                  before + " could not be read: it is a folder",
                  before + "/large.asm could not be read: it is larger than 128 MiB"}));
}

} // namespace
} // namespace kestrel
