// SPDX-License-Identifier: MIT
// Generated texts with everything that a file may hold go through the editor unchanged, and edits
// change exactly what a plain list of lines says.
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/LineModel.h"
#include "editors/code/LinePieces.h"
#include "editors/code/SourceCodec.h"

#include <gtest/gtest.h>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include <array>
#include <memory>

namespace kestrel {

namespace {

using test::LineModel;
using test::randomText;

/// Opens the entry points that Qt calls.
class Editor : public CodeEditorTextView {
public:
    using CodeEditorTextView::createMimeDataFromSelection;
    using CodeEditorTextView::insertFromMimeData;

    void select(int anchor, int position) {
        QTextCursor cursor = textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
};

class RoundTrip : public ::testing::Test {
protected:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    /// Where a position of the model is in the document: at a seam, before or behind it.
    int placeOf(int position) {
        int place = position;
        QTextBlock block = m_editor.document()->begin();
        for (; block.isValid() && block.position() - 1 <= place; block = block.next()) {
            if (continuesLine(block) && (block.position() - 1 < place || below(2) == 0)) {
                ++place;
            }
        }
        return place;
    }

    /// One random edit on both sides.
    void edit(LineModel& model) {
        int from = model.randomPosition(m_random);
        int to = below(3) == 0 ? model.randomPosition(m_random) : from;
        m_editor.select(placeOf(from), placeOf(to));
        if (from > to) {
            std::swap(from, to);
        }
        switch (below(6)) {
        case 0: {
            const int place = m_editor.textCursor().selectionStart();
            const QTextBlock line = firstPiece(m_editor.document()->findBlock(place));
            const int tabs = std::min(m_editor.findLastTabItem(place), place - line.position());
            QTest::keyClick(&m_editor, below(2) == 0 ? Qt::Key_Return : Qt::Key_Enter);
            model.replace(from, to, QStringLiteral("\n") + QString(tabs, u'\t'));
            break;
        }
        case 1: {
            QMimeData data;
            data.setText(randomText(m_random, 1 + below(6)));
            m_editor.insertFromMimeData(&data);
            model.replace(from, to, data.text());
            break;
        }
        case 2:
            QTest::keyClick(&m_editor, Qt::Key_Tab);
            model.replace(from, to, QStringLiteral("\t"));
            break;
        case 3:
            QTest::keyClick(&m_editor, Qt::Key_Backspace);
            model.replace(from == to ? model.startOfCharacterBefore(from) : from, to, QString());
            break;
        case 4:
            drag(model, from, to);
            break;
        default:
            QTest::keyClicks(&m_editor, QStringLiteral("a\"b"));
            model.replace(from, to, QStringLiteral("a\"b"));
            break;
        }
    }

    /// Moves the selection the way Qt does it when it is dropped elsewhere.
    void drag(LineModel& model, int from, int to) {
        if (from == to) {
            return;
        }
        const int target = model.randomPosition(m_random);
        if (target >= from && target <= to) {
            return;
        }
        const std::unique_ptr<QMimeData> data(m_editor.createMimeDataFromSelection());
        QTextCursor drop(m_editor.document());
        drop.setPosition(placeOf(target));
        drop.beginEditBlock();
        m_editor.textCursor().removeSelectedText();
        m_editor.setTextCursor(drop);
        m_editor.insertFromMimeData(data.get());
        drop.endEditBlock();
        model.replace(from, to, QString());
        const int moved = target > to ? target - (to - from) : target;
        model.replace(moved, moved, data->text());
    }

    std::mt19937 m_random{20240601};
    Editor m_editor;
};

TEST_F(RoundTrip, AFileThatIsNotEditedStaysTheSameByteForByte) {
    for (int i = 0; i < 5000; ++i) {
        const QString text = randomText(m_random, below(40));
        const std::string bytes =
            (below(4) == 0 ? "\xef\xbb\xbf" : "") + text.toUtf8().toStdString();
        const auto source = decodeSource(bytes);
        ASSERT_TRUE(source) << "case " << i;
        m_editor.source().load(source->text);
        ASSERT_EQ(encodeSource({m_editor.source().text(), source->byteOrderMark, {}}), bytes)
            << "case " << i;
    }
}

TEST_F(RoundTrip, EditsChangeWhatTheModelSaysAndUndoGivesTheFirstBytes) {
    for (int i = 0; i < 2000; ++i) {
        const QString first = randomText(m_random, below(30));
        m_editor.source().load(first);
        LineModel model(first);
        ASSERT_EQ(model.text(), first);
        const int edits = 1 + below(8);
        for (int j = 0; j < edits; ++j) {
            const QString before = model.text();
            edit(model);
            ASSERT_EQ(m_editor.source().text(), model.text())
                << "case " << i << ", edit " << j << " of "
                << before.toUtf8().toPercentEncoding().constData();
        }
        while (m_editor.document()->isUndoAvailable()) {
            m_editor.undo();
        }
        ASSERT_EQ(m_editor.source().text(), first) << "undo, case " << i;
        while (m_editor.document()->isRedoAvailable()) {
            m_editor.redo();
        }
        ASSERT_EQ(m_editor.source().text(), model.text()) << "redo, case " << i;
    }
}

TEST_F(RoundTrip, AnUpdateAfterEditsGivesTheNewTextAndOneUndoTheEditedOne) {
    for (int i = 0; i < 2000; ++i) {
        m_editor.source().load(randomText(m_random, below(30)));
        LineModel edited(m_editor.source().text());
        for (int j = below(4); j >= 0; --j) {
            edit(edited);
        }
        const QString before = edited.text();
        LineModel present(before);
        const int place = present.randomPosition(m_random);
        present.replace(place, place, randomText(m_random, below(5)));
        const bool changed = m_editor.source().update(present.text());
        ASSERT_EQ(changed, present.text() != before);
        ASSERT_EQ(m_editor.source().text(), present.text()) << "case " << i;
        if (changed) {
            m_editor.undo();
            ASSERT_EQ(m_editor.source().text(), before) << "undo, case " << i;
        }
    }
}

TEST_F(RoundTrip, AnUpdateFindsItsLinesWhereALoneReturnNowMeetsALineFeed) {
    m_editor.source().load(QStringLiteral("x\ry\nz"));
    m_editor.select(2, 3);
    QTest::keyClick(&m_editor, Qt::Key_Delete);
    ASSERT_EQ(m_editor.source().text(), QStringLiteral("x\r\nz"));
    EXPECT_TRUE(m_editor.source().update(QStringLiteral("x\ry\nz")));
    EXPECT_EQ(m_editor.source().text(), QStringLiteral("x\ry\nz"));
    m_editor.undo();
    EXPECT_EQ(m_editor.source().text(), QStringLiteral("x\r\nz"));
}

TEST_F(RoundTrip, AnUpdateGivesTheNewTextAndOneUndoTheFormer) {
    for (int i = 0; i < 2000; ++i) {
        const QString first = randomText(m_random, below(30));
        m_editor.source().load(first);
        LineModel model(first);
        if (below(2) == 0) {
            const int place = model.randomPosition(m_random);
            model.replace(place, place, randomText(m_random, below(5)));
        } else {
            model = LineModel(randomText(m_random, below(30)));
        }
        const bool changed = m_editor.source().update(model.text());
        ASSERT_EQ(changed, model.text() != first);
        ASSERT_EQ(m_editor.source().text(), model.text()) << "case " << i;
        ASSERT_EQ(m_editor.document()->isUndoAvailable(), changed);
        if (changed) {
            m_editor.undo();
            ASSERT_EQ(m_editor.source().text(), first) << "undo, case " << i;
            ASSERT_FALSE(m_editor.document()->isUndoAvailable());
        }
    }
}

/// Random text in which some lines are longer than a piece.
QString randomLongText(std::mt19937& random) {
    static const std::array<QString, 5> Units{QStringLiteral("x"), QStringLiteral("\U0001F600"),
                                              QStringLiteral("lda #$00 ; "), QStringLiteral("\t"),
                                              QStringLiteral("e\u0301")};
    QString text;
    for (auto parts = 1 + random() % 4; parts > 0; --parts) {
        text += randomText(random, static_cast<int>(random() % 4));
        text += Units.at(random() % Units.size()).repeated(static_cast<int>(random() % 12000));
    }
    return text;
}

/// That no block is longer than a piece, and none in more pieces than it needs.
void expectSettled(const QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        ASSERT_LE(block.length() - 1, LongestPiece);
        if (continuesLine(block.next())) {
            ASSERT_GT(block.length() + block.next().length() - 2, UsualPiece);
        }
    }
}

TEST_F(RoundTrip, EditsOfLongLinesChangeWhatTheModelSaysToo) {
    for (int i = 0; i < 60; ++i) {
        const QString first = randomLongText(m_random);
        m_editor.source().load(first);
        LineModel model(first);
        ASSERT_TRUE(m_editor.source().text() == first) << "case " << i;
        for (int edits = 1 + below(8); edits > 0; --edits) {
            edit(model);
            ASSERT_TRUE(m_editor.source().text() == model.text()) << "case " << i;
            ASSERT_EQ(m_editor.lineCount(), model.lineCount()) << "case " << i;
            ASSERT_NO_FATAL_FAILURE(expectSettled(*m_editor.document()));
        }
        while (m_editor.document()->isUndoAvailable()) {
            m_editor.undo();
            ASSERT_NO_FATAL_FAILURE(expectSettled(*m_editor.document()));
        }
        ASSERT_TRUE(m_editor.source().text() == first) << "undo, case " << i;
        while (m_editor.document()->isRedoAvailable()) {
            m_editor.redo();
        }
        ASSERT_TRUE(m_editor.source().text() == model.text()) << "redo, case " << i;
        const QString other = randomLongText(m_random);
        m_editor.source().update(other);
        ASSERT_TRUE(m_editor.source().text() == other) << "update, case " << i;
    }
}

TEST_F(RoundTrip, AnUpdateKeepsThePiecesOfLinesThatDidNotChange) {
    const QString longLine = QString(30000, u'x') + u'\n';
    m_editor.source().load(longLine + QStringLiteral("a\n") + longLine);
    m_editor.select(5, 5);
    m_editor.source().update(longLine + QStringLiteral("b\n") + longLine);
    EXPECT_EQ(m_editor.source().text(), longLine + QStringLiteral("b\n") + longLine);
    EXPECT_EQ(m_editor.textCursor().position(), 5) << "the first line was replaced";
}

} // namespace

} // namespace kestrel
