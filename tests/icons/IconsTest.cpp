// SPDX-License-Identifier: MIT
#include "icons/Icons.h"

#include <gtest/gtest.h>
#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QString>

#include <algorithm>
#include <cmath>

namespace kestrel {
namespace {

constexpr const char* Names[] = {
    "consoleNES", "createNewASMFileIcon", "createNewGraphicsIcon", "createNewPaletteIcon",
    "kestrel",    "navigationFile",       "navigationGroup",       "navigationProject",
};

/// Relative luminance of an sRGB colour (W3C, "Web Content Accessibility Guidelines").
double luminance(const QColor& colour) {
    const auto channel = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(colour.redF()) + 0.7152 * channel(colour.greenF()) +
           0.0722 * channel(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double lighter = std::max(luminance(one), luminance(other));
    const double darker = std::min(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

/// Of the pixels of the icon's square, the share that stands out from `background` by 3 to 1.
double visibleShare(const QIcon& icon, int size, const QColor& background) {
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(background);
    QPainter painter(&image);
    icon.paint(&painter, 0, 0, size, size);
    painter.end();
    int visible = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            visible += contrast(image.pixelColor(x, y), background) >= 3.0 ? 1 : 0;
        }
    }
    return static_cast<double>(visible) / (size * size);
}

class Icon : public ::testing::TestWithParam<const char*> {
protected:
    QIcon icon() const { return iconNamed(QString::fromLatin1(GetParam())); }
};

TEST_P(Icon, StandsOutOnLightAndOnDarkInEverySize) {
    ASSERT_FALSE(icon().isNull());
    EXPECT_EQ(icon().pixmap(64, 64).size(), QSize(64, 64));
    for (const int size : {16, 32, 64}) {
        EXPECT_GT(visibleShare(icon(), size, Qt::white), 0.15) << size;
        EXPECT_GT(visibleShare(icon(), size, QColor(0x2b, 0x2b, 0x2b)), 0.15) << size;
    }
}

TEST_P(Icon, LeavesItsCornersClear) {
    const QImage image = icon().pixmap(16, 16).toImage();
    EXPECT_LT(image.pixelColor(0, 0).alphaF(), 0.9);
    EXPECT_LT(image.pixelColor(15, 0).alphaF(), 0.9);
}

INSTANTIATE_TEST_SUITE_P(Every, Icon, ::testing::ValuesIn(Names),
                         [](const auto& one) { return one.param; });

TEST(Icons, ANameThatIsNotThereGivesANullIcon) {
    EXPECT_TRUE(iconNamed(QStringLiteral("noSuchIcon")).isNull());
    EXPECT_TRUE(iconNamed({}).isNull());
}

} // namespace
} // namespace kestrel
