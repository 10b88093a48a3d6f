// SPDX-License-Identifier: MIT
#include "assembler/statements/Directives.h"

#include "assembler/language/InstructionTable.h"
#include "assembler/unit/AssembledText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace nesasm {

namespace {

const std::set<std::string> WordsWithOrWithoutDot{
    "db",  "byte",   "dw",    "word",  "ds",     "bank",    "org",     "include", "incbin",
    "equ", "incchr", "macro", "endm",  "if",     "ifdef",   "ifndef",  "elseif",  "else",
    "rs",  "endif",  "list",  "rsset", "nolist", "inesprg", "ineschr", "inesmap", "inesmir"};
const std::set<std::string> WordsWithDot{"code",  "data",    "zp",    "bss",   "fail",
                                         "error", "warning", "pad",   "align", "rept",
                                         "endr",  "assert",  "labels"};

Keyword found(std::string_view word) {
    return Directives::vocabulary().find(word);
}

TEST(Directives, KnowAllTheirWordsAndNoOthers) {
    std::set<std::string> words;
    for (const DirectiveWord& each : Directives::vocabulary().directives()) {
        EXPECT_TRUE(words.emplace(each.word).second) << each.word;
    }
    std::set<std::string> expected = WordsWithDot;
    expected.insert(WordsWithOrWithoutDot.begin(), WordsWithOrWithoutDot.end());
    EXPECT_EQ(words, expected);
}

TEST(Directives, WorkWithoutTheirDotWhereTheLanguageHasThemSo) {
    for (const std::string& word : WordsWithOrWithoutDot) {
        EXPECT_TRUE(found(word).isDirective()) << word;
        EXPECT_TRUE(found("." + word).isDirective()) << word;
    }
    for (const std::string& word : WordsWithDot) {
        EXPECT_EQ(found(word).kind, Keyword::Kind::none) << word;
        EXPECT_TRUE(found("." + word).isDirective()) << word;
    }
}

/// What a statement of each directive leads to that shows which one was carried out.
TEST(Directives, EachWordDoesWhatItSays) {
    struct Case {
        std::string_view source;
        std::string_view message;
    };
    for (const auto& [source, message] : std::initializer_list<Case>{
             {"\t.align 0", "the step of .align must be"},
             {"\t.assert 0,\"so\"", "error: so"},
             {"\t.bank 9999", "the number of .bank must be"},
             {"\t.bss\n nop", ".bss only reserves RAM"},
             {"\t.byte 256", "does not fit into a byte"},
             {"\t.zp\n .code\n .data\n nop\n .fail \"through\"", "error: through"},
             {"\t.db 256", "does not fit into a byte"},
             {"\t.ds -1", "the count of .ds must be"},
             {"\t.dw 65536", "does not fit into a word"},
             {"\t.word 65536", "does not fit into a word"},
             {"\t.else", ".else without an .if"},
             {"\t.elseif 1", ".elseif without an .if"},
             {"\t.endif", ".endif without an .if"},
             {"\t.endm", ".endm without a .macro"},
             {"\t.endr", ".endr without a .rept"},
             {"\t.equ 5", ".equ needs a name"},
             {"\t.error \"so\"", "error: so"},
             {"\t.fail", "the source stops the build here"},
             {"\t.warning \"so\"", "warning: so"},
             {"\t.if 1", "this condition has no .endif"},
             {"\t.ifdef a", "this condition has no .endif"},
             {"\t.ifndef a", "this condition has no .endif"},
             {"\t.incbin \"none\"", "'none' cannot be read"},
             {"\t.incchr \"none\"", "'none' cannot be read"},
             {"\t.include \"none\"", "'none' cannot be read"},
             {"\t.inesprg 256", "the value of .inesprg must be"},
             {"\t.ineschr 256", "the value of .ineschr must be"},
             {"\t.inesmap 256", "the value of .inesmap must be"},
             {"\t.inesmir 256", "the value of .inesmir must be"},
             {"\t.labels \"x\"", ".labels takes"},
             {"\t.list 1", "expected the end of the statement"},
             {"\t.nolist 1", "expected the end of the statement"},
             {"\t.macro a", "this macro has no .endm"},
             {"\t.org -1", "the address of .org must be"},
             {"\t.pad -1", "the address of .pad must be"},
             {"\t.rept 2", "this .rept has no .endr"},
             {"\t.rs -1", "the count of .rs must be"},
             {"\t.rsset -1", "the address of .rsset must be"},
             {"\t.zp\n nop", ".zp only reserves RAM"},
             {"\t.code\n .zp\n .org $101", "outside .zp"},
             {"\t.data 1", "expected the end of the statement"}}) {
        const test::Assembled result = test::assembled(std::string(source) + "\n");
        EXPECT_NE(result.messages.find(message), std::string::npos) << source << result.messages;
    }
}

TEST(Vocabulary, KnowsEveryInstructionInAnyCase) {
    for (std::size_t i = 0; i < InstructionTable.size(); ++i) {
        const std::string name(InstructionTable[i].name);
        for (const std::string& word :
             {name, std::string{name[0], static_cast<char>(name[1] | 0x20), name[2]}}) {
            EXPECT_TRUE(found(word).isInstruction()) << word;
            EXPECT_EQ(found(word).index, i) << word;
            EXPECT_EQ(findInstruction(word), &InstructionTable[i]) << word;
        }
        EXPECT_EQ(found("." + name).kind, Keyword::Kind::none) << name;
    }
}

TEST(Vocabulary, GivesOtherWordsNoMeaning) {
    for (const char* const word :
         {"", ".", "ld", "ldaa", "x", "inesprgs", "d_b", "..db", "a1b", "DB1"}) {
        EXPECT_EQ(found(word).kind, Keyword::Kind::none) << word;
        EXPECT_EQ(findInstruction(word), nullptr) << word;
    }
}

} // namespace

} // namespace nesasm
