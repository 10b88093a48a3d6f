// SPDX-License-Identifier: MIT
#include "chrcanvas/data/GeneralNESColorPalette.h"
#include "chrcanvas/data/MasterColors.h"
#include "graphics/PaletteEditorController.h"
#include "graphics/RecordingSelector.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using Calls = std::vector<std::string>;

/// The bytes 0 to 31: each entry of the eight palettes is another colour.
std::string countingFile() {
    std::string data(32, '\0');
    std::iota(data.begin(), data.end(), '\0');
    return data;
}

/// A selector of the library that belongs to no view.
class LooseSelector : public ColorSelector {
public:
    BoxSelectorView* owner() override { return nullptr; }
};

/// The pane with views that write down what it asks of them.
class PaletteEditorSequence : public ::testing::Test {
protected:
    void SetUp() override {
        pane.colorSelector = &colors;
        pane.paletteSelector = &list;
        pane.generalSelectableColors = &grid;
        pane.viewDidLoad();
        pane.setFilePathForPalette(folder.write("game.pal", countingFile()));
        pane.update();
        calls.clear();
    }

    void chooseColor(int box) { pane.selected(colors, {0, box}, {box, 0}); }
    void choosePalette(int number, int box = 0) {
        pane.selected(list, {number, box}, {box, number});
    }
    void chooseMaster(int index) { pane.selected(grid, {0, index}, {index % 16, index / 16}); }

    std::string saved() {
        pane.saveFile();
        return contentOf(folder.path() / "game.pal");
    }

    TemporaryFolder folder;
    LogCapture log;
    Calls calls;
    PaletteEditorController pane;
    RecordingSelector<ColorSelector> colors{"colors", calls};
    RecordingSelector<PaletteSelector> list{"list", calls};
    RecordingSelector<GeneralColorSelector> grid{"grid", calls};
};

TEST_F(PaletteEditorSequence, LoadingTheViewTakesTheDelegatesAndFillsTheGrid) {
    grid.setDelegate(nullptr);
    grid.setStartingBox(7);
    calls.clear();
    pane.viewDidLoad();
    EXPECT_EQ(calls, Calls{"grid palettes 1"});
    EXPECT_EQ(grid.startingBox(), 0);
    EXPECT_EQ(grid.selectedBox(), 0);
    EXPECT_EQ(grid.paletteSelected()->count(), 64U);
    EXPECT_EQ(colors.delegate(), &pane);
    EXPECT_EQ(list.delegate(), &pane);
    EXPECT_EQ(grid.delegate(), &pane);
    EXPECT_EQ(pane.palette().color(QPalette::Window), QColor(Qt::white));
}

TEST_F(PaletteEditorSequence, UpdatingFillsBothSelectorsAndRedrawsTheListFirst) {
    pane.update();
    EXPECT_EQ(calls,
              (Calls{"colors palettes 1", "list palettes 8", "list redraw", "colors redraw"}));
    EXPECT_EQ(colors.palettes()[0], list.palettes()[0]);
    EXPECT_EQ(list.palettes()[7]->entry(3).key, 31);
}

TEST_F(PaletteEditorSequence, APaletteListThatIsNotOfEightShowsNothingNew) {
    pane.setFilePathForPalette(folder.path() / "missing.pal");
    pane.palettes.pop_back();
    pane.update();
    EXPECT_TRUE(calls.empty());
    pane.palettes.clear();
    pane.update();
    EXPECT_TRUE(calls.empty());
    pane.saveFile();
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "missing.pal"));
}

TEST_F(PaletteEditorSequence, AColourChosenMarksTheBoxInTheListAndThenInTheSelector) {
    chooseColor(2);
    EXPECT_EQ(calls, (Calls{"list select box 2", "colors select box 2"}));
    EXPECT_EQ(list.selectedBox(), 2);
    EXPECT_EQ(colors.selectedBox(), 2);
}

TEST_F(PaletteEditorSequence, APaletteChosenIsCopiedMarkedAndRedrawn) {
    choosePalette(3, 1);
    EXPECT_EQ(calls, (Calls{"colors palettes[0]", "list select palette 3", "colors redraw"}));
    EXPECT_EQ(colors.paletteSelected(), list.palettes()[3]);
    EXPECT_EQ(colors.paletteSelected(), pane.palettes[3]);
    EXPECT_EQ(pane.previouslySetSelectablePalette, 3);
}

TEST_F(PaletteEditorSequence, ThePaletteThatIsInTheColourSelectorIsNotCopiedAgain) {
    choosePalette(0);
    EXPECT_EQ(calls, (Calls{"list select palette 0", "colors redraw"}));
    choosePalette(5);
    calls.clear();
    choosePalette(5);
    EXPECT_EQ(calls, (Calls{"list select palette 5", "colors redraw"}));
}

TEST_F(PaletteEditorSequence, TheFirstChoiceInTheGridOnlySetsTheFlag) {
    EXPECT_FALSE(pane.initializedGeneralColors);
    chooseMaster(0x2A);
    EXPECT_EQ(calls,
              (Calls{"list update 0 with 0 1 2 3", "colors update 0 with 0 1 2 3", "list redraw"}));
    EXPECT_TRUE(pane.initializedGeneralColors);
    EXPECT_EQ(saved(), countingFile());
}

TEST_F(PaletteEditorSequence, EveryLaterChoiceWritesTheColourAndUpdatesTheListFirst) {
    chooseMaster(0);
    choosePalette(3);
    chooseColor(2);
    calls.clear();
    chooseMaster(0x2A);
    EXPECT_EQ(calls, (Calls{"list update 3 with 12 13 42 15", "colors update 0 with 12 13 42 15",
                            "list redraw"}));
    std::string expected = countingFile();
    expected[14] = '\x2A';
    EXPECT_EQ(saved(), expected);
}

TEST_F(PaletteEditorSequence, ThePaletteNumberIsNotResetByAnotherFile) {
    chooseMaster(0);
    choosePalette(3);
    pane.setFilePathForPalette(folder.write("other.pal", std::string(32, '\x0F')));
    pane.update();
    EXPECT_EQ(pane.previouslySetSelectablePalette, 3);
    EXPECT_EQ(list.selectedPaletteNumber(), 0);
    calls.clear();
    choosePalette(3);
    EXPECT_EQ(calls, (Calls{"list select palette 3", "colors redraw"}));
    EXPECT_EQ(colors.paletteSelected(), pane.palettes[0]);

    // So a colour chosen now goes into both.
    chooseMaster(0x16);
    pane.saveFile();
    std::string expected(32, '\x0F');
    expected[0] = '\x16';
    expected[12] = '\x16';
    EXPECT_EQ(contentOf(folder.path() / "other.pal"), expected);
}

TEST_F(PaletteEditorSequence, TheFlagIsNotResetByAnotherFile) {
    chooseMaster(0);
    pane.setFilePathForPalette(folder.write("other.pal", std::string(32, '\x0F')));
    pane.update();
    EXPECT_TRUE(pane.initializedGeneralColors);
    chooseMaster(0x16);
    pane.saveFile();
    EXPECT_EQ(contentOf(folder.path() / "other.pal"), '\x16' + std::string(31, '\x0F'));
}

TEST_F(PaletteEditorSequence, ASelectorWithoutOwnerIsLogged) {
    LooseSelector loose;
    pane.selected(loose, {0, 1}, {1, 0});
    EXPECT_EQ(log.lines(), Calls{"Box selector delegate was not set properly"});
    EXPECT_TRUE(calls.empty());
}

TEST_F(PaletteEditorSequence, AMissingSelectorIsLogged) {
    pane.colorSelector = nullptr;
    choosePalette(1);
    pane.colorSelector = &colors;
    pane.paletteSelector = nullptr;
    chooseColor(1);
    pane.paletteSelector = &list;
    pane.generalSelectableColors = nullptr;
    chooseMaster(1);
    EXPECT_EQ(log.lines(), Calls(3, "Box selector delegate was not set properly"));
    EXPECT_TRUE(calls.empty());
    EXPECT_FALSE(pane.initializedGeneralColors);
}

TEST_F(PaletteEditorSequence, AnotherSelectorIsIgnored) {
    ColorSelector other;
    pane.selected(other, {0, 1}, {1, 0});
    EXPECT_TRUE(log.lines().empty());
    EXPECT_TRUE(calls.empty());
}

TEST_F(PaletteEditorSequence, AnIndexThatTheGridDoesNotHaveIsLogged) {
    for (const BoxPosition place : {BoxPosition{0, 4}, BoxPosition{-1, 0}, BoxPosition{15, 99}}) {
        pane.selected(grid, {0, 0}, place);
    }
    EXPECT_EQ(log.lines(), Calls(3, "Failed: selectedBoxSelectablePalette"));
    EXPECT_TRUE(calls.empty());
    EXPECT_FALSE(pane.initializedGeneralColors);
}

TEST_F(PaletteEditorSequence, AMissingPickedPaletteIsLogged) {
    for (BoxSelectorView* view : std::initializer_list<BoxSelectorView*>{&grid, &list, &colors}) {
        const Palettes former = view->palettes();
        view->setPalettes({});
        pane.selected(grid, {0, 3}, {3, 0});
        view->setPalettes(former);
    }
    EXPECT_EQ(log.lines(), Calls(3, "Failed: selectedBoxSelectablePalette"));
    EXPECT_FALSE(pane.initializedGeneralColors);
}

TEST_F(PaletteEditorSequence, APaletteThatTheListDoesNotHaveIsIgnored) {
    choosePalette(8);
    choosePalette(-1);
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(pane.previouslySetSelectablePalette, 0);
}

} // namespace
} // namespace kestrel::test
