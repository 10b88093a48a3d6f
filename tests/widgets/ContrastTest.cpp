// SPDX-License-Identifier: MIT
#include "widgets/Contrast.h"

#include <gtest/gtest.h>
#include <QColor>

#include <cmath>
#include <random>
#include <vector>

namespace kestrel::test {
namespace {

TEST(Contrast, LuminanceGoesFromBlackToWhiteByTheWeightsOfTheComponents) {
    EXPECT_DOUBLE_EQ(luminance(Qt::black), 0);
    EXPECT_NEAR(luminance(Qt::white), 1, 1e-12);
    EXPECT_NEAR(luminance(Qt::red), 0.2126, 1e-12);
    EXPECT_NEAR(luminance(Qt::green), 0.7152, 1e-12);
    EXPECT_NEAR(luminance(Qt::blue), 0.0722, 1e-12);
    EXPECT_NEAR(luminance(QColor(0x80, 0x80, 0x80)), 0.21586, 1e-5);
}

TEST(Contrast, LuminanceIsLinearUpToTheBoundOfTheStandard) {
    const QColor below = QColor::fromRgbF(0.0402F, 0.0402F, 0.0402F);
    EXPECT_NEAR(luminance(below), below.redF() / 12.92, 1e-9);
    const QColor above = QColor::fromRgbF(0.0406F, 0.0406F, 0.0406F);
    EXPECT_GT(std::abs(luminance(above) - above.redF() / 12.92), 1e-9);
}

TEST(Contrast, OfBlackAndWhiteIsTwentyOneWhicheverComesFirst) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 1e-9);
    EXPECT_DOUBLE_EQ(contrast(Qt::red, Qt::red), 1);
    // The greys next to the ratio of 4.5 that text needs on white.
    EXPECT_GE(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.5);
    EXPECT_LT(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.5);
}

/// All greys and colours of any hue.
std::vector<QColor> backgrounds() {
    std::vector<QColor> colours;
    for (int level = 0; level <= 255; ++level) {
        colours.emplace_back(level, level, level);
    }
    std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same colours each time
    std::uniform_int_distribution<int> component(0, 255);
    for (int i = 0; i < 4000; ++i) {
        const int red = component(random);
        const int green = component(random);
        colours.emplace_back(red, green, component(random));
    }
    return colours;
}

TEST(Contrast, RedIsReadAndIsARedOnEveryBackground) {
    for (const QColor& background : backgrounds()) {
        const QColor red = readableRed(background);
        EXPECT_GE(contrast(red, background), 4.5) << background.name().toStdString();
        EXPECT_EQ(red.green(), red.blue()) << background.name().toStdString();
        EXPECT_GT(red.red(), red.green()) << background.name().toStdString();
    }
}

TEST(Contrast, RedIsAFullOneOnTheUsualBackgrounds) {
    for (const QColor& background :
         {QColor(Qt::white), QColor(0xef, 0xef, 0xef), QColor(0x1e, 0x1e, 0x1e),
          QColor(0x2b, 0x30, 0x3b), QColor(Qt::black)}) {
        const QColor red = readableRed(background);
        EXPECT_GT(red.red(), red.green() + 140) << background.name().toStdString();
    }
}

TEST(Contrast, AReadableColourIsItselfOrTheNearestThatCanBeRead) {
    for (const QColor& background : backgrounds()) {
        const QColor grey = readable(Qt::darkGray, background);
        EXPECT_GE(contrast(grey, background), 4.5) << background.name().toStdString();
        EXPECT_EQ(grey.red(), grey.green());
        EXPECT_EQ(grey.red(), grey.blue());
        if (contrast(QColor(Qt::darkGray), background) >= 4.5) {
            EXPECT_EQ(grey, QColor(Qt::darkGray)) << background.name().toStdString();
            continue;
        }
        const int back = grey.red() < 0x80 ? 1 : -1;
        const int before = grey.red() + back;
        EXPECT_LT(contrast(QColor(before, before, before), background), 4.5)
            << background.name().toStdString();
    }
}

} // namespace
} // namespace kestrel::test
