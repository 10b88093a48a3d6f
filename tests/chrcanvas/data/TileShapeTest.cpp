// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileShape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TileShape, OfABlockIsTheBlock) {
    const TileShape shape({5, 6, 21, 22}, 512);
    EXPECT_EQ(shape.columns(), 2);
    EXPECT_EQ(shape.rows(), 2);
    EXPECT_TRUE(shape.isRectangle());
    EXPECT_EQ(shape.tileAt(0, 0), 5);
    EXPECT_EQ(shape.tileAt(1, 1), 22);
    EXPECT_EQ(shape.tileAt(2, 0), TileShape::NoTile);
    EXPECT_EQ(shape.tileAt(0, -1), TileShape::NoTile);
    EXPECT_THAT(shape.tiles(), ElementsAre(5, 6, 21, 22));
}

TEST(TileShape, SkipsNumbersWithoutATile) {
    const TileShape shape({-1, 30, 31, 46, 47, 2000000000}, 40);
    EXPECT_THAT(shape.tiles(), ElementsAre(30, 31));
    EXPECT_EQ(shape.rows(), 1);
}

TEST(TileShape, HasAGapWhereAShortLastRowEnds) {
    const TileShape shape({0, 1, 2, 16, 17, 18}, 18);
    EXPECT_EQ(shape.columns(), 3);
    EXPECT_EQ(shape.rows(), 2);
    EXPECT_FALSE(shape.isRectangle());
    EXPECT_EQ(shape.tileAt(2, 1), TileShape::NoTile);
    EXPECT_THAT(shape.tiles(), ElementsAre(0, 1, 2, 16, 17));
}

TEST(TileShape, CountsATileOnceHoweverOftenItIsListed) {
    const TileShape shape({3, 4, 3, 4}, 512);
    EXPECT_TRUE(shape.isRectangle());
    EXPECT_THAT(shape.tiles(), ElementsAre(3, 4));
}

TEST(TileShape, OfNothingIsEmpty) {
    for (const TileShape& shape : {TileShape(), TileShape({}, 512), TileShape({512}, 512)}) {
        EXPECT_TRUE(shape.isEmpty());
        EXPECT_FALSE(shape.isRectangle());
        EXPECT_THAT(shape.tiles(), IsEmpty());
        EXPECT_EQ(shape.tileAt(0, 0), TileShape::NoTile);
    }
}

} // namespace
} // namespace kestrel::test
