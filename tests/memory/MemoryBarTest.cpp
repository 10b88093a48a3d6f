// SPDX-License-Identifier: MIT
#include "memory/MemoryBar.h"

#include "memory/SampleProgram.h"
#include "widgets/Contrast.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPainter>
#include <QPalette>

namespace kestrel {

using test::makeBank;
using test::makeMemory;

namespace {

/// What shapes need (WCAG 2, success criterion 1.4.11).
constexpr double LeastShapeContrast = 3;

/// A bar of 128 pixels within its frame, so that each shows 64 bytes of a bank.
class MemoryBar : public testing::TestWithParam<int> {
protected:
    void draw(const MemoryArea& area, const ByteRange& gap) {
        image.setDevicePixelRatio(GetParam());
        image.fill(Qt::magenta);
        QPainter painter(&image);
        drawMemoryBar(painter, bar, area, gap, colors);
    }

    QColor at(int x, int y = 5) const { return image.pixelColor(QPoint(x, y) * GetParam()); }

    /// How many of the bar's device pixels, frame and hatching left out, are painted as used.
    int usedColumns(int y = 5) const {
        int count = 0;
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y * GetParam()) == colors.used ? 1 : 0;
        }
        return count;
    }

    const QRectF bar{9, 1, 130, 14};
    const MemoryBarColors colors{QPalette(Qt::white)};
    QImage image{QSize(150, 20) * GetParam(), QImage::Format_RGB32};
};

constexpr auto Prg = MemoryArea::Kind::prg;

} // namespace

TEST_P(MemoryBar, DrawsRangesWhereTheyAre) {
    draw(makeBank(Prg, 0, {{0x400, 0x800}, {0x1000, 0x1800}}), {});
    EXPECT_EQ(at(10 + 15), colors.background);
    EXPECT_EQ(at(10 + 16), colors.used);
    EXPECT_EQ(at(10 + 31), colors.used);
    EXPECT_EQ(at(10 + 32), colors.background);
    EXPECT_EQ(at(10 + 63), colors.background);
    EXPECT_EQ(at(10 + 64), colors.used);
    EXPECT_EQ(at(10 + 95), colors.used);
    EXPECT_EQ(at(10 + 96), colors.background);
    EXPECT_EQ(usedColumns(), (16 + 32) * GetParam());
}

TEST_P(MemoryBar, DrawsAFrameAndNothingOutsideOfIt) {
    draw(makeBank(Prg, 0, {{0, 0x2000}}), {});
    EXPECT_EQ(at(9), colors.frame);
    EXPECT_EQ(at(10 + 128), colors.frame);
    EXPECT_EQ(at(70, 1), colors.frame);
    EXPECT_EQ(at(70, 14), colors.frame);
    EXPECT_EQ(at(8), QColor(Qt::magenta));
    EXPECT_EQ(at(10 + 129), QColor(Qt::magenta));
    EXPECT_EQ(at(70, 0), QColor(Qt::magenta));
    EXPECT_EQ(at(70, 15), QColor(Qt::magenta));
}

TEST_P(MemoryBar, ShowsASingleByteTwoPixelsWide) {
    draw(makeBank(Prg, 0, {{0x1000, 0x1001}}), {});
    EXPECT_EQ(usedColumns(), 2 * GetParam());
    EXPECT_EQ(at(10 + 64), colors.used);
    EXPECT_EQ(at(10 + 65), colors.used);
}

TEST_P(MemoryBar, ShowsTheVectorsAtTheEndBesideTheFrame) {
    draw(makeBank(Prg, 0, {{0x1FFA, 0x2000}}), {0, 0x1FFA});
    EXPECT_EQ(usedColumns(), 2 * GetParam());
    EXPECT_EQ(at(10 + 127), colors.used);
    EXPECT_EQ(at(10 + 128), colors.frame);
}

TEST_P(MemoryBar, ShowsAllOfManySmallRanges) {
    std::vector<ByteRange> ranges;
    for (std::uint32_t byte = 0x1000; byte < 0x1800; byte += 2) {
        ranges.push_back({byte, byte + 1});
    }
    draw(makeBank(Prg, 0, ranges), {});
    EXPECT_GE(usedColumns(), 32 * GetParam());
    EXPECT_LE(usedColumns(), 34 * GetParam());
}

TEST_P(MemoryBar, HatchesAndOutlinesTheLargestGapAlone) {
    draw(makeBank(Prg, 0, {{0x400, 0x800}}), {0x800, 0x1800});
    EXPECT_EQ(at(10 + 32), colors.frame); // its left side
    EXPECT_EQ(at(10 + 95), colors.frame); // its right side, which ends with a whole pixel
    EXPECT_EQ(at(10 + 96), colors.background);
    int hatched = 0;
    int outside = 0;
    for (int x = 33; x < 95; ++x) {
        hatched += at(10 + x) == colors.background ? 0 : 1;
    }
    for (int x = 96; x < 127; ++x) {
        outside += at(10 + x) == colors.background ? 0 : 1;
    }
    EXPECT_GT(hatched, 62 / 6);
    EXPECT_LT(hatched, 62 * 2 / 3);
    EXPECT_EQ(outside, 0);
}

TEST_P(MemoryBar, MarksNamedAddressesByAShapeOfTheirOwn) {
    draw(makeMemory(MemoryArea::Kind::ram, {0x200, 0x800}, {}, {{0x500, 0x501}}), {});
    EXPECT_EQ(at(10 + 64, 11), colors.named);
    EXPECT_EQ(at(10 + 65, 11), colors.named);
    EXPECT_EQ(at(10 + 64, 5), colors.background) << "half as high as the bar";
}

INSTANTIATE_TEST_SUITE_P(Scales, MemoryBar, testing::Values(1, 2));

TEST(MemoryBarColors, StandOutOnLightAndDark) {
    for (const QColor& base : {QColor(Qt::white), QColor(Qt::black), QColor(0x2a, 0x2a, 0x2a),
                               QColor(0x80, 0x80, 0x80), QColor(0x00, 0x2b, 0x36)}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, base); // the worst theme there could be
        const MemoryBarColors colors(palette);
        EXPECT_EQ(colors.background, base);
        EXPECT_GE(contrast(colors.used, base), LeastShapeContrast);
        EXPECT_GE(contrast(colors.frame, base), LeastShapeContrast);
        EXPECT_GE(contrast(colors.named, base), LeastShapeContrast);
    }
}

TEST(BytesAt, FindsWhatIsDrawnAtAPlace) {
    const MemoryArea area = makeMemory(MemoryArea::Kind::ram, {0x200, 0x800}, {});
    const QRectF bar(9, 0, 98, 12); // 16 bytes each pixel within the frame
    EXPECT_EQ(bytesAt(bar, area, 10), (ByteRange{0x200, 0x210}));
    EXPECT_EQ(bytesAt(bar, area, 11), (ByteRange{0x210, 0x220}));
    EXPECT_EQ(bytesAt(bar, area, 105), (ByteRange{0x7F0, 0x800}));
    EXPECT_EQ(bytesAt(bar, area, 9).size(), 0U);
    EXPECT_EQ(bytesAt(bar, area, 106).size(), 0U);
}

TEST(BytesAt, FindsOneByteAtLeast) {
    const MemoryArea area = makeMemory(MemoryArea::Kind::zeroPage, {0, 0x100}, {});
    EXPECT_EQ(bytesAt(QRectF(-1, 0, 1026, 12), area, 5), (ByteRange{1, 2}));
    EXPECT_EQ(bytesAt(QRectF(-1, 0, 1026, 12), area, 1023), (ByteRange{255, 256}));
}

} // namespace kestrel
