// SPDX-License-Identifier: MIT
#include "assembler/text/QuotedText.h"

#include <gtest/gtest.h>

namespace nesasm {

namespace {

using Backslash = QuotedText::Backslash;

TEST(QuotedText, EndsAfterItsClosingQuote) {
    const Cursor start("\"tune\",1\n");
    const QuotedText quoted = readQuoted(start, Backslash::escapes);
    EXPECT_TRUE(quoted.isClosed);
    EXPECT_EQ(quoted.written, "tune");
    EXPECT_EQ(quoted.text(), "tune");
    EXPECT_EQ(quoted.end - start, 6U);
}

TEST(QuotedText, MayBeEmpty) {
    const QuotedText quoted = readQuoted(Cursor("\"\"\n"), Backslash::escapes);
    EXPECT_TRUE(quoted.isClosed);
    EXPECT_EQ(quoted.text(), "");
}

TEST(QuotedText, HoldsQuotesAfterABackslash) {
    const QuotedText quoted = readQuoted(Cursor("\"a\\\"b\\c\\\"\" ;\"\n"), Backslash::escapes);
    EXPECT_TRUE(quoted.isClosed);
    EXPECT_TRUE(quoted.hasEscapes);
    EXPECT_EQ(quoted.text(), "a\"b\\c\"");
    EXPECT_EQ(*quoted.end, ' ');
}

TEST(QuotedText, TakesBackslashesOfFileNamesAsTheyAre) {
    const QuotedText quoted = readQuoted(Cursor("\"code\\\" rest\"\n"), Backslash::isPlain);
    EXPECT_TRUE(quoted.isClosed);
    EXPECT_FALSE(quoted.hasEscapes);
    EXPECT_EQ(quoted.text(), "code\\");
}

TEST(QuotedText, IsNotClosedAtTheEndOfTheLine) {
    for (const char* const line : {"\"open\n\"", "\"open\r\n", "\"open\r\""}) {
        const QuotedText quoted = readQuoted(Cursor(line), Backslash::escapes);
        EXPECT_FALSE(quoted.isClosed);
        EXPECT_EQ(quoted.text(), "open");
        EXPECT_TRUE(quoted.end.isAtLineEnd());
    }
    const QuotedText escaped = readQuoted(Cursor("\"open\\\"\n"), Backslash::escapes);
    EXPECT_FALSE(escaped.isClosed);
    EXPECT_EQ(escaped.text(), "open\"");
}

} // namespace

} // namespace nesasm
