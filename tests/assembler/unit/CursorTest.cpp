// SPDX-License-Identifier: MIT
#include "assembler/text/Cursor.h"

#include <gtest/gtest.h>

#include <string>

namespace nesasm {

namespace {

TEST(Cursor, PassesOverBlanksOfAllKinds) {
    const Cursor start(" \t\v\f lda\n");
    EXPECT_EQ(*start.afterBlanks(), 'l');
    EXPECT_EQ(start.afterBlanks() - start, 5U);
    Cursor moved = start;
    moved.skipBlanks();
    EXPECT_EQ(moved, start.afterBlanks());
}

TEST(Cursor, StaysWhereNoBlankStands) {
    const Cursor start("lda\n");
    EXPECT_EQ(start.afterBlanks(), start);
    const Cursor end("\n \n");
    EXPECT_EQ(end.afterBlanks(), end);
}

TEST(Cursor, KnowsTheEndOfTheLineAndOfTheStatement) {
    for (const char* const end : {"\n", "\r", "\r\n"}) {
        EXPECT_TRUE(Cursor(end).isAtLineEnd());
        EXPECT_TRUE(Cursor(end).isAtStatementEnd());
    }
    EXPECT_FALSE(Cursor("; a comment\n").isAtLineEnd());
    EXPECT_TRUE(Cursor("; a comment\n").isAtStatementEnd());
    EXPECT_FALSE(Cursor("a\n").isAtStatementEnd());
}

TEST(Cursor, ReadsWordsWithTheirDots) {
    EXPECT_EQ(Cursor(".loop.1: nop\n").word(), ".loop.1");
    EXPECT_EQ(Cursor("a_b2,x\n").word(), "a_b2");
    EXPECT_EQ(Cursor("+1\n").word(), "");
    const Cursor start("word\n");
    EXPECT_TRUE(start.wordEnd().isAtLineEnd());
}

TEST(Cursor, TellsNamesFromOtherWords) {
    for (const char* const name : {"a\n", "_\n", ".a\n", ".1\n", "._\n"}) {
        EXPECT_TRUE(Cursor(name).isAtName()) << name;
    }
    for (const char* const other : {"1\n", ".\n", "..a\n", "$1\n", "\n"}) {
        EXPECT_FALSE(Cursor(other).isAtName()) << other;
    }
}

TEST(Cursor, MovesAndMeasures) {
    const Cursor start("ab,cd\n");
    Cursor p = start + 2;
    EXPECT_EQ(*p, ',');
    EXPECT_EQ(p[1], 'c');
    EXPECT_EQ(*++p, 'c');
    EXPECT_EQ(*p++, 'c');
    EXPECT_EQ(*p, 'd');
    EXPECT_EQ(p - start, 4U);
    EXPECT_EQ(start.upTo(p), "ab,c");
    EXPECT_EQ(p.upTo(start.lineEnd()), "d");
    p += -4;
    EXPECT_EQ(p, start);
}

} // namespace

} // namespace nesasm
