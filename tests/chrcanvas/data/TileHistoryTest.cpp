// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileHistory.h"

#include "chrcanvas/data/TilePicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TileBytes tileOf(std::uint8_t byte) {
    TileBytes tile;
    tile.fill(byte);
    return tile;
}

TileChange put(TileData& tiles, std::size_t number, std::uint8_t byte) {
    const TileChange change{number, tiles.tile(number), tileOf(byte)};
    tiles.setTile(number, change.after);
    return change;
}

TEST(TileHistory, UndoesAndRedoesOneStepAtATime) {
    TileData tiles(4);
    TileHistory history;
    history.record({put(tiles, 1, 7), put(tiles, 2, 8)});
    history.record({put(tiles, 1, 9)});
    EXPECT_THAT(history.undo(tiles), ElementsAre(1));
    EXPECT_EQ(tiles.tile(1), tileOf(7));
    EXPECT_THAT(history.undo(tiles), ElementsAre(1, 2));
    EXPECT_EQ(tiles.toData(), TileData(4).toData());
    EXPECT_FALSE(history.canUndo());
    EXPECT_THAT(history.undo(tiles), IsEmpty());
    EXPECT_THAT(history.redo(tiles), ElementsAre(1, 2));
    EXPECT_EQ(tiles.tile(2), tileOf(8));
    EXPECT_TRUE(history.canRedo());
    history.redo(tiles);
    EXPECT_EQ(tiles.tile(1), tileOf(9));
    EXPECT_THAT(history.redo(tiles), IsEmpty());
}

TEST(TileHistory, AStepThatChangesNothingIsNone) {
    TileData tiles(4);
    TileHistory history;
    history.record({});
    history.record({put(tiles, 0, 0)});
    EXPECT_FALSE(history.canUndo());
    history.record({put(tiles, 0, 0), put(tiles, 3, 1)});
    EXPECT_THAT(history.undo(tiles), ElementsAre(3));
}

TEST(TileHistory, ANewStepForgetsWhatWasUndone) {
    TileData tiles(4);
    TileHistory history;
    history.record({put(tiles, 0, 1)});
    history.record({put(tiles, 0, 2)});
    history.undo(tiles);
    history.record({put(tiles, 1, 3)});
    EXPECT_FALSE(history.canRedo());
    history.undo(tiles);
    history.undo(tiles);
    EXPECT_EQ(tiles.toData(), TileData(4).toData());
}

TEST(TileHistory, ForgetsTheOldestStepsWhenTheyGrowTooManyButNeverTheLast) {
    TileData tiles(8);
    TileHistory history(3);
    history.record({put(tiles, 0, 1), put(tiles, 1, 1)});
    history.record({put(tiles, 2, 2)});
    history.record({put(tiles, 3, 3)});
    EXPECT_THAT(history.undo(tiles), ElementsAre(3));
    EXPECT_THAT(history.undo(tiles), ElementsAre(2));
    EXPECT_FALSE(history.canUndo());
    history.record({put(tiles, 4, 1), put(tiles, 5, 1), put(tiles, 6, 1), put(tiles, 7, 1)});
    EXPECT_THAT(history.undo(tiles), ElementsAre(4, 5, 6, 7));
    EXPECT_FALSE(history.canUndo());
}

TEST(TileHistory, ClearedItHasNothingToUndoOrRedo) {
    TileData tiles(2);
    TileHistory history;
    history.record({put(tiles, 0, 1)});
    history.record({put(tiles, 0, 2)});
    history.undo(tiles);
    history.clear();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
}

TEST(TileHistory, AnyEditsUndoneGiveTheFirstBytesAndRedoneTheLast) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        TileData tiles(64);
        for (std::size_t number = 0; number < 64; ++number) {
            tiles.setTile(number, tileOf(static_cast<std::uint8_t>(random())));
        }
        const auto first = tiles.toData();
        TileHistory history;
        for (int step = 0; step < 200; ++step) {
            const int left = static_cast<int>(random() % 14);
            const int top = static_cast<int>(random() % 2) * 16;
            const TileShape shape({top + left, top + left + 1, top + left + 16, top + left + 17},
                                  64);
            TilePicture picture(tiles, shape);
            if (random() % 3 == 0) {
                picture.fill(shape, static_cast<int>(random() % 16),
                             static_cast<int>(random() % 16), static_cast<int>(random() % 4));
            } else {
                picture.apply(static_cast<TileTransformation>(random() % 8));
            }
            std::vector<TileChange> changes = picture.changes(tiles, shape);
            for (const TileChange& change : changes) {
                tiles.setTile(change.number, change.after);
            }
            history.record(std::move(changes));
            if (random() % 8 == 0) {
                history.undo(tiles);
            }
        }
        while (history.canRedo()) {
            history.redo(tiles);
        }
        const auto last = tiles.toData();
        ASSERT_TRUE(history.canUndo());
        while (history.canUndo()) {
            history.undo(tiles);
        }
        EXPECT_EQ(tiles.toData(), first);
        while (history.canRedo()) {
            history.redo(tiles);
        }
        EXPECT_EQ(tiles.toData(), last);
    }
}

} // namespace
} // namespace kestrel::test
