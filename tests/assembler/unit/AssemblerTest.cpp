// SPDX-License-Identifier: MIT
#include "assembler/run/Assembler.h"

#include "assembler/output/ImageFile.h"
#include "assembler/unit/AssembledText.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

namespace nesasm {

namespace {

using test::assembled;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(Assembler, TwoInOneProcessDoNotDisturbEachOther) {
    const kestrel::test::TemporaryFolder folder;
    Options one;
    one.input = folder.write(
        "one.asm", "M .macro\n .db 1\n .endm\nname = 5\n M\n .db name,later\nlater = 9\n");
    Options two;
    two.input = folder.write("two.asm", " .bank 1\nname = 6\n .db name, undefined\n");
    std::string said;
    Assembler first(one, [](std::string_view) {});
    Assembler second(two, [&](std::string_view text) { said += text; });
    EXPECT_EQ(second.run(), Assembler::Result::errors);
    EXPECT_EQ(first.run(), Assembler::Result::built);
    const auto file = imageFile(first.image());
    ASSERT_GT(file.size(), 19U);
    EXPECT_EQ(file[16], 1);
    EXPECT_EQ(file[17], 5);
    EXPECT_EQ(file[18], 9);
    EXPECT_THAT(said, HasSubstr("'undefined'"));
}

TEST(Assembler, SeveralRunInParallel) {
    std::vector<test::Assembled> results(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < results.size(); ++i) {
        threads.emplace_back([&results, i] {
            results[i] =
                assembled("M .macro\n .db \\1, late\n .endm\n .rept 1000\n M " + std::to_string(i) +
                          "\n .endr\nlate = " + std::to_string(i) + "\n");
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (std::size_t i = 0; i < results.size(); ++i) {
        const int number = static_cast<int>(i);
        EXPECT_EQ(results[i].bytes(2), (std::vector<int>{number, number}));
    }
}

TEST(Assembler, EveryKindOfLineEndIsUnderstood) {
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        const auto result =
            assembled("\xEF\xBB\xBF"
                      "a: .db 1" +
                      end + " .db a+2" + end + end + " nop ; é\xFF" + end + " .db 4");
        EXPECT_EQ(result.bytes(4), (std::vector<int>{1, 2, 0xEA, 4})) << result.messages;
    }
    const auto wrong = assembled(" nop\r\r wrong\r");
    EXPECT_THAT(wrong.messages, HasSubstr(":3:2: error:"));
}

TEST(Assembler, AnEmptyFileBuildsABareHeader) {
    const auto result = assembled("");
    EXPECT_TRUE(result.isBuilt);
    EXPECT_EQ(result.file.size(), 16U);
}

TEST(Assembler, NulBytesAreAnErrorOutsideOfCommentsAndStrings) {
    EXPECT_FALSE(assembled(std::string_view(" nop\0\n", 6)).isBuilt);
    const auto fine = assembled(std::string_view(" .db \"\0\" ; \0\n", 13));
    EXPECT_EQ(fine.bytes(1), (std::vector<int>{0})) << fine.messages;
}

TEST(Assembler, LinesOfAMegabyteAreFine) {
    const auto comment = assembled(" .db 1 ;" + std::string(1U << 20U, 'x') + "\n .db 2\n");
    EXPECT_EQ(comment.bytes(2), (std::vector<int>{1, 2}));
    const std::string name(1U << 20U, 'n');
    EXPECT_EQ(assembled(name + " = 7\n .db " + name + "\n").bytes(1), (std::vector<int>{7}));
    const auto text = assembled(" .db \"" + std::string(1U << 20U, 'x') + "\"\n");
    EXPECT_THAT(text.messages, HasSubstr("overflows by 1040384 bytes"));
    const auto call =
        assembled("M .macro\n .db \\1\n .endm\n M " + std::string(1U << 20U, ' ') + "5\n");
    EXPECT_EQ(call.bytes(1), (std::vector<int>{5}));
}

TEST(Assembler, RunawayMacrosAreStopped) {
    const auto deep = assembled("M .macro\n M\n M\n .endm\n M\n");
    EXPECT_THAT(deep.messages, HasSubstr("nested more than 256 deep"));
    Options options;
    options.mostWork = 1000000;
    const auto wide =
        assembled("M .macro\n .if \\1\n M \\1-1\n M \\1-1\n .endif\n .endm\n M 60\n", options);
    EXPECT_THAT(wide.messages, HasSubstr("more lines than can be assembled"));
    const auto growing = assembled("M .macro\n M \\1\\1\n .endm\n M aaaaaaaa\n");
    EXPECT_THAT(growing.messages, HasSubstr("too long"));
}

TEST(Assembler, RunawayRepetitionsAreStopped) {
    EXPECT_THAT(assembled(" .rept 65536\n .endr\n").messages, HasSubstr("0 to 65535"));
    EXPECT_TRUE(assembled(" .rept 65535\n .endr\n").isBuilt);
    Options options;
    options.mostWork = 1000000;
    const auto nested = assembled(" .rept 65535\n .rept 65535\nx = 1\n .endr\n .endr\n", options);
    EXPECT_THAT(nested.messages, HasSubstr("more lines than can be assembled"));
}

TEST(Assembler, AMissingEndIsReportedWhereItsBlockBegan) {
    EXPECT_THAT(assembled("\nM .macro\n nop\n").messages,
                HasSubstr(":2:1: error: this macro has no .endm"));
    EXPECT_THAT(assembled("\n .rept 2\n nop\n").messages,
                HasSubstr(":2:2: error: this .rept has no .endr"));
    EXPECT_THAT(assembled("\n .if 1\n nop\n").messages,
                HasSubstr(":2:2: error: this condition has no .endif"));
}

TEST(Assembler, AMissingFileKeepsUndefinedNamesQuiet) {
    const auto result = assembled(" .include \"none.asm\"\n lda name\n macrocall 5\n");
    EXPECT_THAT(result.messages, HasSubstr("1 error\n"));
    EXPECT_THAT(result.messages, HasSubstr("none.asm"));
}

TEST(Assembler, DefinitionsOfTheCommandLineAreSymbols) {
    Options options;
    options.definitions = {{"LEVEL", 3}};
    EXPECT_EQ(assembled(" .ifdef LEVEL\n .db LEVEL\n .endif\n", options).bytes(1),
              (std::vector<int>{3}));
    const auto second = assembled("LEVEL = 4\n", options);
    EXPECT_THAT(second.messages, HasSubstr("from the command line"));
}

TEST(Assembler, OneLineIsNotReportedTwiceByItsUndefinedNames) {
    const auto result = assembled(" .db nothing, 1 2\n lda nobody\n");
    EXPECT_THAT(result.messages, Not(HasSubstr("nothing' is not defined")));
    EXPECT_THAT(result.messages, HasSubstr("nobody' is not defined"));
}

TEST(Assembler, SizesOfLabelsComeFromTheirOwnLines) {
    const auto result =
        assembled("M .macro\n .db 1,2,3\n nop\n .endm\n"
                  "a1: M\nb1: .dw 1,2\nc1:\n .db 9\nd1 .rs 5\ne1: .rept 3\n nop\n .endr\n"
                  " .db SIZEOF(a1),SIZEOF(b1),SIZEOF(c1),SIZEOF(d1),SIZEOF(e1),SIZEOF(f1)\n"
                  "f1: .ds 7\n");
    EXPECT_EQ(result.bytes(18),
              (std::vector<int>{1, 2, 3, 0xEA, 1, 0, 2, 0, 9, 0xEA, 0xEA, 0xEA, 4, 4, 0, 5, 3, 7}))
        << result.messages;
}

TEST(Assembler, MacrosMayDefineMacrosAndLieInConditions) {
    const auto result =
        assembled("OUTER .macro\nINNER\\1 .macro\n .db \\1\n .endm\n .endm\n"
                  " .if 0\nSKIPPED .macro\n .endif\n .else\n .endm\n .else\n OUTER 4\n .endif\n"
                  " INNER4\n");
    EXPECT_EQ(result.bytes(1), (std::vector<int>{4})) << result.messages;
}

} // namespace

} // namespace nesasm
