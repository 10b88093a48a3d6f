// SPDX-License-Identifier: MIT
#include "memory/MemoryReport.h"

#include "memory/SampleProgram.h"

#include <gtest/gtest.h>
#include <QTest>

namespace kestrel {

using test::makeBank;
using test::makeLine;
using test::sampleProgram;

namespace {

using Kind = MemoryArea::Kind;

MemoryReport reportOf(const ProgramFacts& facts, const ProgramFacts* before = nullptr) {
    return {std::make_shared<const ProgramFacts>(facts), before, QStringLiteral("Game.nes")};
}

/// Of one bank that had `before` bytes and has `now`.
MemoryReport reportOfChange(std::uint32_t before, std::uint32_t now) {
    ProgramFacts one;
    ProgramFacts other;
    one.areas = {makeBank(Kind::prg, 0, {{0, before}})};
    other.areas = {makeBank(Kind::prg, 0, {{0, now}})};
    return reportOf(other, &one);
}

QString placeText(const MemoryReport& report, std::size_t number, std::uint32_t begin,
                  std::uint32_t end) {
    const MemoryRow& row = report.rows().at(number);
    return report.textOf(row, MemoryReport::placeAt(row, {begin, end}));
}

} // namespace

TEST(MemoryReport, OfNothingHasNoRows) {
    EXPECT_TRUE(MemoryReport().rows().empty());
}

TEST(MemoryReport, TellsEachRowInOneSentence) {
    const MemoryReport report = reportOf(sampleProgram());
    QStringList sentences;
    for (const MemoryRow& row : report.rows()) {
        sentences += MemoryReport::sentenceOf(row);
    }
    EXPECT_EQ(sentences,
              QStringList({
                  QStringLiteral("PRG bank 0: 5,216 of 8,192 bytes used, 2,976 free, largest gap "
                                 "2,976"),
                  QStringLiteral("CHR bank 1: 8,192 of 8,192 bytes used, 0 free, largest gap 0"),
                  QStringLiteral("Zero page: 13 of 256 bytes used, 243 free, largest gap 239"),
                  QStringLiteral("RAM: 0 of 1,536 bytes used, 1,536 free, largest gap 1,536"),
              }));
}

TEST(MemoryReport, KnowsNoChangeWithoutABuildBefore) {
    const MemoryReport report = reportOf(sampleProgram());
    for (const MemoryRow& row : report.rows()) {
        EXPECT_FALSE(row.change.has_value());
        EXPECT_FALSE(row.isNew);
        EXPECT_EQ(MemoryReport::changeOf(row), QString());
    }
    EXPECT_EQ(report.summary(),
              QStringLiteral("Game.nes: PRG 5,216 of 8,192 bytes used, CHR 8,192 of 8,192, "
                             "zero page 13 of 256, RAM 0 of 1,536"));
}

TEST(MemoryReport, TellsChangesWithTheirSign) {
    const auto text = [](std::uint32_t before, std::uint32_t now) {
        return MemoryReport::changeOf(reportOfChange(before, now).rows()[0]);
    };
    EXPECT_EQ(text(100, 124), QStringLiteral("+24 bytes"));
    EXPECT_EQ(text(100, 101), QStringLiteral("+1 byte"));
    EXPECT_EQ(text(100, 76), QStringLiteral("\u221224 bytes"));
    EXPECT_EQ(text(2000, 0), QStringLiteral("\u22122,000 bytes"));
    EXPECT_EQ(text(100, 100), QString());
}

TEST(MemoryReport, SaysChangesInWords) {
    const auto text = [](std::uint32_t before, std::uint32_t now) {
        return MemoryReport::sentenceOf(reportOfChange(before, now).rows()[0]);
    };
    EXPECT_TRUE(
        text(100, 124).endsWith(QStringLiteral("; 24 bytes more than in the build before")));
    EXPECT_TRUE(text(100, 99).endsWith(QStringLiteral("; 1 byte less than in the build before")));
    EXPECT_TRUE(text(100, 100).endsWith(QStringLiteral("largest gap 8,092")));
}

TEST(MemoryReport, ComparesBanksOfOneKindAndNumber) {
    ProgramFacts before = sampleProgram();
    ProgramFacts now = sampleProgram();
    now.areas[0].used = {{0, 10}};
    std::swap(now.areas[0], now.areas[1]);
    now.areas.insert(now.areas.begin(), makeBank(Kind::prg, 7, {{0, 50}}));
    const MemoryReport report = reportOf(now, &before);
    const std::vector<MemoryRow>& rows = report.rows();
    EXPECT_TRUE(rows[0].isNew);
    EXPECT_EQ(MemoryReport::changeOf(rows[0]), QStringLiteral("new"));
    EXPECT_TRUE(
        MemoryReport::sentenceOf(rows[0]).endsWith(QStringLiteral("; not in the build before")));
    EXPECT_EQ(rows[1].change, 0);
    EXPECT_EQ(rows[2].change, -5206);
    // What is new counts as more: 50 - 5,206.
    EXPECT_TRUE(report.summary().startsWith(QStringLiteral(
        "Game.nes: PRG 60 of 16,384 bytes used (\u22125,156), CHR 8,192 of 8,192,")));
}

TEST(MemoryReport, SaysWhenNothingChanged) {
    const ProgramFacts facts = sampleProgram();
    EXPECT_TRUE(reportOf(facts, &facts)
                    .summary()
                    .endsWith(QStringLiteral("RAM 0 of 1,536; as full as after the build before")));
    ProgramFacts other = facts;
    // Two changes that add up to nothing are changes.
    other.areas.push_back(makeBank(Kind::prg, 5, {{0, 10}}));
    ProgramFacts before = other;
    other.areas[0].used = {{0, 0x145A}, {0x1FFB, 0x2000}};
    other.areas.back().used = {{0, 11}};
    const QString summary = reportOf(other, &before).summary();
    EXPECT_TRUE(summary.endsWith(QStringLiteral("RAM 0 of 1,536"))) << summary.toStdString();
}

TEST(MemoryReport, NamesPlacesByTheirAddress) {
    const MemoryReport report = reportOf(sampleProgram());
    EXPECT_EQ(placeText(report, 0, 0x10, 0x20), QStringLiteral("$C000-$D459 used, 5,210 bytes"));
    EXPECT_EQ(placeText(report, 0, 0x1F00, 0x1F10),
              QStringLiteral("$D45A-$DFF9 free, 2,976 bytes: the largest gap"));
    EXPECT_EQ(placeText(report, 0, 0x1FFF, 0x2000), QStringLiteral("$DFFA-$DFFF used, 6 bytes"));
    EXPECT_EQ(placeText(report, 2, 12, 13), QStringLiteral("$000C-$000F free, 4 bytes"));
    EXPECT_EQ(placeText(report, 2, 16, 17), QStringLiteral("$0010 used, 1 byte"));
    EXPECT_EQ(placeText(report, 3, 0x200, 0x202),
              QStringLiteral("$0200 named by a constant; how far it reaches is not known"));
    EXPECT_EQ(placeText(report, 3, 0x201, 0x204),
              QStringLiteral("$0200-$07FF free, 1,536 bytes: the largest gap"));
}

TEST(MemoryReport, PrefersWhatIsUsedWhereOnePixelShowsBoth) {
    const MemoryReport report = reportOf(sampleProgram());
    EXPECT_EQ(placeText(report, 2, 13, 18), QStringLiteral("$0010 used, 1 byte"));
}

TEST(MemoryReport, NamesPlacesByTheirOffsetWhereAddressesDiffer) {
    ProgramFacts facts = sampleProgram();
    facts.files[0].lines.push_back(makeLine(0x8000, 0));
    EXPECT_EQ(placeText(reportOf(facts), 0, 0, 1),
              QStringLiteral("offset $0000-$1459 used, 5,210 bytes"));
    facts.files.clear();
    EXPECT_EQ(placeText(reportOf(facts), 0, 0, 1),
              QStringLiteral("offset $0000-$1459 used, 5,210 bytes"));
}

TEST(MemoryReport, LooksForAddressesOnlyAtLinesWithBytesInBanks) {
    ProgramFacts facts = sampleProgram();
    LineFacts label = makeLine(0xE000, 0);
    label.bytes = 0;
    LineFacts variable = makeLine(0x10, LineFacts::NoBank);
    facts.files[0].lines.insert(facts.files[0].lines.end(), {label, variable});
    const MemoryReport report = reportOf(facts);
    EXPECT_EQ(report.addressOf(report.rows()[0]), 0xC000U);
    EXPECT_EQ(report.addressOf(report.rows()[1]), 0U);
    EXPECT_EQ(report.addressOf(report.rows()[2]), std::nullopt);
}

TEST(MemoryReport, ListsTheRangesOfARow) {
    const MemoryReport report = reportOf(sampleProgram());
    EXPECT_EQ(report.rangesOf(report.rows()[0]),
              QStringLiteral("Used: $C000-$D459, $DFFA-$DFFF. Largest gap: $D45A-$DFF9."));
    EXPECT_EQ(report.rangesOf(report.rows()[1]), QStringLiteral("Used: $0000-$1FFF."));
    EXPECT_EQ(report.rangesOf(report.rows()[3]),
              QStringLiteral("Largest gap: $0200-$07FF. Named by a constant: $0200."));
}

TEST(MemoryReport, ListsOnlyTheFirstOfManyRanges) {
    ProgramFacts facts;
    std::vector<ByteRange> used;
    for (std::uint32_t i = 0; i < 20; ++i) {
        used.push_back({2 * i, 2 * i + 1});
    }
    facts.areas = {makeBank(Kind::chr, 0, used)};
    const MemoryReport report = reportOf(facts);
    const QString text = report.rangesOf(report.rows()[0]);
    EXPECT_TRUE(text.contains(QStringLiteral("$0016 and 8 more."))) << text.toStdString();
    EXPECT_FALSE(text.contains(QStringLiteral("$0018")));
}

} // namespace kestrel
