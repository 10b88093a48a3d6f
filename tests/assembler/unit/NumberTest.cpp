// SPDX-License-Identifier: MIT
#include "assembler/expressions/Number.h"

#include <gtest/gtest.h>

#include <string>

namespace nesasm {

namespace {

using Problem = Number::Problem;

TEST(Number, ReadsAllWaysOfWriting) {
    struct Case {
        const char* text;
        std::uint32_t value;
        char next;
    };
    for (const auto& [text, value, next] :
         {Case{"42,1\n", 42, ','}, Case{"$1F)\n", 0x1F, ')'}, Case{"$fFfFfFfF\n", 0xFFFFFFFF, '\n'},
          Case{"%1010_0101 \n", 0xA5, ' '}, Case{"%1__0\n", 2, '\n'}, Case{"'A'+1\n", 'A', '+'},
          Case{"';';\n", ';', ';'}, Case{"4294967295\n", 0xFFFFFFFF, '\n'}}) {
        const Number number = readNumber(Cursor(text));
        EXPECT_TRUE(number.isFine()) << text;
        EXPECT_FALSE(number.isOdd) << text;
        EXPECT_EQ(number.value, value) << text;
        EXPECT_EQ(*number.end, next) << text;
    }
}

TEST(Number, TakesADollarWithoutADigitForZeroWithWhatFollows) {
    for (const std::string text : {"$%101", "$", "$x", "$xyz"}) {
        for (const std::string end : {" ", ",", ")", "]", "+", "<", "\n", ";"}) {
            const std::string line = text + end + "\n";
            const Number number = readNumber(Cursor(line.c_str()));
            EXPECT_TRUE(number.isFine() && number.isOdd) << line;
            EXPECT_EQ(number.value, 0U) << line;
            EXPECT_EQ(number.begin.upTo(number.end), text) << line;
        }
    }
}

TEST(Number, NamesItsProblemAndItsPlace) {
    struct Case {
        const char* text;
        Problem problem;
        std::size_t column;
        const char* words;
    };
    for (const auto& [text, problem, column, words] :
         {Case{"%2\n", Problem::noBinaryDigit, 0, "needs digits 0 or 1"},
          Case{"'A\n", Problem::noCharacter, 0, "expected one character between quotes"},
          Case{"'\n'\n", Problem::noCharacter, 0, "expected one character between quotes"},
          Case{"%102\n", Problem::strangeLetter, 3, "'2' cannot be part"},
          Case{"%10_\n", Problem::strangeLetter, 3, "'_' cannot be part"},
          Case{"$1G\n", Problem::strangeLetter, 2, "0 to 9 and A to F"},
          Case{"12h\n", Problem::strangeLetter, 2, "begins with $, as in $1F"},
          Case{"101b\n", Problem::strangeLetter, 3, "begins with %, as in %1010"},
          Case{"4294967296\n", Problem::tooLarge, 0, "does not fit into 32 bits"},
          Case{"$100000000000000000\n", Problem::tooLarge, 0, "does not fit into 32 bits"}}) {
        const Number number = readNumber(Cursor(text));
        EXPECT_EQ(number.problem, problem) << text;
        EXPECT_EQ(number.problemPlace() - number.begin, column) << text;
        EXPECT_NE(number.problemText().find(words), std::string::npos) << number.problemText();
    }
}

} // namespace

} // namespace nesasm
