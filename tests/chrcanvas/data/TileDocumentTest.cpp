// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes what it is told, each time anew.
class Watcher : public TileDocumentObserver {
public:
    void tilesChanged(const std::vector<int>& tileNumbers,
                      const std::optional<GridRect>& area) override {
        tiles.push_back(tileNumbers);
        areas.push_back(area);
        if (whenTold) {
            whenTold();
        }
    }
    void selectionChanged(const TileSelection& former) override {
        formerSelections.push_back(former);
    }

    /// The tiles of the one edit that was told since the last call; none for no edit.
    std::vector<int> take() {
        EXPECT_LE(tiles.size(), 1U) << "told more than once";
        const std::vector<int> last = tiles.empty() ? std::vector<int>() : tiles.front();
        tiles.clear();
        areas.clear();
        return last;
    }

    std::vector<std::vector<int>> tiles;
    std::vector<std::optional<GridRect>> areas;
    std::vector<TileSelection> formerSelections;
    std::function<void()> whenTold;
};

class TileDocumentTest : public testing::Test {
protected:
    TileDocumentTest() {
        m_document.setTileData(m_tiles);
        m_document.selectBlock(0, 17);
        m_document.addObserver(m_watcher);
    }

    int pixel(int x, int y) { return m_document.valueAt(x, y).value(); }
    std::string bytes() { return m_tiles->toData().value(); }

    std::shared_ptr<TileData> m_tiles = std::make_shared<TileData>(std::size_t{64});
    TileDocument m_document;
    Watcher m_watcher;
};

TEST_F(TileDocumentTest, AStrokeJoinsItsSamplesWithoutGaps) {
    for (const auto& [x, y] : {std::pair(15, 15), {15, 3}, {3, 15}, {0, 7}, {1, 0}, {9, 8}}) {
        TileDocument document;
        document.setTileData(std::make_shared<TileData>(std::size_t{64}));
        document.setSelectedTiles({0, 1, 16, 17});
        document.beginStroke(4, 6, 3);
        document.continueStroke(x, y);
        int painted = 0;
        for (int row = 0; row < 16; ++row) {
            for (int column = 0; column < 16; ++column) {
                painted += document.valueAt(column, row) == 3 ? 1 : 0;
            }
        }
        EXPECT_EQ(document.valueAt(4, 6), 3);
        EXPECT_EQ(document.valueAt(x, y), 3);
        EXPECT_EQ(painted, std::max(std::abs(x - 4), std::abs(y - 6)) + 1) << x << ", " << y;
        // Each painted pixel but the first touches another one, so the line is in one piece.
        for (int row = 0; row < 16; ++row) {
            for (int column = 0; column < 16; ++column) {
                if (document.valueAt(column, row) != 3) {
                    continue;
                }
                int neighbours = 0;
                for (int i = 0; i < 9; ++i) {
                    const bool other = i != 4;
                    neighbours +=
                        other && document.valueAt(column + i % 3 - 1, row + i / 3 - 1) == 3 ? 1 : 0;
                }
                EXPECT_GE(neighbours, 1) << column << ", " << row;
            }
        }
    }
}

TEST_F(TileDocumentTest, AStrokeTellsOnlyTheTilesThatChanged) {
    m_document.beginStroke(2, 2, 1);
    EXPECT_THAT(m_watcher.take(), ElementsAre(0));
    m_document.continueStroke(13, 2);
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1));
    m_document.continueStroke(13, 3);
    EXPECT_THAT(m_watcher.take(), ElementsAre(1));
    m_document.continueStroke(13, 2);
    EXPECT_THAT(m_watcher.take(), IsEmpty());
    m_document.continueStroke(13, 9);
    EXPECT_THAT(m_watcher.take(), ElementsAre(1, 17));
    m_document.endStroke();
    EXPECT_THAT(m_watcher.take(), IsEmpty());
}

TEST_F(TileDocumentTest, AllSamplesOfAStrokeAreOneStep) {
    m_document.fill(0, 15, 2);
    const std::string before = bytes();
    m_document.beginStroke(2, 2, 1);
    m_document.continueStroke(13, 2);
    m_document.continueStroke(13, 9);
    m_document.endStroke();
    const std::string after = bytes();
    m_watcher.tiles.clear();
    m_document.undo();
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 17));
    EXPECT_EQ(bytes(), before);
    m_document.redo();
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 17));
    EXPECT_EQ(bytes(), after);
    EXPECT_FALSE(m_document.canRedo());
}

TEST_F(TileDocumentTest, AStrokeTellsTheAreaThatItsLineLiesIn) {
    m_document.beginStroke(9, 4, 1);
    m_document.continueStroke(5, 6);
    m_document.continueStroke(-2, 6);
    m_document.endStroke();
    m_document.transform(TileTransformation::clear);
    EXPECT_THAT(m_watcher.areas, ElementsAre(GridRect{9, 4, 1, 1}, GridRect{5, 4, 5, 3},
                                             GridRect{-2, 6, 8, 1}, std::nullopt));
}

TEST_F(TileDocumentTest, AStrokeOverWhatHasItsColourIsNoStep) {
    m_document.beginStroke(2, 2, 0);
    m_document.continueStroke(9, 9);
    m_document.endStroke();
    EXPECT_THAT(m_watcher.take(), IsEmpty());
    EXPECT_FALSE(m_document.canUndo());
}

TEST_F(TileDocumentTest, AStrokeMayLeaveTheTilesAndComeBack) {
    m_document.setSelectedTiles({17});
    m_document.beginStroke(-1, -1, 2);
    EXPECT_THAT(m_watcher.take(), IsEmpty());
    m_document.continueStroke(9, 9);
    EXPECT_THAT(m_watcher.take(), ElementsAre(17));
    m_document.continueStroke(7, 0);
    EXPECT_THAT(m_watcher.take(), ElementsAre(17));
    m_document.endStroke();
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(pixel(i, i), 2);
    }
    for (const int other : {0, 1, 16, 18, 33}) {
        EXPECT_EQ(m_tiles->tile(static_cast<std::size_t>(other)), TileBytes{}) << other;
    }
}

TEST_F(TileDocumentTest, ALineIsToldOnceAndIsOneStep) {
    m_document.drawLine(6, 2, 9, 2, 3);
    EXPECT_THAT(m_watcher.areas, ElementsAre(GridRect{6, 2, 4, 1}));
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1));
    EXPECT_EQ(pixel(6, 2), 3);
    EXPECT_EQ(pixel(9, 2), 3);
    EXPECT_FALSE(m_document.isDrawing());
    m_document.undo();
    EXPECT_EQ(bytes(), std::string(1024, '\0'));
    EXPECT_FALSE(m_document.canUndo());
}

TEST_F(TileDocumentTest, EachEditIsToldOnce) {
    m_document.fill(3, 3, 2);
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 16, 17));
    m_document.transform(TileTransformation::clear);
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 16, 17));
    m_document.transform(TileTransformation::clear);
    EXPECT_THAT(m_watcher.take(), IsEmpty());
    m_document.undo();
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 16, 17));
    m_document.redo();
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 16, 17));
    m_document.redo();
    EXPECT_THAT(m_watcher.take(), IsEmpty());
    EXPECT_THAT(m_watcher.formerSelections, IsEmpty());
}

TEST_F(TileDocumentTest, EveryObserverIsToldUntilItIsRemoved) {
    Watcher other;
    m_document.addObserver(other);
    m_document.fill(0, 0, 1);
    EXPECT_THAT(other.take(), ElementsAre(0, 1, 16, 17));
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 16, 17));
    m_document.removeObserver(other);
    m_document.fill(0, 0, 2);
    m_document.selectAll();
    EXPECT_THAT(other.tiles, IsEmpty());
    EXPECT_THAT(other.formerSelections, IsEmpty());
    EXPECT_THAT(m_watcher.take(), ElementsAre(0, 1, 16, 17));
}

TEST_F(TileDocumentTest, AnObserverMayRemoveOthersWhenItIsTold) {
    Watcher other;
    m_document.addObserver(other);
    m_watcher.whenTold = [&] {
        m_document.removeObserver(m_watcher);
        m_document.removeObserver(other);
    };
    m_document.fill(0, 0, 1);
    EXPECT_EQ(m_watcher.tiles.size(), 1U);
    EXPECT_THAT(other.tiles, IsEmpty());
}

TEST_F(TileDocumentTest, AnObserverMayEndTheStrokeThatItIsToldOf) {
    Watcher other;
    m_document.addObserver(other);
    m_watcher.whenTold = [this] { m_document.endStroke(); };
    m_document.beginStroke(2, 2, 1);
    EXPECT_THAT(other.take(), ElementsAre(0));
    EXPECT_FALSE(m_document.isDrawing());
    EXPECT_TRUE(m_document.canUndo());
}

TEST_F(TileDocumentTest, WhileAStrokeIsDrawnNothingElseEdits) {
    m_document.beginStroke(0, 0, 1);
    m_watcher.take();
    const std::string drawn = bytes();
    m_document.transform(TileTransformation::clear);
    m_document.fill(5, 5, 2);
    m_document.drawLine(5, 5, 6, 6, 2);
    m_document.undo();
    m_document.carryOut({{9, {}, {1}}});
    m_document.paste({1, 1, {TileBytes{1}}});
    EXPECT_EQ(bytes(), drawn);
    EXPECT_THAT(m_watcher.take(), IsEmpty());
    EXPECT_FALSE(m_document.canTransform(TileTransformation::clear));
    EXPECT_FALSE(m_document.canCopy());
    EXPECT_FALSE(m_document.canUndo());
    m_document.endStroke();
    EXPECT_TRUE(m_document.canUndo());
}

TEST_F(TileDocumentTest, OtherTilesForgetTheHistoryAndTheStroke) {
    m_document.fill(0, 0, 1);
    m_document.beginStroke(3, 3, 2);
    m_document.setTileData(std::make_shared<TileData>(std::size_t{1}));
    EXPECT_FALSE(m_document.isDrawing());
    EXPECT_FALSE(m_document.canUndo());
    EXPECT_THAT(m_document.shape().tiles(), ElementsAre(0));
    EXPECT_THAT(m_document.selectedTiles(), ElementsAre(0, 1, 16, 17));
    EXPECT_THAT(m_document.selectedRows(), ElementsAre(ElementsAre(0)));
    EXPECT_EQ(m_document.selection(), TileSelection(0, 17));
}

TEST_F(TileDocumentTest, SelectingOtherTilesEndsTheStrokeAsAStep) {
    m_document.beginStroke(3, 3, 2);
    m_document.selectBlock(40, 40);
    EXPECT_FALSE(m_document.isDrawing());
    m_watcher.take();
    m_document.undo();
    EXPECT_THAT(m_watcher.take(), ElementsAre(0));
}

TEST_F(TileDocumentTest, WithoutTilesItDoesNothing) {
    m_document.setTileData(nullptr);
    m_document.beginStroke(0, 0, 1);
    m_document.continueStroke(3, 3);
    m_document.fill(0, 0, 1);
    m_document.drawLine(0, 0, 1, 1, 1);
    m_document.transform(TileTransformation::clear);
    m_document.carryOut({{0, {}, {1}}});
    m_document.paste({1, 1, {TileBytes{1}}});
    m_document.selectAll();
    EXPECT_THAT(m_watcher.tiles, IsEmpty());
    EXPECT_THAT(m_watcher.formerSelections, IsEmpty());
    EXPECT_EQ(m_document.valueAt(0, 0), std::nullopt);
    EXPECT_EQ(m_document.copy(), TileClip());
    EXPECT_EQ(m_document.tileCount(), 0U);
}

TEST_F(TileDocumentTest, WithoutTilesSelectingKeepsTheTilesToEdit) {
    m_document.setTileData(nullptr);
    m_document.select(TileSelection());
    EXPECT_TRUE(m_document.selection().isEmpty());
    EXPECT_THAT(m_document.selectedTiles(), ElementsAre(0, 1, 16, 17));
}

TEST_F(TileDocumentTest, LeavesOutChangesOfTilesThatAreNotThere) {
    m_document.carryOut({{64, {}, {1}}, {63, {}, {1}}, {62, {}, {}}});
    EXPECT_THAT(m_watcher.take(), ElementsAre(63));
    m_document.undo();
    EXPECT_THAT(m_watcher.take(), ElementsAre(63));
}

TEST_F(TileDocumentTest, EverySelectionIsToldOnceTheSameOneToo) {
    m_document.selectBlock(22, 5);
    EXPECT_THAT(m_watcher.formerSelections, ElementsAre(TileSelection(0, 17)));
    EXPECT_THAT(m_document.selectedTiles(), ElementsAre(5, 6, 21, 22));
    EXPECT_EQ(m_document.selection().anchor(), 22);
    m_document.selectBlock(22, 5);
    EXPECT_THAT(m_watcher.formerSelections,
                ElementsAre(TileSelection(0, 17), TileSelection(22, 5)));
    m_document.setSelectedTiles({9});
    EXPECT_EQ(m_watcher.formerSelections.size(), 2U);
    EXPECT_THAT(m_document.shape().tiles(), ElementsAre(9));
    EXPECT_EQ(m_document.selection(), TileSelection(22, 5));
}

TEST_F(TileDocumentTest, SelectsOnlyBlocksOfRowsThatHaveTiles) {
    m_document.setTileData(std::make_shared<TileData>(std::size_t{20}));
    for (const auto& [first, last] : {std::pair(-1, 3), {3, -1}, {32, 3}, {3, 32}}) {
        m_document.selectBlock(first, last);
    }
    EXPECT_THAT(m_watcher.formerSelections, IsEmpty());
    m_document.selectBlock(2, 31);
    EXPECT_THAT(m_document.selectedRows(),
                ElementsAre(ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15),
                            ElementsAre(18, 19)));
    m_document.selectAll();
    EXPECT_EQ(m_document.selection(), TileSelection(0, 31));
    EXPECT_EQ(m_document.selectedTiles().size(), 20U);
}

TEST_F(TileDocumentTest, CopiesThePicturesOfTheSelectedTilesAndPastesThem) {
    m_document.fill(0, 0, 3);
    m_watcher.take();
    const TileClip clip = m_document.copy();
    EXPECT_EQ(clip.columns, 2);
    EXPECT_EQ(clip.rows, 2);
    m_document.selectBlock(40, 40);
    m_watcher.formerSelections.clear();
    m_document.paste(clip);
    EXPECT_THAT(m_watcher.take(), ElementsAre(40, 41, 56, 57));
    EXPECT_THAT(m_watcher.formerSelections, ElementsAre(TileSelection(40, 40)));
    EXPECT_THAT(m_document.selectedTiles(), ElementsAre(40, 41, 56, 57));
    EXPECT_EQ(m_tiles->tile(57), m_tiles->tile(17));
    m_document.undo();
    EXPECT_EQ(m_tiles->tile(57), TileBytes{});
    EXPECT_TRUE(m_document.canUndo());
}

TEST_F(TileDocumentTest, PastingTheSameTilesAgainSelectsThemAndIsNoStep) {
    m_document.paste({1, 1, {TileBytes{}}});
    EXPECT_THAT(m_watcher.take(), IsEmpty());
    EXPECT_EQ(m_document.selection(), TileSelection(0, 0));
    EXPECT_FALSE(m_document.canUndo());
}

TEST_F(TileDocumentTest, WhatIsUndoneOrRedoneOutOfSightIsSelected) {
    m_document.fill(0, 0, 3);
    m_document.undo();
    EXPECT_THAT(m_watcher.formerSelections, IsEmpty());
    m_document.selectBlock(40, 40);
    m_document.redo();
    EXPECT_EQ(m_document.selection(), TileSelection(0, 17));
    m_document.selectBlock(16, 40);
    m_watcher.formerSelections.clear();
    m_document.undo();
    EXPECT_THAT(m_watcher.formerSelections, ElementsAre(TileSelection(16, 40)));
    EXPECT_EQ(m_document.selection(), TileSelection(0, 17));
}

} // namespace
} // namespace kestrel::test
