// SPDX-License-Identifier: MIT
#include "widgets/PathField.h"

#include "widgets/Contrast.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <algorithm>
#include <tuple>

namespace kestrel::test {
namespace {

/// A path field in a window with one that can be typed into.
class PathFieldTest : public testing::Test {
protected:
    PathFieldTest() {
        window.resize(400, 100);
        field.setGeometry(10, 10, 300, 24);
        field.setPath(QStringLiteral("/home/somebody/Kestrel/Game"));
        typed.setGeometry(10, 50, 300, 24);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void setColours(const QColor& text, const QColor& base, const QColor& back) {
        QPalette colours(text, back, back, back, back, text, text, base, back);
        colours.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
        window.setPalette(colours);
        QApplication::processEvents();
    }

    QImage picture() { return window.grab().toImage(); }

    QWidget window;
    PathField field{&window};
    QLineEdit typed{&window};
};

TEST_F(PathFieldTest, LooksLikeTheWindowAndNotLikeAFieldToTypeIntoInLightAndDark) {
    typed.setFocus();
    for (const auto& [text, base, back] :
         {std::tuple(QColor(Qt::black), QColor(Qt::white), QColor(0xef, 0xef, 0xef)),
          std::tuple(QColor(220, 220, 220), QColor(30, 30, 30), QColor(53, 53, 53))}) {
        setColours(text, base, back);
        const QImage image = picture();
        EXPECT_EQ(image.pixelColor(typed.geometry().center() + QPoint(100, 0)), base);
        for (const QPoint corner :
             {QPoint(0, 0), QPoint(299, 23), QPoint(290, 12), QPoint(150, 0)}) {
            EXPECT_EQ(image.pixelColor(field.pos() + corner), back)
                << corner.x() << ' ' << corner.y() << ' ' << back.name().toStdString();
        }
        double strongest = 1;
        for (int x = 0; x < 200; ++x) {
            for (int y = 0; y < field.height(); ++y) {
                strongest = std::max(strongest,
                                     contrast(image.pixelColor(field.pos() + QPoint(x, y)), back));
            }
        }
        EXPECT_GE(strongest, 4.5);
    }
}

TEST_F(PathFieldTest, ShowsThatItHasTheFocus) {
    setColours(Qt::black, Qt::white, QColor(0xef, 0xef, 0xef));
    typed.setFocus();
    const QImage without = picture();
    field.setFocus();
    const QColor line = picture().pixelColor(field.pos() + QPoint(150, 0));
    EXPECT_NE(line, without.pixelColor(field.pos() + QPoint(150, 0)));
    EXPECT_GE(contrast(line, QColor(0xef, 0xef, 0xef)), 3.0);
}

TEST_F(PathFieldTest, CanBeSelectedAndCopiedButNotTyped) {
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("x"));
    EXPECT_EQ(field.text(), QStringLiteral("/home/somebody/Kestrel/Game"));
    field.selectAll();
    field.copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("/home/somebody/Kestrel/Game"));
}

} // namespace
} // namespace kestrel::test
