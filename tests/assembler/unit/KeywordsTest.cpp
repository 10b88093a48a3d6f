// SPDX-License-Identifier: MIT
#include "assembler/language/Keywords.h"

#include "assembler/language/InstructionTable.h"
#include "assembler/text/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace nesasm {

namespace {

TEST(Keywords, KnowsEveryInstructionInAnyCase) {
    for (std::size_t i = 0; i < InstructionTable.size(); ++i) {
        const std::string name(InstructionTable[i].name);
        for (const std::string& word :
             {name, std::string{name[0], static_cast<char>(name[1] | 0x20), name[2]}}) {
            EXPECT_EQ(findKeyword(word).kind, Keyword::Kind::instruction) << word;
            EXPECT_EQ(findKeyword(word).id, i) << word;
        }
        EXPECT_EQ(findKeyword("." + name).kind, Keyword::Kind::none) << name;
    }
}

TEST(Keywords, SomeDirectivesWorkWithoutTheirDot) {
    for (const std::string word :
         {"db",     "byte",  "dw",     "word",  "ds", "bank",    "org",     "include", "incbin",
          "incchr", "macro", "endm",   "equ",   "if", "ifdef",   "ifndef",  "elseif",  "else",
          "endif",  "list",  "nolist", "rsset", "rs", "inesprg", "ineschr", "inesmap", "inesmir"}) {
        EXPECT_EQ(findKeyword(word).kind, Keyword::Kind::directive) << word;
        EXPECT_EQ(findKeyword("." + word).kind, Keyword::Kind::directive) << word;
    }
}

TEST(Keywords, TheOtherDirectivesNeedTheirDot) {
    for (const std::string word : {"code", "data", "zp", "bss", "fail", "error", "warning", "pad",
                                   "align", "rept", "endr", "assert"}) {
        EXPECT_EQ(findKeyword(word).kind, Keyword::Kind::none) << word;
        EXPECT_EQ(findKeyword("." + word).kind, Keyword::Kind::directive) << word;
    }
}

TEST(Keywords, OtherWordsMeanNothing) {
    for (const char* const word :
         {"", ".", "ld", "ldaa", "x", "inesprgs", "d_b", "..db", "a1b", "DB1"}) {
        EXPECT_EQ(findKeyword(word).kind, Keyword::Kind::none) << word;
    }
}

} // namespace

} // namespace nesasm
