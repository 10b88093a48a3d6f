// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileEditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TileEditorTest : public testing::Test {
protected:
    TileEditorTest() {
        m_editor.setTileData(m_tiles);
        m_editor.setSelectedTiles({0, 1, 16, 17});
    }

    int pixel(int x, int y) { return m_editor.valueAt(x, y).value(); }

    std::shared_ptr<TileData> m_tiles = std::make_shared<TileData>(std::size_t{64});
    TileEditor m_editor;
};

TEST_F(TileEditorTest, AStrokeJoinsItsSamplesWithoutGaps) {
    for (const auto& [x, y] : {std::pair(15, 15), {15, 3}, {3, 15}, {0, 7}, {1, 0}, {9, 8}}) {
        TileEditor editor;
        editor.setTileData(std::make_shared<TileData>(std::size_t{64}));
        editor.setSelectedTiles({0, 1, 16, 17});
        editor.beginStroke(4, 6, 3);
        editor.continueStroke(x, y);
        int painted = 0;
        for (int row = 0; row < 16; ++row) {
            for (int column = 0; column < 16; ++column) {
                painted += editor.valueAt(column, row) == 3 ? 1 : 0;
            }
        }
        EXPECT_EQ(editor.valueAt(4, 6), 3);
        EXPECT_EQ(editor.valueAt(x, y), 3);
        EXPECT_EQ(painted, std::max(std::abs(x - 4), std::abs(y - 6)) + 1) << x << ", " << y;
        // Each painted pixel but the first touches another one, so the line is in one piece.
        for (int row = 0; row < 16; ++row) {
            for (int column = 0; column < 16; ++column) {
                if (editor.valueAt(column, row) != 3) {
                    continue;
                }
                int neighbours = 0;
                for (int i = 0; i < 9; ++i) {
                    const bool other = i != 4;
                    neighbours +=
                        other && editor.valueAt(column + i % 3 - 1, row + i / 3 - 1) == 3 ? 1 : 0;
                }
                EXPECT_GE(neighbours, 1) << column << ", " << row;
            }
        }
    }
}

TEST_F(TileEditorTest, AStrokeTellsOnlyTheTilesThatChanged) {
    EXPECT_THAT(m_editor.beginStroke(2, 2, 1), ElementsAre(0));
    EXPECT_THAT(m_editor.continueStroke(13, 2), ElementsAre(0, 1));
    EXPECT_THAT(m_editor.continueStroke(13, 3), ElementsAre(1));
    EXPECT_THAT(m_editor.continueStroke(13, 2), IsEmpty());
    EXPECT_THAT(m_editor.continueStroke(13, 9), ElementsAre(1, 17));
    m_editor.endStroke();
    EXPECT_THAT(m_editor.undo(), ElementsAre(0, 1, 17));
    EXPECT_EQ(m_tiles->toData(), std::string(1024, '\0'));
}

TEST_F(TileEditorTest, AStrokeOverWhatHasItsColourIsNoStep) {
    EXPECT_THAT(m_editor.beginStroke(2, 2, 0), IsEmpty());
    m_editor.continueStroke(9, 9);
    m_editor.endStroke();
    EXPECT_FALSE(m_editor.canUndo());
}

TEST_F(TileEditorTest, AStrokeMayLeaveTheTilesAndComeBack) {
    m_editor.setSelectedTiles({17});
    EXPECT_THAT(m_editor.beginStroke(-1, -1, 2), IsEmpty());
    EXPECT_THAT(m_editor.continueStroke(9, 9), ElementsAre(17));
    EXPECT_THAT(m_editor.continueStroke(7, 0), ElementsAre(17));
    m_editor.endStroke();
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(pixel(i, i), 2);
    }
    for (const int other : {0, 1, 16, 18, 33}) {
        EXPECT_EQ(m_tiles->tile(static_cast<std::size_t>(other)), TileBytes{}) << other;
    }
}

TEST_F(TileEditorTest, WhileAStrokeIsDrawnNothingElseEdits) {
    m_editor.beginStroke(0, 0, 1);
    EXPECT_THAT(m_editor.transform(TileTransformation::clear), IsEmpty());
    EXPECT_THAT(m_editor.fill(5, 5, 2), IsEmpty());
    EXPECT_THAT(m_editor.undo(), IsEmpty());
    EXPECT_THAT(m_editor.carryOut({{9, {}, {1}}}), IsEmpty());
    EXPECT_FALSE(m_editor.canTransform(TileTransformation::clear));
    m_editor.endStroke();
    EXPECT_TRUE(m_editor.canUndo());
}

TEST_F(TileEditorTest, OtherTilesForgetTheHistoryAndTheStroke) {
    m_editor.fill(0, 0, 1);
    m_editor.beginStroke(3, 3, 2);
    m_editor.setTileData(std::make_shared<TileData>(std::size_t{1}));
    EXPECT_FALSE(m_editor.isDrawing());
    EXPECT_FALSE(m_editor.canUndo());
    EXPECT_THAT(m_editor.shape().tiles(), ElementsAre(0));
    EXPECT_THAT(m_editor.selectedTiles(), ElementsAre(0, 1, 16, 17));
}

TEST_F(TileEditorTest, SelectingOtherTilesEndsTheStrokeAsAStep) {
    m_editor.beginStroke(3, 3, 2);
    m_editor.setSelectedTiles({40});
    EXPECT_FALSE(m_editor.isDrawing());
    EXPECT_THAT(m_editor.undo(), ElementsAre(0));
}

TEST_F(TileEditorTest, WithoutTilesItDoesNothing) {
    m_editor.setTileData(nullptr);
    EXPECT_THAT(m_editor.beginStroke(0, 0, 1), IsEmpty());
    EXPECT_THAT(m_editor.continueStroke(3, 3), IsEmpty());
    EXPECT_THAT(m_editor.fill(0, 0, 1), IsEmpty());
    EXPECT_THAT(m_editor.transform(TileTransformation::clear), IsEmpty());
    EXPECT_THAT(m_editor.carryOut({{0, {}, {1}}}), IsEmpty());
    EXPECT_EQ(m_editor.valueAt(0, 0), std::nullopt);
}

TEST_F(TileEditorTest, LeavesOutChangesOfTilesThatAreNotThere) {
    EXPECT_THAT(m_editor.carryOut({{64, {}, {1}}, {63, {}, {1}}, {62, {}, {}}}), ElementsAre(63));
    EXPECT_THAT(m_editor.undo(), ElementsAre(63));
}

} // namespace
} // namespace kestrel::test
