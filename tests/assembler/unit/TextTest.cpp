// SPDX-License-Identifier: MIT
#include "assembler/text/Text.h"

#include <gtest/gtest.h>

namespace nesasm {

namespace {

TEST(Text, PrintableKeepsValidUtf8) {
    EXPECT_EQ(printable("aé€😀"), "aé€😀");
}

TEST(Text, PrintableReplacesWhatIsNoTextByteByByte) {
    EXPECT_EQ(printable("a\xFFz"), "a\uFFFDz");
    EXPECT_EQ(printable("\xE2\x82"), "\uFFFD\uFFFD");
    EXPECT_EQ(printable("\xC0\x80"), "\uFFFD\uFFFD");           // too long a form
    EXPECT_EQ(printable("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD"); // half of a surrogate pair
    EXPECT_EQ(printable("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Text, PrintableReplacesControlCharacters) {
    EXPECT_EQ(printable(std::string_view("\0\x1b\x7f\t\n", 5)), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(printable("\xC2\x9B"), "\uFFFD");
    EXPECT_EQ(printable("\t\x1b", true), "\t\uFFFD");
}

TEST(Text, CountsCharacters) {
    EXPECT_EQ(countCharacters("aé€😀"), 4U);
    EXPECT_EQ(countCharacters("\xFF\xFE"), 2U);
}

TEST(Text, JoinsAndSplitsPaths) {
    EXPECT_EQ(joinPath("a", "b"), "a/b");
    EXPECT_EQ(joinPath("a/", "b"), "a/b");
    EXPECT_EQ(joinPath("", "b"), "b");
    EXPECT_EQ(folderOf("a/b"), "a");
    EXPECT_EQ(folderOf("/b"), "/");
    EXPECT_EQ(folderOf("b"), "");
}

TEST(Text, SaysNumbers) {
    EXPECT_EQ(counted(1, "byte"), "1 byte");
    EXPECT_EQ(counted(0, "byte"), "0 bytes");
    EXPECT_EQ(hexText(0x2A, 2), "$2A");
    EXPECT_EQ(hexText(0x2A), "$002A");
    EXPECT_EQ(hexText(0x12345), "$12345");
}

} // namespace

} // namespace nesasm
