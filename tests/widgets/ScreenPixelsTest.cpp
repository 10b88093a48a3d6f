// SPDX-License-Identifier: MIT
#include "widgets/ScreenPixels.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPainter>

#include <cmath>

namespace kestrel::test {
namespace {

/// An image that stands for a screen of this scale factor.
QImage screenOf(double scale) {
    QImage image(90, 90, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    return image;
}

TEST(ScreenPixels, FittedRectanglesBeginAndEndAtDevicePixelsAndKeepSharedEdges) {
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        QImage image = screenOf(scale);
        const QPainter painter(&image);
        const QRectF left = fitted(painter, QRectF(3, 5, 7, 9));
        const QRectF right = fitted(painter, QRectF(10, 5, 7, 9));
        EXPECT_NEAR(left.right(), right.left(), 1e-9) << scale;
        for (const double edge : {left.left(), left.right(), left.top(), left.bottom()}) {
            EXPECT_NEAR(edge * scale, qRound(edge * scale), 1e-9) << scale;
        }
        EXPECT_LE(std::abs(left.left() - 3) * scale, 0.5 + 1e-9) << scale;
        EXPECT_LE(std::abs(left.bottom() - 14) * scale, 0.5 + 1e-9) << scale;
    }
}

TEST(ScreenPixels, FittedWidthsAreWholeDevicePixelsAndAtLeastOne) {
    QImage image = screenOf(1.5);
    const QPainter painter(&image);
    EXPECT_DOUBLE_EQ(fittedWidth(painter, 1) * 1.5, 2);
    EXPECT_DOUBLE_EQ(fittedWidth(painter, 2) * 1.5, 3);
    EXPECT_DOUBLE_EQ(fittedWidth(painter, 0.1) * 1.5, 1);
}

TEST(ScreenPixels, APainterThatCountsInThemFillsExactlyOne) {
    QImage image = screenOf(1.5);
    {
        QPainter painter(&image);
        countInScreenPixels(painter);
        painter.fillRect(QRect(7, 11, 1, 1), Qt::black);
    }
    int black = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            black += image.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
            EXPECT_TRUE(image.pixelColor(x, y) == QColor(Qt::white) || (x == 7 && y == 11));
        }
    }
    EXPECT_EQ(black, 1);
}

} // namespace
} // namespace kestrel::test
