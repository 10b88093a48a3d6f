// SPDX-License-Identifier: MIT
#include "graphics/PaletteHistory.h"

#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/NESPalette.h"
#include "graphics/PaletteText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

ColorChange change(const std::shared_ptr<PaletteProtocol>& palette, std::size_t index,
                   std::uint8_t key) {
    const ColorEntry before = palette->entry(index);
    palette->setEntry(index, masterColor(key));
    return {palette, index, before, palette->entry(index)};
}

TEST(PaletteHistory, AStepThatChangedNothingIsNone) {
    const auto palette = std::make_shared<NESPalette>();
    PaletteHistory history;
    history.add({});
    history.add({change(palette, 1, 0)});
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
}

TEST(PaletteHistory, AStepOfSeveralChangesIsUndoneAsOne) {
    const auto palette = std::make_shared<NESPalette>();
    PaletteHistory history;
    history.add({change(palette, 1, 5), change(palette, 1, 6), change(palette, 2, 7)});
    history.undo();
    EXPECT_EQ(paletteText(*palette), "$00,$00,$00,$00");
    EXPECT_FALSE(history.canUndo());
    history.redo();
    EXPECT_EQ(paletteText(*palette), "$00,$06,$07,$00");
    EXPECT_FALSE(history.canRedo());
}

TEST(PaletteHistory, ANewStepForgetsWhatWasUndone) {
    const auto palette = std::make_shared<NESPalette>();
    PaletteHistory history;
    history.add({change(palette, 0, 5)});
    history.add({change(palette, 0, 6)});
    history.undo();
    history.add({change(palette, 3, 9)});
    EXPECT_FALSE(history.canRedo());
    history.undo();
    EXPECT_EQ(paletteText(*palette), "$05,$00,$00,$00");
    history.clear();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
}

TEST(PaletteHistory, AnySequenceUndoneGivesTheFirstBytesAndRedoneTheLast) {
    std::mt19937 random(7);
    const auto number = [&random](unsigned below) { return random() % below; };
    for (int round = 0; round < 50; ++round) {
        const auto first = NESPalette::fromData("\x0F\x96\x27\xFF");
        const auto second = NESPalette::fromData("\x01\x02\x43\x04");
        const auto text = [&] { return paletteText(*first) + paletteText(*second); };
        const std::string start = text();
        PaletteHistory history;
        for (int step = 0; step < 40; ++step) {
            if (history.canUndo() && number(4) == 0) {
                history.undo();
            }
            PaletteHistory::Step changes;
            for (auto count = number(3) + 1; count > 0; --count) {
                changes.push_back(change(number(2) == 0 ? first : second, number(4),
                                         static_cast<std::uint8_t>(number(256))));
            }
            history.add(changes);
        }
        const std::string end = text();
        while (history.canUndo()) {
            history.undo();
        }
        EXPECT_EQ(text(), start);
        while (history.canRedo()) {
            history.redo();
        }
        EXPECT_EQ(text(), end);
    }
}

} // namespace
} // namespace kestrel::test
