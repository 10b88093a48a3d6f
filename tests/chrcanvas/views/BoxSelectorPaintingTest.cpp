// SPDX-License-Identifier: MIT
#include "chrcanvas/data/GeneralNESColorPalette.h"
#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/views/BoxPainter.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/GeneralColorSelector.h"
#include "chrcanvas/views/PaletteSelector.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPaintEvent>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

/// Collects which part of a widget is painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            m_region += static_cast<QPaintEvent*>(event)->region();
        }
        return QObject::eventFilter(watched, event);
    }

    /// What was painted since the last call.
    QRegion painted() {
        QApplication::processEvents();
        return std::exchange(m_region, QRegion());
    }

private:
    QRegion m_region;
};

void makeWhiteAndShow(QWidget& view) {
    QPalette palette(Qt::black, Qt::white);
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    view.setPalette(palette);
    view.resize(view.sizeHint());
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.clearFocus();
    QApplication::processEvents();
}

/// The view as a screen with this many pixels a unit shows it.
QImage imageOf(QWidget& view, double scale) {
    QImage image((QSizeF(view.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    view.render(&image);
    return image;
}

std::shared_ptr<NESPalette> evenPalette(std::uint8_t key) {
    return NESPalette::fromData(std::string(4, static_cast<char>(key)));
}

QColor colorOf(std::uint8_t key) {
    const RgbColor color = masterColor(key).color;
    return {color.red, color.green, color.blue};
}

/// By how many levels two pixels differ when hue does not count.
int greyDifference(QRgb a, QRgb b) {
    return std::abs(qGray(a) - qGray(b));
}

double luminance(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) +
           0.0722 * part(color.blueF());
}

TEST(BoxSelectorPainting, TheIndexIsReadableOnEveryMasterColour) {
    for (std::uint8_t key = 0; key < MasterColorCount; ++key) {
        const double box = luminance(colorOf(key));
        const double text = luminance(BoxPainter::textColorOn(masterColor(key).color));
        const double contrast = (std::max(box, text) + 0.05) / (std::min(box, text) + 0.05);
        // What the Web Content Accessibility Guidelines ask of text.
        EXPECT_GE(contrast, 4.5) << int(key);
    }
}

TEST(BoxSelectorPainting, EveryMasterColourIsShownWithItsIndexOnIt) {
    GeneralColorSelector view;
    view.setPalettes({std::make_shared<GeneralNESColorPalette>()});
    makeWhiteAndShow(view);
    const QImage image = imageOf(view, 1);
    for (std::uint8_t key = 1; key < MasterColorCount; ++key) {
        const QRect box = view.boxRect({0, key});
        EXPECT_EQ(image.pixelColor(box.topLeft() + QPoint(3, 3)), colorOf(key)) << int(key);
        int textPixels = 0;
        const QRgb text = BoxPainter::textColorOn(masterColor(key).color).rgb();
        for (int y = box.top() + 4; y < box.bottom() - 4; ++y) {
            for (int x = box.left() + 4; x < box.right() - 4; ++x) {
                textPixels += greyDifference(image.pixel(x, y), text) < 60 ? 1 : 0;
            }
        }
        EXPECT_GE(textPixels, 12) << int(key);
        EXPECT_LT(textPixels, box.width() * box.height() / 3) << int(key);
    }
}

TEST(BoxSelectorPainting, NumbersInPlaceOfIndexesLeaveNothingOfTheIndexes) {
    const auto shown = [](std::uint8_t key, bool showsNumbers) {
        ColorSelector view;
        view.setShowsNumbers(showsNumbers);
        view.setPalettes({evenPalette(key)});
        makeWhiteAndShow(view);
        return imageOf(view, 1);
    };
    // Both are black, and only one is to be avoided.
    EXPECT_EQ(colorOf(0x0D), colorOf(0x0E));
    EXPECT_NE(shown(0x0D, false), shown(0x0E, false));
    EXPECT_EQ(shown(0x0D, true), shown(0x0E, true));
    EXPECT_NE(shown(0x0E, true), shown(0x0E, false));
}

TEST(BoxSelectorPainting, TheMarkIsAShapeOnEveryColour) {
    ColorSelector view;
    for (std::uint8_t key = 0; key < MasterColorCount; ++key) {
        view.setPalettes({evenPalette(key)});
        if (key == 0) {
            makeWhiteAndShow(view);
        }
        view.selectBoxNumber(1);
        const QImage image = imageOf(view, 1);
        constexpr int Gap = BoxGrid::Gap;
        const auto cell = [&](int box) {
            return image.copy(
                view.boxRect({0, box}).adjusted(-Gap / 2, -Gap / 2, Gap / 2, Gap / 2));
        };
        const QImage picked = cell(1);
        const QImage other = cell(3);
        int differing = 0;
        for (int y = 0; y < picked.height(); ++y) {
            for (int x = 0; x < picked.width(); ++x) {
                differing += greyDifference(picked.pixel(x, y), other.pixel(x, y)) > 100 ? 1 : 0;
            }
        }
        EXPECT_GT(differing, 2 * picked.width()) << int(key);
    }
}

TEST(BoxSelectorPainting, ThePickedPaletteHasAFrameAndAnArrow) {
    PaletteSelector view;
    view.setPalettes({evenPalette(0x30), evenPalette(0x30), evenPalette(0x30)});
    makeWhiteAndShow(view);
    view.selectPaletteNumber(1);
    const QImage image = imageOf(view, 1);
    const auto darkBefore = [&](int number) {
        int dark = 0;
        const QRect row = view.grid().paletteRect(number);
        for (int y = row.top(); y < row.bottom(); ++y) {
            for (int x = 0; x < 14; ++x) {
                dark += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
            }
        }
        return dark;
    };
    EXPECT_GT(darkBefore(1), 15);
    EXPECT_EQ(darkBefore(0), 0);
    EXPECT_EQ(darkBefore(2), 0);
    const auto frame = [&](int number) {
        return image.pixelColor(view.grid().paletteRect(number).topRight() + QPoint(2, 5));
    };
    EXPECT_EQ(frame(1), QColor(Qt::black));
    EXPECT_EQ(frame(0), QColor(Qt::white));
}

TEST(BoxSelectorPainting, EdgesAreCrispAtEveryScale) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        ColorSelector view;
        view.setPalettes({evenPalette(0x16)});
        makeWhiteAndShow(view);
        view.selectBoxNumber(0);
        const QImage image = imageOf(view, scale);
        // A line through the boxes that are not picked, above their text.
        const QRect first = view.boxRect({0, 1});
        const int y = static_cast<int>(std::lround((first.top() + 6) * scale));
        const int left = static_cast<int>(std::lround((first.left() + 4) * scale));
        std::set<QRgb> colors;
        int changes = 0;
        for (int x = left; x < image.width(); ++x) {
            colors.insert(image.pixel(x, y));
            changes += image.pixel(x, y) != image.pixel(x - 1, y) ? 1 : 0;
        }
        // Fill, edge and pane, and nothing between them.
        EXPECT_EQ(colors.size(), 3U) << scale;
        EXPECT_TRUE(colors.contains(colorOf(0x16).rgb())) << scale;
        EXPECT_TRUE(colors.contains(QColor(Qt::white).rgb())) << scale;
        // Out of the first, then four edges for each of two boxes.
        EXPECT_EQ(changes, 2 + 4 + 4) << scale;
    }
}

TEST(BoxSelectorPainting, NothingIsRepaintedThatDidNotChange) {
    PaletteSelector view;
    Palettes palettes;
    for (int number = 0; number < 8; ++number) {
        palettes.push_back(evenPalette(0x21));
    }
    view.setPalettes(palettes);
    makeWhiteAndShow(view);
    PaintWatch watch(view);
    watch.painted();

    view.redraw();
    view.update(3, palettes[3]);
    view.update(4, evenPalette(0x21));
    view.selectPaletteNumber(0);
    view.selectBoxNumber(0);
    EXPECT_TRUE(watch.painted().isEmpty());

    palettes[5]->setEntry(2, masterColor(0x16));
    EXPECT_TRUE(watch.painted().isEmpty());
    view.redraw();
    constexpr int Gap = BoxGrid::Gap;
    const QRect around = view.boxRect({5, 2}).adjusted(-Gap, -Gap, Gap, Gap);
    EXPECT_EQ(watch.painted(), QRegion(around));

    view.selectBoxNumber(3);
    const QRegion painted = watch.painted();
    EXPECT_TRUE(painted.contains(view.boxRect({0, 0}).center()));
    EXPECT_TRUE(painted.contains(view.boxRect({0, 3}).center()));
    EXPECT_FALSE(painted.contains(view.boxRect({0, 1}).center()));
    EXPECT_FALSE(painted.contains(view.boxRect({1, 0}).center()));
}

TEST(BoxSelectorPainting, APaletteThatWasChangedIsShownAtTheNextRedraw) {
    ColorSelector view;
    const auto palette = evenPalette(0x21);
    view.setPalettes({palette});
    makeWhiteAndShow(view);
    const QPoint inside = view.boxRect({0, 2}).topLeft() + QPoint(4, 4);
    palette->setEntry(2, masterColor(0x16));
    EXPECT_EQ(imageOf(view, 1).pixelColor(inside), colorOf(0x21));
    view.redraw();
    EXPECT_EQ(imageOf(view, 1).pixelColor(inside), colorOf(0x16));
}

TEST(BoxSelectorPainting, TheColourToBeAvoidedIsCrossedOut) {
    ColorSelector view;
    view.setPalettes({NESPalette::fromData("\x30\x0D\x0E\x0F")});
    makeWhiteAndShow(view);
    const QImage image = imageOf(view, 1);
    const auto longestLine = [&](int box) {
        const QRect rect = view.boxRect({0, box}).adjusted(4, 4, -4, -4);
        int longest = 0;
        for (int y = rect.top(); y < rect.bottom(); ++y) {
            int run = 0;
            for (int x = rect.left(); x < rect.right(); ++x) {
                run = qGray(image.pixel(x, y)) > 100 ? run + 1 : 0;
                longest = std::max(longest, run);
            }
        }
        return longest;
    };
    EXPECT_GT(longestLine(1), 15);
    EXPECT_LT(longestLine(3), 12);
}

} // namespace
} // namespace kestrel::test
