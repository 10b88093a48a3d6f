// SPDX-License-Identifier: MIT
#include "facts/LineSummary.h"

#include <gtest/gtest.h>

namespace kestrel {

namespace {

ProgramFacts someFacts() {
    ProgramFacts facts;
    SymbolFacts count;
    count.name = "count";
    count.kind = SymbolFacts::Kind::variable;
    count.value = 0x10;
    count.bytes = 2;
    SymbolFacts limit;
    limit.name = "limit";
    SymbolFacts start;
    start.name = "start";
    start.kind = SymbolFacts::Kind::label;
    facts.symbols = {count, limit, start};
    FileFacts file;
    file.lines = {
        {2, 0xC012, 0, 1, 3, 4, 4},
        {3, 0xC015, 0, 1, 2, 2, 4},
        {4, 0xC017, 0, 1, 0, 0, 0},
        {5, 0xC017, 0, 1, 1, 0, 0},
        {6, 0x0012, LineFacts::NoBank, 1, 1200, 0, 0},
        {7, 0xC018, 0, 1234, 4936, 2, 5},
    };
    facts.files = {file};
    return facts;
}

QString ofLine(std::uint32_t line, std::string_view label = {}) {
    const ProgramFacts facts = someFacts();
    return LineSummary::ofLine(facts, facts.files.front(), line, label);
}

QString ofLines(std::uint32_t first, std::uint32_t last) {
    const ProgramFacts facts = someFacts();
    return LineSummary::ofLines(facts.files.front(), first, last);
}

} // namespace

TEST(LineSummary, TellsAddressBytesAndCycles) {
    EXPECT_EQ(ofLine(2), QStringLiteral("$C012, 3 bytes, 4 cycles"));
    EXPECT_EQ(ofLine(3), QStringLiteral("$C015, 2 bytes, 2 to 4 cycles"));
    EXPECT_EQ(ofLine(5), QStringLiteral("$C017, 1 byte"));
    EXPECT_EQ(ofLine(6), QStringLiteral("$0012, 1,200 bytes of memory"));
    EXPECT_EQ(ofLine(7), QStringLiteral("$C018 and 1,233 more, 4,936 bytes, 2 to 5 cycles each"));
}

TEST(LineSummary, TellsOfLinesWithoutBytesWhatTheirNameIs) {
    EXPECT_EQ(ofLine(4), QString());
    EXPECT_EQ(ofLine(4, "start"), QStringLiteral("$C017"));
    EXPECT_EQ(ofLine(4, ".loop"), QStringLiteral("$C017"));
    EXPECT_EQ(ofLine(4, "count"), QStringLiteral("$0010, 2 bytes of memory"));
    EXPECT_EQ(ofLine(4, "limit"), QString());
    EXPECT_EQ(ofLine(4, "unknown"), QString());
    EXPECT_EQ(ofLine(1, "start"), QString()); // no statement there
}

TEST(LineSummary, AddsUpLines) {
    EXPECT_EQ(ofLines(1, 4), QStringLiteral("4 lines: 5 bytes, 6 to 8 cycles"));
    EXPECT_EQ(ofLines(4, 5), QStringLiteral("2 lines: 1 byte"));
    EXPECT_EQ(ofLines(7, 8), QStringLiteral("2 lines: 4,936 bytes, 2,468 to 6,170 cycles"))
        << "each time that a line was assembled counts";
    EXPECT_EQ(ofLines(8, 20), QString());
    EXPECT_EQ(ofLines(0, 1), QString());
}

} // namespace kestrel
