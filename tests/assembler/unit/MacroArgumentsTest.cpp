// SPDX-License-Identifier: MIT
#include "assembler/reading/MacroArguments.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nesasm {

namespace {

std::vector<std::string> split(const std::string& text) {
    const std::string line = text + "\n";
    Cursor p(line.c_str());
    MacroArguments arguments;
    if (!arguments.read(p)) {
        return {"too many"};
    }
    std::vector<std::string> result;
    for (std::size_t i = 1; i <= arguments.count(); ++i) {
        result.emplace_back(arguments[i]);
    }
    return result;
}

using Texts = std::vector<std::string>;

TEST(MacroArguments, CommasSplitOutsideOfBracketsAndQuotes) {
    EXPECT_EQ(split(" 1, 2 ,3"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(split("LOW(a,b),[p],y"), (Texts{"LOW(a,b)", "[p],y"}));
    EXPECT_EQ(split("\"a,b\\\",c\",','"), (Texts{"\"a,b\\\",c\"", "','"}));
}

TEST(MacroArguments, AnIndexBelongsToTheArgumentBeforeIt) {
    EXPECT_EQ(split("frames, x, frames + 1, x, temp"),
              (Texts{"frames, x", "frames + 1, x", "temp"}));
    EXPECT_EQ(split("a,Y"), (Texts{"a,Y"}));
    EXPECT_EQ(split("a,x1,y+1"), (Texts{"a", "x1", "y+1"}));
    EXPECT_EQ(split(",x"), (Texts{"", "x"}));
}

TEST(MacroArguments, CommentsAreDroppedAndEmptyOnesCount) {
    EXPECT_EQ(split(" a ; b, c"), (Texts{"a"}));
    EXPECT_EQ(split(" ; nothing"), (Texts{}));
    EXPECT_EQ(split("a,,b"), (Texts{"a", "", "b"}));
    EXPECT_EQ(split("';',2"), (Texts{"';'", "2"}));
}

TEST(MacroArguments, NineAreTakenAndTheTenthIsNot) {
    EXPECT_EQ(split("1,2,3,4,5,6,7,8,9").size(), 9U);
    EXPECT_EQ(split("1,2,3,4,5,6,7,8,9,10"), (Texts{"too many"}));
}

TEST(MacroArguments, EveryKindHasItsNumber) {
    EXPECT_EQ(kindOfArgument(""), 0U);
    EXPECT_EQ(kindOfArgument("x"), 1U);
    EXPECT_EQ(kindOfArgument("A"), 1U);
    EXPECT_EQ(kindOfArgument("#5"), 2U);
    EXPECT_EQ(kindOfArgument("$0300"), 3U);
    EXPECT_EQ(kindOfArgument("table,x"), 3U);
    EXPECT_EQ(kindOfArgument("(1+2)*3"), 3U);
    EXPECT_EQ(kindOfArgument("[ptr],y"), 4U);
    EXPECT_EQ(kindOfArgument("(ptr), y"), 4U);
    EXPECT_EQ(kindOfArgument("\"text\""), 5U);
    EXPECT_EQ(kindOfArgument("label"), 6U);
    EXPECT_EQ(kindOfArgument(".local"), 6U);
}

TEST(MacroArguments, ArePutInEverywhere) {
    const std::string line = "lab, \"x\"\n";
    Cursor p(line.c_str());
    MacroArguments arguments;
    ASSERT_TRUE(arguments.read(p));
    std::string out;
    EXPECT_TRUE(
        expandLine("\\1\\@: .db \"\\1\",\\2,\\3 ; \\# \\?1 \\?2 \\?9 \\x\\", arguments, 7, out));
    EXPECT_EQ(out, "lab00007: .db \"lab\",\"x\", ; 2 6 5 0 \\x\\");
}

TEST(MacroArguments, ALineThatGrowsBeyondMeasureIsRefused) {
    const std::string line = std::string(300000, 'a') + "\n";
    Cursor p(line.c_str());
    MacroArguments arguments;
    ASSERT_TRUE(arguments.read(p));
    std::string out;
    EXPECT_FALSE(expandLine("\\1\\1\\1\\1\\1\\1\\1\\1", arguments, 1, out));
    EXPECT_LT(out.size(), std::size_t{2} << 20U);
}

} // namespace

} // namespace nesasm
