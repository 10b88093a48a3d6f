#include "chrcanvas/ColorSelector.h"
#include "chrcanvas/GeneralColorSelector.h"
#include "chrcanvas/GeneralNESColorPalette.h"
#include "chrcanvas/MasterColors.h"
#include "chrcanvas/NESPalette.h"
#include "chrcanvas/PaletteSelector.h"

#include <gtest/gtest.h>
#include <QTest>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

/// Writes down what it is told, and where the selector's mark was at that moment.
class RecordingDelegate : public BoxSelectorDelegate {
public:
    std::vector<std::string> calls;
    BoxSelectorProtocol* sender = nullptr;

    void selected(BoxSelectorProtocol& boxSelector, PaletteBox palette,
                  BoxPosition boxSelected) override {
        sender = &boxSelector;
        calls.push_back("palette " + std::to_string(palette.number) + " box " +
                        std::to_string(palette.box) + " at " + std::to_string(boxSelected.x) + "," +
                        std::to_string(boxSelected.y) + " mark " +
                        std::to_string(boxSelector.selectedPaletteNumber()) + "/" +
                        std::to_string(boxSelector.selectedBox()));
    }
};

Palettes blankPalettes(int count) {
    Palettes palettes;
    for (int number = 0; number < count; ++number) {
        palettes.push_back(std::make_shared<NESPalette>());
    }
    return palettes;
}

template<class View> class Shown {
public:
    Shown() {
        view.setDelegate(&delegate);
        view.resize(view.sizeHint());
    }

    explicit Shown(Palettes palettes) {
        view.setDelegate(&delegate);
        view.setPalettes(std::move(palettes));
        view.resize(view.sizeHint());
        view.show();
    }

    void click(PaletteBox box) {
        QTest::mouseClick(&view, Qt::LeftButton, {}, view.boxRect(box).center());
    }

    RecordingDelegate delegate;
    View view;
};

using Calls = std::vector<std::string>;

TEST(BoxSelectorView, WithoutPalettesNothingIsPicked) {
    Shown<ColorSelector> shown;
    EXPECT_EQ(shown.view.paletteSelected(), nullptr);
    EXPECT_FALSE(shown.view.selectPaletteNumber(0));
    EXPECT_FALSE(shown.view.selectBoxNumber(0));
    EXPECT_FALSE(shown.view.update(0, std::make_shared<NESPalette>()));
    QTest::keyClick(&shown.view, Qt::Key_Space);
    QTest::mouseClick(&shown.view, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_TRUE(shown.delegate.calls.empty());
}

TEST(BoxSelectorView, SettingPalettesPicksTheFirstBoxOfTheFirst) {
    Shown<PaletteSelector> shown(blankPalettes(8));
    EXPECT_TRUE(shown.view.selectPaletteNumber(5));
    EXPECT_TRUE(shown.view.selectBoxNumber(3));
    EXPECT_EQ(shown.view.paletteSelected(), shown.view.palettes()[5]);

    const Palettes others = blankPalettes(8);
    shown.view.setPalettes(others);
    EXPECT_EQ(shown.view.selectedPaletteNumber(), 0);
    EXPECT_EQ(shown.view.selectedBox(), 0);
    EXPECT_EQ(shown.view.paletteSelected(), others[0]);
    EXPECT_TRUE(shown.delegate.calls.empty());
}

TEST(BoxSelectorView, AClickMovesTheMarkAndThenTells) {
    Shown<ColorSelector> shown(blankPalettes(1));
    shown.click({0, 2});
    EXPECT_EQ(shown.delegate.calls, Calls{"palette 0 box 2 at 2,0 mark 0/2"});
    EXPECT_EQ(shown.delegate.sender, &shown.view);
    EXPECT_EQ(shown.delegate.sender->owner(), &shown.view);
}

TEST(BoxSelectorView, SelectMovesTheMarkAndTellsNobody) {
    Shown<PaletteSelector> shown(blankPalettes(8));
    EXPECT_TRUE(shown.view.selectPaletteNumber(7));
    EXPECT_TRUE(shown.view.selectBoxNumber(1));
    EXPECT_FALSE(shown.view.selectPaletteNumber(8));
    EXPECT_FALSE(shown.view.selectPaletteNumber(-1));
    EXPECT_FALSE(shown.view.selectBoxNumber(4));
    EXPECT_FALSE(shown.view.selectBoxNumber(-1));
    EXPECT_EQ(shown.view.selectedPaletteNumber(), 7);
    EXPECT_EQ(shown.view.selectedBox(), 1);
    EXPECT_TRUE(shown.delegate.calls.empty());
}

TEST(PaletteSelector, AClickPicksThePaletteAndLeavesTheBox) {
    Shown<PaletteSelector> shown(blankPalettes(8));
    EXPECT_TRUE(shown.view.selectBoxNumber(1));
    shown.click({3, 2});
    EXPECT_EQ(shown.delegate.calls, Calls{"palette 3 box 2 at 2,3 mark 3/1"});
}

TEST(GeneralColorSelector, HasSixteenColoursARowInIndexOrder) {
    Shown<GeneralColorSelector> shown({std::make_shared<GeneralNESColorPalette>()});
    EXPECT_EQ(shown.view.boxesPerRow(), 16);
    shown.click({0, 0x2A});
    EXPECT_EQ(shown.delegate.calls, Calls{"palette 0 box 42 at 10,2 mark 0/42"});
    EXPECT_EQ(shown.view.boxRect({0, 0x10}).left(), shown.view.boxRect({0, 0x20}).left());
    EXPECT_TRUE(shown.view.boxRect({0, 64}).isEmpty());
}

TEST(BoxSelectorView, KeysMoveAFrameAndSpaceChooses) {
    Shown<GeneralColorSelector> shown({std::make_shared<GeneralNESColorPalette>()});
    for (const auto key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left}) {
        QTest::keyClick(&shown.view, key);
    }
    EXPECT_TRUE(shown.delegate.calls.empty());
    EXPECT_EQ(shown.view.selectedBox(), 0);
    QTest::keyClick(&shown.view, Qt::Key_Space);
    EXPECT_EQ(shown.delegate.calls, Calls{"palette 0 box 17 at 1,1 mark 0/17"});
}

} // namespace
} // namespace kestrel::test
