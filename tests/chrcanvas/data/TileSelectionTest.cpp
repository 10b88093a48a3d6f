// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileSelection.h"

#include <gtest/gtest.h>

namespace kestrel::test {
namespace {

using Rows = std::vector<std::vector<int>>;

TEST(TileSelectionTest, AnyTwoCornersSelectTheSameCells) {
    for (const TileSelection& selection :
         {TileSelection(5, 38), TileSelection(38, 5), TileSelection(37, 6), TileSelection(6, 37)}) {
        EXPECT_EQ(selection.cells(), (GridRect{5, 0, 2, 3}));
        EXPECT_EQ(selection.rows(64), (Rows{{5, 6}, {21, 22}, {37, 38}}));
    }
}

TEST(TileSelectionTest, RowsEndAtTheLastTile) {
    const TileSelection selection(5, 38);
    EXPECT_EQ(selection.rows(22), (Rows{{5, 6}, {21}}));
    EXPECT_EQ(selection.rows(5), Rows());
}

TEST(TileSelectionTest, ExtendsFromWhereItBegan) {
    TileSelection selection;
    EXPECT_TRUE(selection.isEmpty());
    EXPECT_EQ(selection.cells(), GridRect());
    selection.extendTo(20);
    EXPECT_EQ(selection, TileSelection(20, 20));
    selection.extendTo(3);
    EXPECT_EQ(selection, TileSelection(20, 3));
    selection.set(7);
    EXPECT_EQ(selection, TileSelection(7, 7));
    selection.clear();
    EXPECT_TRUE(selection.isEmpty());
    EXPECT_EQ(selection.rows(64), Rows());
}

} // namespace
} // namespace kestrel::test
