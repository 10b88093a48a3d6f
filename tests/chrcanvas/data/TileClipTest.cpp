// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileClip.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrel::test {
namespace {

TileData numberedTiles(std::size_t count) {
    TileData tiles(count);
    for (std::size_t number = 0; number < count; ++number) {
        TileBytes bytes;
        bytes.fill(static_cast<std::uint8_t>(number + 1));
        tiles.setTile(number, bytes);
    }
    return tiles;
}

TEST(TileClip, ComesBackFromItsBytes) {
    const TileData tiles = numberedTiles(64);
    const TileClip clip = TileClip::of(tiles, TileShape({5, 6, 7, 21, 22, 23}, 64));
    EXPECT_EQ(clip.columns, 3);
    EXPECT_EQ(clip.rows, 2);
    EXPECT_EQ(clip.toBytes().size(), 2U + 6U * 16U);
    EXPECT_EQ(TileClip::fromBytes(clip.toBytes()), clip);
}

TEST(TileClip, HasBlankTilesForGaps) {
    const TileClip clip = TileClip::of(numberedTiles(18), TileShape({1, 2, 17, 18}, 18));
    ASSERT_EQ(clip.tiles.size(), 4U);
    EXPECT_EQ(clip.tiles[3], TileBytes{});
}

TEST(TileClip, IsNotMadeOfOtherBytes) {
    const std::string tile(16, 'x');
    for (const std::string& bytes :
         {std::string(), std::string("\0", 1), std::string("\0\1", 2), std::string("\0\1", 2) + "x",
          std::string("\0\0", 2) + tile, std::string("\0\2", 2) + tile,
          std::string("\0\x11", 2) + std::string(16 * 17, 'x'),
          std::string("\1\1", 2) + std::string(16 * 257, 'x')}) {
        EXPECT_EQ(TileClip::fromBytes(bytes), std::nullopt) << bytes.size();
    }
    EXPECT_TRUE(TileClip::fromBytes(std::string("\0\1", 2) + tile).has_value());
}

TEST(TileClip, IsCutWhereTheGridAndTheTilesEnd) {
    TileData target(40);
    const TileClip clip = TileClip::of(numberedTiles(64), TileShape({0, 1, 2, 16, 17, 18}, 64));
    std::vector<std::size_t> numbers;
    for (const TileChange& change : clip.changesAt(target, 30)) {
        numbers.push_back(change.number);
    }
    // Tiles 30 and 31 end their row; of the next row, 46 and 47 do not exist.
    EXPECT_EQ(numbers, (std::vector<std::size_t>{30, 31}));
    numbers.clear();
    for (const TileChange& change : clip.changesAt(target, 21)) {
        numbers.push_back(change.number);
        EXPECT_EQ(change.before, TileBytes{});
        EXPECT_NE(change.after, TileBytes{});
    }
    EXPECT_EQ(numbers, (std::vector<std::size_t>{21, 22, 23, 37, 38, 39}));
}

} // namespace
} // namespace kestrel::test
