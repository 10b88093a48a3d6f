// SPDX-License-Identifier: MIT
#include "build/DefinedNames.h"

#include "assembler/language/InstructionTable.h"
#include "assembler/statements/Directives.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrel::test {
namespace {

/// The names that a line defines, with a colon behind those of labels.
std::string defined(std::string_view line) {
    std::string text;
    for (const DefinedName& name : definedNames(line)) {
        text += (text.empty() ? "" : " ") + std::string(name.text) + (name.isLabel ? ":" : "");
    }
    return text;
}

TEST(DefinedNamesTest, LabelsHaveAColonOrBeginInTheFirstColumn) {
    EXPECT_EQ(defined("main: LDA #1"), "main:");
    EXPECT_EQ(defined("main LDA #1"), "main:");
    EXPECT_EQ(defined("main"), "main:");
    EXPECT_EQ(defined("\t main:"), "main:");
    EXPECT_EQ(defined(" a: b: LDA #1"), "a: b:");
    EXPECT_EQ(defined("a b: LDA #1"), "a: b:");
    EXPECT_EQ(defined(".loop DEX"), ".loop:");
    EXPECT_EQ(defined("  .loop: DEX"), ".loop:");
    EXPECT_EQ(defined("_x1.y:"), "_x1.y:");
    EXPECT_EQ(defined(".1 DEX"), ".1:");
    EXPECT_EQ(defined("lda: RTS"), "lda:"); // a word of the language, but with a colon
}

TEST(DefinedNamesTest, NamesGetValuesWhereverTheyBegin) {
    EXPECT_EQ(defined("SIZE = 4"), "SIZE");
    EXPECT_EQ(defined("  SIZE=4"), "SIZE");
    EXPECT_EQ(defined("SIZE .equ 4"), "SIZE");
    EXPECT_EQ(defined("SIZE: .EQU 4"), "SIZE");
    EXPECT_EQ(defined("  speed .Rs 2"), "speed");
    EXPECT_EQ(defined("speed rs 2"), "speed");
    EXPECT_EQ(defined("wait .macro"), "wait");
    EXPECT_EQ(defined("  .macro wait"), "wait");
    EXPECT_EQ(defined("macro wait"), "wait");
    EXPECT_EQ(defined("a: B = 2"), "a: B");
}

TEST(DefinedNamesTest, OtherLinesDefineNothing) {
    for (const char* const line :
         {"", " ", "; main:", "  main", "  JSR main", "RTS", "lda #1", ".db 1", "DB 1", "  .macro",
          "\"main:\"", "  1:", "  == 1", "include \"a.asm\"", "  .rs 2", " LDA a:"}) {
        EXPECT_EQ(defined(line), "") << line;
    }
    EXPECT_EQ(defined("a == 1"), "a:"); // the assembler refuses the rest
}

TEST(DefinedNamesTest, KnowsTheWordsOfTheAssembler) {
    for (const nesasm::Instruction& instruction : nesasm::InstructionTable) {
        EXPECT_EQ(defined(instruction.name), "") << instruction.name;
    }
    for (const nesasm::DirectiveWord& each : nesasm::Directives::vocabulary().directives()) {
        const std::string word(each.word);
        const bool isLate = each.role == nesasm::DirectiveRole::late;
        EXPECT_EQ(defined("." + word), isLate ? "." + word + ":" : "") << word;
        EXPECT_EQ(defined(word), each.worksWithoutDot ? "" : word + ":") << word;
    }
}

} // namespace
} // namespace kestrel::test
