// SPDX-License-Identifier: MIT
// What new lines end in when the lines around them are gone.
#include "editors/code/CodeEditorTextView.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

#include <string>
#include <string_view>

namespace kestrel {

namespace {

class LineEnds : public ::testing::Test {
protected:
    void SetUp() override {
        editor.resize(600, 400);
        editor.show();
    }
    QString text() { return editor.source().text(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&editor, key, modifiers);
    }
    void type(const char* characters) {
        for (const char character : std::string_view(characters)) {
            if (character == '\n') {
                key(Qt::Key_Return);
            } else {
                QTest::keyClick(&editor, character);
            }
        }
    }

    CodeEditorTextView editor;
};

/// What a file holds, and what its new lines end in once everything was removed.
struct FileOfLines {
    const char* name;
    const char* text;
    const char* usual;
};

class EmptiedFile : public LineEnds, public ::testing::WithParamInterface<FileOfLines> {
protected:
    /// Text with the file's usual line end for each LF.
    static QString lines(const char* text) {
        return QString::fromLatin1(text).replace(u'\n', QString::fromLatin1(GetParam().usual));
    }
    void SetUp() override {
        LineEnds::SetUp();
        editor.source().load(QString::fromLatin1(GetParam().text));
        key(Qt::Key_A, Qt::ControlModifier);
    }
};

TEST_P(EmptiedFile, TakesItsUsualLineEndForWhatIsTyped) {
    key(Qt::Key_Delete);
    type("a\nb\n");
    EXPECT_EQ(text(), lines("a\nb\n"));
}

TEST_P(EmptiedFile, TakesItForWhatIsPastedAfterACut) {
    key(Qt::Key_X, Qt::ControlModifier);
    ASSERT_EQ(text(), QString());
    QApplication::clipboard()->setText(QStringLiteral("a\nb\r\nc\rd"));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), lines("a\nb\nc\nd"));
}

TEST_P(EmptiedFile, TakesItForWhatReplacesEverything) {
    QApplication::clipboard()->setText(QStringLiteral("a\nb\n"));
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), lines("a\nb\n"));
}

TEST_P(EmptiedFile, TakesItForWhatIsDropped) {
    key(Qt::Key_Backspace);
    QMimeData data;
    data.setText(QStringLiteral("a\nb\n"));
    QDragEnterEvent enter(QPoint(20, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &enter);
    QDropEvent drop(QPointF(20, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &drop);
    EXPECT_EQ(text(), lines("a\nb\n"));
}

TEST_P(EmptiedFile, TakesItAfterUndoAndRedo) {
    key(Qt::Key_Delete);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), QString::fromLatin1(GetParam().text));
    key(Qt::Key_Y, Qt::ControlModifier);
    ASSERT_EQ(text(), QString());
    type("a\nb");
    key(Qt::Key_Z, Qt::ControlModifier);
    key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(text(), lines("a\nb"));
}

TEST_P(EmptiedFile, TakesItWhenOneLineIsLeft) {
    key(Qt::Key_X);
    key(Qt::Key_Return);
    EXPECT_EQ(text(), lines("x\n"));
}

INSTANTIATE_TEST_SUITE_P(Files, EmptiedFile,
                         ::testing::Values(FileOfLines{"Crlf", "nop\r\nrts\r\n", "\r\n"},
                                           FileOfLines{"Lf", "nop\nrts\n", "\n"},
                                           FileOfLines{"Cr", "nop\rrts\r", "\r"},
                                           FileOfLines{"MostlyCrlf", "a\r\nb\nc\r\n", "\r\n"},
                                           FileOfLines{"MostlyLf", "a\r\nb\nc\n", "\n"},
                                           FileOfLines{"None", "nop", "\n"}),
                         [](const auto& example) { return std::string(example.param.name); });

TEST_F(LineEnds, AFileReadAgainWithOtherLineEndsTakesThoseForItsNewLines) {
    editor.source().load(QStringLiteral("a\nb\n"));
    ASSERT_TRUE(editor.source().update(QStringLiteral("a\r\nb\r\n")));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Delete);
    type("x\n");
    EXPECT_EQ(text(), QStringLiteral("x\r\n"));
}

} // namespace

} // namespace kestrel
