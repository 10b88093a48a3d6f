// SPDX-License-Identifier: MIT
#include "editors/code/SourcePlace.h"

#include "editors/code/CodeEditorTextView.h"

#include <gtest/gtest.h>
#include <QTextBlock>

#include <string>

namespace kestrel::test {
namespace {

class SourcePlaceTest : public testing::Test {
protected:
    void load(const QString& text) { view.source().load(text); }

    /// What the document has from a place on to the end of its block.
    QString from(int line, int column) const {
        const int position = positionOf(view, {line, column});
        const QTextBlock block = view.document()->findBlock(position);
        return block.text().mid(position - block.position());
    }

    /// Whether every place is found again at its position.
    void expectSame(int line, int column) const {
        const SourcePlace place{line, column};
        EXPECT_EQ(placeAt(view, positionOf(view, place)), place) << line << ":" << column;
    }

    QString wordAt(const char* text, int position) {
        load(QString::fromUtf8(text));
        const int end = endOfWord(view.document()->firstBlock(), position);
        return view.toPlainText().mid(position, end - position);
    }

    CodeEditorTextView view;
};

TEST_F(SourcePlaceTest, LinesAndColumnsCountFromOne) {
    load(QStringLiteral("lda #1\n\tsta $2000\r\n\nlast"));
    EXPECT_EQ(from(1, 1), u"lda #1");
    EXPECT_EQ(from(1, 5), u"#1");
    EXPECT_EQ(from(2, 2), u"sta $2000"); // a tab is one column
    EXPECT_EQ(from(4, 4), u"t");
    expectSame(1, 7);
    expectSame(2, 6);
    expectSame(3, 1);
}

TEST_F(SourcePlaceTest, APlaceOutsideIsAtTheEndOfTheLineOrInTheLastOne) {
    load(QStringLiteral("first\nlast"));
    EXPECT_EQ(positionOf(view, {1, 99}), 5);
    EXPECT_EQ(positionOf(view, {99, 1}), 6);
    EXPECT_EQ(positionOf(view, {0, 0}), 0);
    EXPECT_EQ(positionOf(view, {-1, -5}), 0);
}

TEST_F(SourcePlaceTest, CharactersAreCountedNotTheirUnits) {
    load(QString::fromUtf8("ä\xF0\x9F\x8E\xAE\xF0\x9F\x8E\xAEx"));
    EXPECT_EQ(from(1, 4), u"x");
    expectSame(1, 3);
    expectSame(1, 5);
    // A byte that is part of no character counts as one, and so does a separator of the document.
    load(QStringLiteral("a\xDC80\xDCFF\u2028x"));
    EXPECT_EQ(from(1, 5), u"x");
    expectSame(1, 5);
}

TEST_F(SourcePlaceTest, ALoneReturnEndsALine) {
    load(QStringLiteral("one\rtwo\nthree"));
    EXPECT_EQ(from(2, 1), u"two");
    EXPECT_EQ(from(3, 1), u"three");
    expectSame(3, 2);
}

TEST_F(SourcePlaceTest, InALongLineThePiecesDoNotCount) {
    const QString emoji = QString::fromUtf8("\xF0\x9F\x8E\xAE");
    load(QStringLiteral("short\n") + emoji.repeated(20'000) + QStringLiteral("x\nend"));
    ASSERT_GT(view.document()->blockCount(), 5);
    EXPECT_EQ(from(2, 20'001), u"x");
    EXPECT_EQ(from(3, 1), u"end");
    for (const int column : {1, 2, 4096, 4097, 9000, 20'000, 20'001, 20'002, 5, 12'345}) {
        expectSame(2, column);
    }
    // The counts hold after an edit, before and behind it.
    QTextCursor cursor(view.document());
    cursor.setPosition(positionOf(view, {2, 10'000}));
    view.source().insert(cursor, QStringLiteral("abc"));
    EXPECT_EQ(placeAt(view, cursor.position()), (SourcePlace{2, 10'003}));
    EXPECT_EQ(from(2, 20'004), u"x");
    expectSame(2, 20'004);
    expectSame(2, 5000);
}

TEST_F(SourcePlaceTest, WordsAreThoseOfTheAssembler) {
    EXPECT_EQ(wordAt("lda foo_1,x", 4), u"foo_1");
    EXPECT_EQ(wordAt("lda #$2F", 4), u"#$2F");
    EXPECT_EQ(wordAt("lda %101+1", 4), u"%101");
    EXPECT_EQ(wordAt(".db \"a b\", 1", 4), u"\"a b\"");
    EXPECT_EQ(wordAt(".db \"a b", 4), u"\"");
    EXPECT_EQ(wordAt("lda (zp),y", 4), u"(");
    EXPECT_EQ(wordAt("lda", 3), u"");
    EXPECT_EQ(wordAt("\xF0\x9F\x8E\xAE", 0), QString::fromUtf8("\xF0\x9F\x8E\xAE"));
}

} // namespace
} // namespace kestrel::test
