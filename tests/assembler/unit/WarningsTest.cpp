// SPDX-License-Identifier: MIT
#include "assembler/messages/WarningSwitches.h"
#include "assembler/text/NearNames.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace nesasm {

namespace {

namespace fs = std::filesystem;

const fs::path GoldenCases = KESTREL_GOLDEN_CASES;

std::string wasApplied(WarningSwitches& switches, const char* text) {
    return switches.apply(text).value_or("");
}

TEST(WarningTable, EveryRowHasAGoldenCase) {
    for (const WarningRow& row : WarningTable) {
        const std::string stem = (GoldenCases / "warnings" / row.name).string();
        EXPECT_TRUE(fs::is_regular_file(stem + "-warns.asm")) << row.name;
        EXPECT_NE(kestrel::test::contentOf(stem + "-warns.out").find(": warning: "),
                  std::string::npos)
            << row.name;
        EXPECT_NE(kestrel::test::contentOf(stem + "-warns.out")
                      .find(" [" + std::string(row.name) + "]\n"),
                  std::string::npos)
            << row.name;
        EXPECT_EQ(fs::is_regular_file(stem + "-is-off-by-default.hex"), !row.onByDefault)
            << row.name;
    }
}

TEST(WarningTable, EveryRowHasAWarningAndAText) {
    EXPECT_EQ(static_cast<std::size_t>(Warning::missingHash) + 1, WarningTable.size());
    for (const WarningRow& row : WarningTable) {
        EXPECT_FALSE(row.name.empty());
        EXPECT_FALSE(row.text.empty()) << row.name;
    }
}

TEST(WarningSwitches, BeginAsTheTableSays) {
    const WarningSwitches switches;
    for (std::size_t i = 0; i < WarningCount; ++i) {
        EXPECT_EQ(switches.isOn(static_cast<Warning>(i)), WarningTable[i].onByDefault);
        EXPECT_FALSE(switches.isError(static_cast<Warning>(i)));
    }
}

TEST(WarningSwitches, TurnOnAndOff) {
    WarningSwitches switches;
    EXPECT_EQ(wasApplied(switches, "overwrite"), "");
    EXPECT_TRUE(switches.isOn(Warning::overwrite));
    EXPECT_EQ(wasApplied(switches, "no-overwrite"), "");
    EXPECT_FALSE(switches.isOn(Warning::overwrite));
    EXPECT_EQ(wasApplied(switches, "error=overwrite"), "");
    EXPECT_TRUE(switches.isOn(Warning::overwrite));
    EXPECT_TRUE(switches.isError(Warning::overwrite));
    EXPECT_FALSE(switches.isError(Warning::oddNumber));
    EXPECT_EQ(wasApplied(switches, "overwrite"), "");
    EXPECT_FALSE(switches.isError(Warning::overwrite)) << "the later switch wins";
    EXPECT_EQ(wasApplied(switches, "error"), "");
    EXPECT_TRUE(switches.isError(Warning::oddNumber));
}

TEST(WarningSwitches, UnknownNamesAreRefused) {
    WarningSwitches switches;
    for (const char* text :
         {"", "no-", "error=", "nothing", "error=no-overwrite", "no-error", "OVERWRITE"}) {
        EXPECT_NE(wasApplied(switches, text), "") << text;
    }
    EXPECT_NE(wasApplied(switches, "overwrte").find("did you mean 'overwrite'?"),
              std::string::npos);
}

TEST(NearNames, CountsInsertedDroppedChangedAndSwappedLetters) {
    EXPECT_EQ(editDistance("lda", "LDA", 3), 0U);
    EXPECT_EQ(editDistance("lad", "lda", 3), 1U);
    EXPECT_EQ(editDistance("ldaa", "lda", 3), 1U);
    EXPECT_EQ(editDistance("la", "lda", 3), 1U);
    EXPECT_EQ(editDistance("ldx", "lda", 3), 1U);
    EXPECT_EQ(editDistance("kitten", "sitting", 3), 3U);
    EXPECT_GT(editDistance("kitten", "sitting", 2), 2U);
    EXPECT_EQ(editDistance("", "", 1), 0U);
    EXPECT_GT(editDistance("", "abc", 2), 2U);
    EXPECT_GT(editDistance(std::string(50, 'a'), std::string(50, 'a'), 3), 3U);
}

TEST(NearNames, NamesOnlyTheNearest) {
    NearNames near("player_x");
    near.consider("player_xy");
    near.consider("PLAYER_X");
    near.consider("enemy_x");
    EXPECT_EQ(near.question(), "; did you mean 'PLAYER_X'?");
    NearNames several("lds");
    for (const char* name : {"lda", "ldx", "ldy", "lsr", "cld"}) {
        several.consider(name);
    }
    EXPECT_EQ(several.question(), "; did you mean 'lda' or 'ldx' or 'ldy'?");
    EXPECT_EQ(NearNames("x").question(), "");
    NearNames nothing("x");
    nothing.consider("y");
    EXPECT_EQ(nothing.question(), "") << "nothing of the name would be left";
}

} // namespace

} // namespace nesasm
