// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TilePicture.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

TileData randomTiles(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    TileData tiles(count);
    for (std::size_t number = 0; number < count; ++number) {
        for (int i = 0; i < 64; ++i) {
            tiles.setPixel(number, i % 8, i / 8, static_cast<int>(random() % 4));
        }
    }
    return tiles;
}

void carryOut(TileData& tiles, const std::vector<TileChange>& changes) {
    for (const TileChange& change : changes) {
        ASSERT_EQ(change.before, tiles.tile(change.number));
        tiles.setTile(change.number, change.after);
    }
}

/// Where the pixel comes from that stands at (x, y) after a transformation of a picture.
using Source = std::function<std::pair<int, int>(int x, int y, int width, int height)>;

void expectTransformation(TileTransformation transformation, const std::vector<int>& numbers,
                          const Source& source) {
    TileData tiles = randomTiles(64, static_cast<unsigned>(transformation) + 1);
    const TileShape shape(numbers, tiles.tileCount());
    ASSERT_TRUE(isPossible(transformation, shape));
    const TilePicture before(tiles, shape);
    TilePicture picture = before;
    picture.apply(transformation);
    carryOut(tiles, picture.changes(tiles, shape));
    const TilePicture after(tiles, shape);
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            const auto [fromX, fromY] = source(x, y, before.width(), before.height());
            ASSERT_EQ(after.pixel(x, y), before.pixel(fromX, fromY)) << x << ", " << y;
        }
    }
}

const std::vector<int> Wide = {3, 4, 5, 19, 20, 21};
const std::vector<int> Square = {3, 4, 19, 20};

TEST(TilePicture, FlipsAcrossTilesHorizontally) {
    expectTransformation(TileTransformation::flipHorizontally, Wide,
                         [](int x, int y, int width, int) { return std::pair(width - 1 - x, y); });
}

TEST(TilePicture, FlipsAcrossTilesVertically) {
    expectTransformation(
        TileTransformation::flipVertically, Wide,
        [](int x, int y, int, int height) { return std::pair(x, height - 1 - y); });
}

TEST(TilePicture, RotatesSquaresClockwise) {
    expectTransformation(TileTransformation::rotate, Square, [](int x, int y, int, int height) {
        return std::pair(y, height - 1 - x);
    });
}

TEST(TilePicture, ShiftsByOnePixelAndWraps) {
    expectTransformation(TileTransformation::shiftLeft, Wide, [](int x, int y, int width, int) {
        return std::pair((x + 1) % width, y);
    });
    expectTransformation(TileTransformation::shiftRight, Wide, [](int x, int y, int width, int) {
        return std::pair((x + width - 1) % width, y);
    });
    expectTransformation(TileTransformation::shiftUp, Wide, [](int x, int y, int, int height) {
        return std::pair(x, (y + 1) % height);
    });
    expectTransformation(TileTransformation::shiftDown, Wide, [](int x, int y, int, int height) {
        return std::pair(x, (y + height - 1) % height);
    });
}

TEST(TilePicture, ClearsOnlyTheTilesOfItsShape) {
    TileData tiles = randomTiles(18, 3);
    const TileData before = tiles;
    const TileShape shape({1, 2, 17, 18}, tiles.tileCount());
    TilePicture picture(tiles, shape);
    picture.apply(TileTransformation::clear);
    carryOut(tiles, picture.changes(tiles, shape));
    for (std::size_t number = 0; number < 18; ++number) {
        const bool cleared = number == 1 || number == 2 || number == 17;
        EXPECT_EQ(tiles.tile(number), cleared ? TileBytes{} : before.tile(number)) << number;
    }
}

TEST(TilePicture, ListsNoTileThatStaysAsItIs) {
    TileData tiles(32);
    tiles.setPixel(17, 0, 0, 2);
    const TileShape shape({0, 1, 16, 17}, tiles.tileCount());
    TilePicture picture(tiles, shape);
    EXPECT_TRUE(picture.changes(tiles, shape).empty());
    picture.apply(TileTransformation::flipHorizontally);
    const auto changes = picture.changes(tiles, shape);
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].number, 16U);
    EXPECT_EQ(changes[1].number, 17U);
}

TEST(TilePicture, FillsAnAreaAcrossTilesUpToItsBorder) {
    TileData tiles(32);
    const TileShape shape({0, 1}, tiles.tileCount());
    // A frame of value 3 from (4, 1) to (11, 6), over both tiles, open only at a corner.
    for (int x = 4; x < 12; ++x) {
        tiles.setPixel(static_cast<std::size_t>(x / 8), x % 8, 1, 3);
        tiles.setPixel(static_cast<std::size_t>(x / 8), x % 8, 6, 3);
    }
    for (int y = 2; y < 6; ++y) {
        tiles.setPixel(0, 4, y, 3);
        tiles.setPixel(1, 3, y, 3);
    }
    tiles.setPixel(0, 4, 1, 0);
    TilePicture picture(tiles, shape);
    picture.fill(shape, 7, 3, 2);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 16; ++x) {
            const bool inside = x > 4 && x < 11 && y > 1 && y < 6;
            const int before = tiles.pixel(static_cast<std::size_t>(x / 8), x % 8, y);
            ASSERT_EQ(picture.pixel(x, y), inside ? 2 : before) << x << ", " << y;
        }
    }
    picture.fill(shape, 0, 0, 0);
    EXPECT_EQ(picture.changes(tiles, shape).size(), 2U);
}

TEST(TilePicture, FillsNoGaps) {
    TileData tiles(18);
    const TileShape shape({0, 1, 2, 16, 17}, tiles.tileCount());
    TilePicture picture(tiles, shape);
    picture.fill(shape, 20, 12, 1);
    EXPECT_TRUE(picture.changes(tiles, shape).empty());
    picture.fill(shape, 0, 0, 1);
    EXPECT_EQ(picture.changes(tiles, shape).size(), 5U);
    EXPECT_EQ(picture.pixel(20, 12), 0);
}

TEST(TilePicture, TransformsOnlyWhereThatMakesSense) {
    const TileShape line({0, 1}, 18);
    const TileShape square({0, 1, 16, 17}, 18);
    const TileShape gap({1, 2, 17, 18}, 18);
    const TileShape none;
    EXPECT_TRUE(isPossible(TileTransformation::flipVertically, line));
    EXPECT_FALSE(isPossible(TileTransformation::rotate, line));
    EXPECT_TRUE(isPossible(TileTransformation::rotate, square));
    EXPECT_FALSE(isPossible(TileTransformation::shiftLeft, gap));
    EXPECT_TRUE(isPossible(TileTransformation::clear, gap));
    EXPECT_FALSE(isPossible(TileTransformation::clear, none));
}

TEST(TilePicture, OfNoTilesCanBeTransformedAllTheSame) {
    const TileData tiles(1);
    TilePicture picture(tiles, TileShape());
    for (int i = 0; i <= static_cast<int>(TileTransformation::clear); ++i) {
        picture.apply(static_cast<TileTransformation>(i));
    }
    EXPECT_TRUE(picture.changes(tiles, TileShape()).empty());
}

} // namespace
} // namespace kestrel::test
