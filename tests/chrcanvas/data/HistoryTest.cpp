// SPDX-License-Identifier: MIT
#include "chrcanvas/data/History.h"

#include "chrcanvas/data/ColorChange.h"
#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/data/TileChange.h"
#include "chrcanvas/data/TilePicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct NumberChange {
    std::size_t place = 0;
    int before = 0;
    int after = 0;
};

/// Numbers that are edited, with their history.
class HistoryTest : public testing::Test {
protected:
    NumberChange put(std::size_t place, int value) {
        const NumberChange change{place, m_numbers.at(place), value};
        m_numbers.at(place) = value;
        return change;
    }

    auto putter() {
        m_put.clear();
        return [this](const NumberChange& change, int value) {
            m_numbers.at(change.place) = value;
            m_put.push_back(change.place);
        };
    }
    void undo() { m_history.undo(putter()); }
    void redo() { m_history.redo(putter()); }

    std::array<int, 8> m_numbers{};
    std::vector<std::size_t> m_put;
    History<NumberChange> m_history;
};

TEST_F(HistoryTest, UndoesAndRedoesOneStepAtATime) {
    m_history.record({put(1, 7), put(2, 8)});
    m_history.record({put(1, 9)});
    undo();
    EXPECT_THAT(m_put, ElementsAre(1));
    EXPECT_THAT(m_numbers, ElementsAre(0, 7, 8, 0, 0, 0, 0, 0));
    undo();
    EXPECT_THAT(m_put, ElementsAre(2, 1));
    EXPECT_THAT(m_numbers, testing::Each(0));
    EXPECT_FALSE(m_history.canUndo());
    redo();
    EXPECT_THAT(m_put, ElementsAre(1, 2));
    EXPECT_TRUE(m_history.canRedo());
    redo();
    EXPECT_THAT(m_numbers, ElementsAre(0, 9, 8, 0, 0, 0, 0, 0));
    EXPECT_FALSE(m_history.canRedo());
}

TEST_F(HistoryTest, WithoutAStepNothingIsPut) {
    undo();
    EXPECT_THAT(m_put, IsEmpty());
    m_history.record({put(0, 1)});
    redo();
    EXPECT_THAT(m_put, IsEmpty());
    EXPECT_TRUE(m_history.canUndo());
}

TEST_F(HistoryTest, AStepMayChangeOneThingMoreThanOnce) {
    m_history.record({put(1, 5), put(1, 6), put(2, 7)});
    undo();
    EXPECT_THAT(m_numbers, testing::Each(0));
    redo();
    EXPECT_THAT(m_numbers, ElementsAre(0, 6, 7, 0, 0, 0, 0, 0));
}

TEST_F(HistoryTest, AStepThatChangesNothingIsNone) {
    m_history.record({});
    m_history.record({put(0, 0)});
    EXPECT_FALSE(m_history.canUndo());
    m_history.record({put(0, 0), put(3, 1)});
    undo();
    EXPECT_THAT(m_put, ElementsAre(3));
}

TEST_F(HistoryTest, AStepThatChangesNothingLeavesWhatWasUndone) {
    m_history.record({put(0, 1)});
    undo();
    m_history.record({put(4, 0)});
    EXPECT_TRUE(m_history.canRedo());
}

TEST_F(HistoryTest, ANewStepForgetsWhatWasUndone) {
    m_history.record({put(0, 1)});
    m_history.record({put(0, 2)});
    undo();
    m_history.record({put(1, 3)});
    EXPECT_FALSE(m_history.canRedo());
    undo();
    undo();
    EXPECT_FALSE(m_history.canUndo());
    EXPECT_THAT(m_numbers, testing::Each(0));
}

TEST_F(HistoryTest, ForgetsTheOldestStepsAboveTheLimitButNeverTheLast) {
    m_history = History<NumberChange>(3);
    m_history.record({put(0, 1), put(1, 1)});
    m_history.record({put(2, 2)});
    m_history.record({put(3, 3)});
    undo();
    EXPECT_THAT(m_put, ElementsAre(3));
    undo();
    EXPECT_THAT(m_put, ElementsAre(2));
    EXPECT_FALSE(m_history.canUndo());
    m_history.record({put(4, 1), put(5, 1), put(6, 1), put(7, 1)});
    undo();
    EXPECT_THAT(m_put, ElementsAre(7, 6, 5, 4));
    EXPECT_FALSE(m_history.canUndo());
}

TEST_F(HistoryTest, WhatWasUndoneDoesNotCountForTheLimitOnceItIsForgotten) {
    m_history = History<NumberChange>(3);
    m_history.record({put(0, 1)});
    m_history.record({put(1, 1), put(2, 1)});
    undo();
    m_history.record({put(3, 1)});
    m_history.record({put(4, 1)});
    for (int steps = 0; steps < 3; ++steps) {
        EXPECT_TRUE(m_history.canUndo()) << steps;
        undo();
    }
    EXPECT_THAT(m_numbers, testing::Each(0));
}

TEST_F(HistoryTest, ClearedItHasNothingToUndoOrRedo) {
    m_history.record({put(0, 1)});
    m_history.record({put(0, 2)});
    undo();
    m_history.clear();
    EXPECT_FALSE(m_history.canUndo());
    EXPECT_FALSE(m_history.canRedo());
}

TEST(TileHistoryTest, AnyEditsUndoneGiveTheFirstBytesAndRedoneTheLast) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        TileData tiles(64);
        for (std::size_t number = 0; number < 64; ++number) {
            TileBytes bytes;
            bytes.fill(static_cast<std::uint8_t>(random()));
            tiles.setTile(number, bytes);
        }
        const auto put = [&tiles](const TileChange& change, const TileBytes& bytes) {
            tiles.setTile(change.number, bytes);
        };
        const auto first = tiles.toData();
        History<TileChange> history;
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
                history.undo(put);
            }
        }
        while (history.canRedo()) {
            history.redo(put);
        }
        const auto last = tiles.toData();
        ASSERT_TRUE(history.canUndo());
        while (history.canUndo()) {
            history.undo(put);
        }
        EXPECT_EQ(tiles.toData(), first);
        while (history.canRedo()) {
            history.redo(put);
        }
        EXPECT_EQ(tiles.toData(), last);
    }
}

TEST(PaletteHistoryTest, AnySequenceUndoneGivesTheFirstBytesAndRedoneTheLast) {
    std::mt19937 random(7);
    const auto number = [&random](unsigned below) { return random() % below; };
    const auto put = [](const ColorChange& change, const ColorEntry& entry) {
        change.palette->setEntry(change.index, entry);
    };
    for (int round = 0; round < 50; ++round) {
        const auto first = NESPalette::fromData("\x0F\x96\x27\xFF");
        const auto second = NESPalette::fromData("\x01\x02\x43\x04");
        const auto keys = [&] {
            std::vector<std::uint8_t> all;
            for (const auto& palette : {first, second}) {
                for (std::size_t index = 0; index < NESPalette::ColorCount; ++index) {
                    all.push_back(palette->entry(index).key);
                }
            }
            return all;
        };
        const auto change = [&]() -> ColorChange {
            const auto& palette = number(2) == 0 ? first : second;
            const std::size_t index = number(NESPalette::ColorCount);
            const ColorEntry before = palette->entry(index);
            palette->setEntry(index, masterColor(static_cast<std::uint8_t>(number(256))));
            return {palette, index, before, palette->entry(index)};
        };
        const auto start = keys();
        History<ColorChange> history;
        for (int step = 0; step < 40; ++step) {
            if (history.canUndo() && number(4) == 0) {
                history.undo(put);
            }
            std::vector<ColorChange> changes;
            for (auto count = number(3) + 1; count > 0; --count) {
                changes.push_back(change());
            }
            history.record(changes);
        }
        const auto end = keys();
        while (history.canUndo()) {
            history.undo(put);
        }
        EXPECT_EQ(keys(), start);
        while (history.canRedo()) {
            history.redo(put);
        }
        EXPECT_EQ(keys(), end);
    }
}

} // namespace
} // namespace kestrel::test
