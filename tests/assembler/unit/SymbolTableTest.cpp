// SPDX-License-Identifier: MIT
#include "assembler/values/SymbolTable.h"

#include <gtest/gtest.h>

#include <string>

namespace nesasm {

namespace {

TEST(SymbolTable, FindsWhatWasInternedAndNothingElse) {
    SymbolTable table;
    const SymbolId id = table.intern("name", 0, nullptr);
    EXPECT_EQ(table.find("name", 0), id);
    EXPECT_EQ(table.intern("name", 0, nullptr), id);
    EXPECT_EQ(table.find("Name", 0), 0U);
    EXPECT_EQ(table.find("nam", 0), 0U);
}

TEST(SymbolTable, LocalNamesBelongToTheirScope) {
    SymbolTable table;
    const SymbolId first = table.intern(".loop", 7, nullptr);
    EXPECT_NE(table.intern(".loop", 8, nullptr), first);
    EXPECT_EQ(table.find(".loop", 7), first);
    EXPECT_EQ(table.find(".loop", 9), 0U);
    const SymbolId global = table.intern("global", 7, nullptr);
    EXPECT_EQ(table.find("global", 8), global);
}

TEST(SymbolTable, KeepsEveryNameWhileItGrows) {
    SymbolTable table;
    Arena arena;
    constexpr std::uint32_t Count = 50000;
    for (std::uint32_t i = 0; i < Count; ++i) {
        ASSERT_EQ(table.intern("label_" + std::to_string(i), 0, &arena), i + 1);
    }
    for (std::uint32_t i = 0; i < Count; ++i) {
        ASSERT_EQ(table.find("label_" + std::to_string(i), 0), i + 1);
    }
}

} // namespace

} // namespace nesasm
