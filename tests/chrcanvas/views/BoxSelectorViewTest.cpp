// SPDX-License-Identifier: MIT
#include "chrcanvas/data/GeneralNESColorPalette.h"
#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/GeneralColorSelector.h"
#include "chrcanvas/views/PaletteSelector.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

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

TEST(BoxSelectorView, TheKeyboardStopsAtTheEdges) {
    Shown<GeneralColorSelector> shown({std::make_shared<GeneralNESColorPalette>()});
    const auto after = [&shown](Qt::Key key) {
        QTest::keyClick(&shown.view, key);
        return shown.view.cursorBox().box;
    };
    EXPECT_EQ(after(Qt::Key_Left), 0);
    EXPECT_EQ(after(Qt::Key_Up), 0);
    EXPECT_EQ(after(Qt::Key_End), 15);
    EXPECT_EQ(after(Qt::Key_Right), 15);
    EXPECT_EQ(after(Qt::Key_Down), 31);
    EXPECT_EQ(after(Qt::Key_Down), 47);
    EXPECT_EQ(after(Qt::Key_Down), 63);
    EXPECT_EQ(after(Qt::Key_Down), 63);
    EXPECT_EQ(after(Qt::Key_Home), 48);
    EXPECT_TRUE(shown.delegate.calls.empty());
}

TEST(BoxSelectorView, KeysWithAModifierAreLeftToTheMenus) {
    Shown<ColorSelector> shown(blankPalettes(1));
    QTest::keyClick(&shown.view, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&shown.view, Qt::Key_Space, Qt::AltModifier);
    EXPECT_EQ(shown.view.cursorBox(), (PaletteBox{0, 0}));
    EXPECT_TRUE(shown.delegate.calls.empty());
}

TEST(BoxSelectorView, OtherButtonsAndTheRoomBesideTheBoxesChooseNothing) {
    Shown<ColorSelector> shown(blankPalettes(1));
    shown.view.resize(shown.view.sizeHint() + QSize(100, 100));
    const QPoint center = shown.view.boxRect({0, 1}).center();
    QTest::mouseClick(&shown.view, Qt::RightButton, {}, center);
    QTest::mouseClick(&shown.view, Qt::MiddleButton, {}, center);
    QTest::mouseClick(&shown.view, Qt::LeftButton, {},
                      QPoint(shown.view.width() - 2, shown.view.height() - 2));
    EXPECT_TRUE(shown.delegate.calls.empty());
}

TEST(BoxSelectorView, EachClickOfADoubleClickCounts) {
    Shown<ColorSelector> shown(blankPalettes(1));
    shown.click({0, 1});
    QTest::mouseDClick(&shown.view, Qt::LeftButton, {}, shown.view.boxRect({0, 1}).center());
    EXPECT_GE(shown.delegate.calls.size(), 2U);
}

TEST(BoxSelectorView, ReplacingAPaletteKeepsWhatIsPicked) {
    Shown<PaletteSelector> shown(blankPalettes(8));
    shown.view.selectPaletteNumber(2);
    shown.view.selectBoxNumber(3);
    const auto palette = NESPalette::fromData("\x01\x02\x03\x04");
    EXPECT_TRUE(shown.view.setPalette(2, palette));
    EXPECT_EQ(shown.view.paletteSelected(), palette);
    EXPECT_TRUE(shown.view.update(1, palette));
    EXPECT_EQ(shown.view.palettes()[1], palette);
    EXPECT_FALSE(shown.view.update(8, palette));
    EXPECT_FALSE(shown.view.update(-1, palette));
    EXPECT_FALSE(shown.view.update(0, nullptr));
    EXPECT_EQ(shown.view.selectedPaletteNumber(), 2);
    EXPECT_EQ(shown.view.selectedBox(), 3);
}

TEST(BoxSelectorView, APaletteThatIsMissingIsLeftOut) {
    Shown<PaletteSelector> shown({nullptr, std::make_shared<NESPalette>(), nullptr});
    EXPECT_EQ(shown.view.palettes().size(), 1U);
    EXPECT_NE(shown.view.paletteSelected(), nullptr);
}

TEST(BoxSelectorView, AStartingBoxIsMarkedWhenPalettesAreSet) {
    Shown<GeneralColorSelector> shown;
    shown.view.setStartingBox(0x21);
    shown.view.setPalettes({std::make_shared<GeneralNESColorPalette>()});
    EXPECT_EQ(shown.view.selectedBox(), 0x21);
    shown.view.setStartingBox(64);
    shown.view.setPalettes({std::make_shared<GeneralNESColorPalette>()});
    EXPECT_EQ(shown.view.selectedBox(), 0);
}

TEST(BoxSelectorView, BoxesShrinkToTheWidthAndTheirHeightFollows) {
    Shown<GeneralColorSelector> shown({std::make_shared<GeneralNESColorPalette>()});
    const QRect large = shown.view.boxRect({0, 63});
    const int width = shown.view.minimumSizeHint().width();
    shown.view.resize(width, shown.view.heightForWidth(width));
    const QRect small = shown.view.boxRect({0, 63});
    EXPECT_LT(small.width(), large.width());
    EXPECT_EQ(small.width(), small.height());
    EXPECT_TRUE(shown.view.rect().contains(small));
    shown.click({0, 63});
    EXPECT_EQ(shown.delegate.calls, Calls{"palette 0 box 63 at 15,3 mark 0/63"});
}

/// What the tooltip of a box says.
QString toolTip(BoxSelectorView& view, PaletteBox box) {
    const QPoint point = view.boxRect(box).center();
    QHelpEvent event(QEvent::ToolTip, point, view.mapToGlobal(point));
    QApplication::sendEvent(&view, &event);
    return QToolTip::text();
}

TEST(BoxSelectorView, TooltipsGiveIndexPlaceAndWhatToKnowOfBlacks) {
    Shown<GeneralColorSelector> shown({std::make_shared<GeneralNESColorPalette>()});
    EXPECT_EQ(toolTip(shown.view, {0, 0x2A}), QStringLiteral("Index $2A, row 2, column 10"));
    EXPECT_EQ(toolTip(shown.view, {0, 0x0D}),
              QStringLiteral("Index $0D, row 0, column 13 – below black: avoid"));
    EXPECT_EQ(toolTip(shown.view, {0, 0x0F}),
              QStringLiteral("Index $0F, row 0, column 15 – the usual black"));
    for (const int black : {0x0E, 0x1D, 0x1E, 0x1F, 0x2E, 0x2F, 0x3E, 0x3F}) {
        EXPECT_TRUE(toolTip(shown.view, {0, black}).endsWith(u" – black, the same as $0F"))
            << black;
    }
    for (const int grey : {0x00, 0x10, 0x20, 0x30, 0x2D, 0x3D}) {
        EXPECT_FALSE(toolTip(shown.view, {0, grey}).contains(u'–')) << grey;
    }
}

TEST(PaletteSelector, SaysOfEachBoxWhoseItIsAndHowItIsStored) {
    Palettes palettes = blankPalettes(8);
    palettes[5] = NESPalette::fromData("\x56\x0D\x30\x4D");
    Shown<PaletteSelector> shown(palettes);
    EXPECT_EQ(toolTip(shown.view, {0, 3}),
              QStringLiteral("Palette 0 (background 0), colour 3 of 4, index $00"));
    EXPECT_EQ(toolTip(shown.view, {5, 0}),
              QStringLiteral("Palette 5 (sprite 1), colour 0 of 4, index $16 (stored as $56)"));
    EXPECT_EQ(toolTip(shown.view, {5, 3}), QStringLiteral("Palette 5 (sprite 1), colour 3 of 4, "
                                                          "index $0D (stored as $4D) – below "
                                                          "black: avoid"));
    EXPECT_TRUE(shown.view.boxDescription({8, 0}).isEmpty());
}

} // namespace
} // namespace kestrel::test
