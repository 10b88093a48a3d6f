// SPDX-License-Identifier: MIT
#include "facts/ProgramFacts.h"

#include <gtest/gtest.h>

namespace kestrel {

namespace {

MemoryArea bankWith(std::vector<ByteRange> used) {
    MemoryArea area;
    area.whole = {0, 100};
    area.used = std::move(used);
    return area;
}

FileFacts fileAt(std::string path) {
    FileFacts file;
    file.path = std::move(path);
    return file;
}

SymbolFacts symbolOf(std::string name, std::string scope = {}) {
    SymbolFacts symbol;
    symbol.name = std::move(name);
    symbol.scope = std::move(scope);
    return symbol;
}

} // namespace

TEST(MemoryArea, CountsUsedAndFreeBytes) {
    const MemoryArea area = bankWith({{0, 10}, {40, 45}});
    EXPECT_EQ(area.usedBytes(), 15U);
    EXPECT_EQ(area.freeBytes(), 85U);
}

TEST(MemoryArea, FindsTheLargestGap) {
    EXPECT_EQ(bankWith({}).largestGap(), (ByteRange{0, 100}));
    EXPECT_EQ(bankWith({{0, 10}, {40, 90}}).largestGap(), (ByteRange{10, 40}));
    EXPECT_EQ(bankWith({{50, 60}}).largestGap(), (ByteRange{0, 50}));
    EXPECT_EQ(bankWith({{0, 10}, {20, 30}}).largestGap(), (ByteRange{30, 100}));
    EXPECT_EQ(bankWith({{10, 90}}).largestGap(), (ByteRange{0, 10}));
    EXPECT_EQ(bankWith({{0, 100}}).largestGap().size(), 0U);
}

TEST(ProgramFacts, FindsLines) {
    FileFacts file;
    file.lines = {{.line = 3, .address = 0x8000, .times = 1}, {.line = 7, .times = 1}};
    ASSERT_NE(file.line(3), nullptr);
    EXPECT_EQ(file.line(3)->address, 0x8000U);
    EXPECT_EQ(file.line(7), &file.lines[1]);
    EXPECT_EQ(file.line(2), nullptr);
    EXPECT_EQ(file.line(5), nullptr);
    EXPECT_EQ(file.line(8), nullptr);
}

TEST(ProgramFacts, FindsFilesByTheNameTheyWereGatheredUnder) {
    ProgramFacts facts;
    facts.files = {fileAt("/p/tmp/Main.asm"), fileAt("/p/tmp/main.asm"), fileAt("inc.asm")};
    EXPECT_EQ(facts.fileNamed("main.asm"), &facts.files[1]);
    EXPECT_EQ(facts.fileNamed("MAIN.ASM"), &facts.files[0]);
    EXPECT_EQ(facts.fileNamed("inc.asm"), &facts.files[2]);
    EXPECT_EQ(facts.fileNamed("other.asm"), nullptr);
}

TEST(ProgramFacts, FindsSymbolsInTheirScope) {
    ProgramFacts facts;
    facts.symbols = {symbolOf(".loop", "main"), symbolOf(".loop", "reset"), symbolOf("main")};
    EXPECT_EQ(facts.symbol("main", "anything"), &facts.symbols[2]);
    EXPECT_EQ(facts.symbol(".loop", "reset"), &facts.symbols[1]);
    EXPECT_EQ(facts.symbol(".loop", "other"), nullptr);
    EXPECT_EQ(facts.symbol("Main"), nullptr);
}

} // namespace kestrel
