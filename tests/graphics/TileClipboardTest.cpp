// SPDX-License-Identifier: MIT
#include "graphics/TileClipboard.h"

#include <gtest/gtest.h>
#include <QBuffer>
#include <QMimeData>

namespace kestrel::test {
namespace {

constexpr TileRenderer::Colors Colors = {0xFFFFFFFF, 0xFFB8B8B8, 0xFF626262, 0xFF000000};

TileClip twoTiles() {
    TileData tiles(2);
    for (int i = 0; i < 8; ++i) {
        tiles.setPixel(0, i, i, i % 4);
        tiles.setPixel(1, i, 7 - i, 3);
    }
    return TileClip::of(tiles, TileShape({0, 1}, 2));
}

std::unique_ptr<QMimeData> imageOnly(const QImage& image) {
    auto content = std::make_unique<QMimeData>();
    content->setImageData(image);
    return content;
}

TEST(TileClipboard, BringsTilesBackByteForByte) {
    const auto content = clipboardContent(twoTiles(), Colors);
    EXPECT_TRUE(mayHoldTiles(content.get()));
    EXPECT_EQ(tilesOf(content.get(), Colors).clip, twoTiles());
}

TEST(TileClipboard, OffersAnImageOfOnePixelAPixelThatComesBackAsTheSameTiles) {
    const QImage image = imageOf(twoTiles(), Colors);
    EXPECT_EQ(image.size(), QSize(16, 8));
    EXPECT_EQ(image.pixel(1, 1), Colors[1]);
    EXPECT_EQ(image.pixel(8, 7), Colors[3]);
    EXPECT_EQ(tilesOf(imageOnly(image).get(), Colors).clip, twoTiles());
}

TEST(TileClipboard, TakesTheNearestOfTheFourColoursAndNoneForTransparentPixels) {
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 0, 0));
    image.setPixel(0, 0, qRgb(10, 5, 0));
    image.setPixel(1, 0, qRgb(0x50, 0x70, 0x62));
    image.setPixel(2, 0, qRgb(0xB0, 0xC0, 0xB0));
    image.setPixel(3, 0, qRgb(0xF0, 0xF0, 0xFF));
    const PastedTiles pasted = tilesOf(imageOnly(image).get(), Colors);
    ASSERT_TRUE(pasted.clip.has_value());
    EXPECT_EQ(pasted.clip->tiles[0],
              (TileBytes{0b10100000, 0, 0, 0, 0, 0, 0, 0, 0b11000000, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(TileClipboard, RefusesAnImageWhoseSizeIsNoMultipleOfEightWithASentence) {
    for (const QSize size : {QSize(9, 8), QSize(8, 12), QSize(1, 1)}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::black);
        const PastedTiles pasted = tilesOf(imageOnly(image).get(), Colors);
        EXPECT_FALSE(pasted.clip.has_value());
        EXPECT_TRUE(pasted.refusal.contains(QString::number(size.width())))
            << pasted.refusal.toStdString();
        EXPECT_TRUE(pasted.refusal.endsWith(QLatin1Char('.')));
    }
}

TEST(TileClipboard, TakesAtMostSixteenTilesOfARowOfAnImage) {
    QImage image(8 * 20, 16, QImage::Format_RGB32);
    image.fill(Qt::black);
    const PastedTiles pasted = tilesOf(imageOnly(image).get(), Colors);
    ASSERT_TRUE(pasted.clip.has_value());
    EXPECT_EQ(pasted.clip->columns, 16);
    EXPECT_EQ(pasted.clip->tiles.size(), 32U);
}

TEST(TileClipboard, FindsNoTilesInOtherContent) {
    QMimeData text;
    text.setText(QStringLiteral("tiles"));
    EXPECT_FALSE(mayHoldTiles(&text));
    EXPECT_FALSE(mayHoldTiles(nullptr));
    EXPECT_FALSE(tilesOf(&text, Colors).clip.has_value());
    EXPECT_FALSE(tilesOf(&text, Colors).refusal.isEmpty());
    EXPECT_FALSE(tilesOf(nullptr, Colors).refusal.isEmpty());
    QMimeData damaged;
    damaged.setData(QStringLiteral("application/x-kestrel-tiles"), QByteArray("\0\2broken", 8));
    EXPECT_FALSE(tilesOf(&damaged, Colors).clip.has_value());
    EXPECT_FALSE(tilesOf(&damaged, Colors).refusal.isEmpty());
}

} // namespace
} // namespace kestrel::test
