// SPDX-License-Identifier: MIT
#include "widgets/Contrast.h"

#include <gtest/gtest.h>
#include <QColor>

#include <cmath>

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

} // namespace
} // namespace kestrel::test
