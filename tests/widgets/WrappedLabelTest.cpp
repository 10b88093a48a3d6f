// SPDX-License-Identifier: MIT
#include "widgets/WrappedLabel.h"

#include <gtest/gtest.h>
#include <QImage>

namespace kestrel {
namespace {

/// The lowest row in which something is painted.
int lowestInk(WrappedLabel& label) {
    QImage image(label.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    label.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    for (int y = image.height() - 1; y >= 0; --y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white)) {
                return y;
            }
        }
    }
    return -1;
}

TEST(WrappedLabel, TakesOneLineWhereItHasTheRoom) {
    WrappedLabel label;
    label.setText(QStringLiteral("A few words"));
    const QSize wanted = label.sizeHint();
    EXPECT_EQ(label.heightForWidth(wanted.width()), label.heightForWidth(10000));
}

TEST(WrappedLabel, BreaksAWordThatIsWiderThanItself) {
    WrappedLabel label;
    label.setText(QStringLiteral("averylongfoldersname").repeated(6));
    const int line = label.heightForWidth(10000);
    EXPECT_LT(label.minimumSizeHint().width(), 200);
    EXPECT_GE(label.heightForWidth(100), 5 * line);
    label.resize(100, label.heightForWidth(100));
    EXPECT_GT(lowestInk(label), label.height() - line) << "the last line is painted";
}

TEST(WrappedLabel, TakesNothingForMarkup) {
    WrappedLabel label;
    WrappedLabel plain;
    label.setText(QStringLiteral("<b>x</b>"));
    plain.setText(QStringLiteral("x"));
    EXPECT_GT(label.sizeHint().width(), plain.sizeHint().width());
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(WrappedLabel, KeepsLineBreaks) {
    WrappedLabel label;
    label.setText(QStringLiteral("one\ntwo"));
    const int both = label.heightForWidth(1000);
    label.setText(QStringLiteral("one"));
    EXPECT_GE(both, 2 * label.heightForWidth(1000) - 1);
}

} // namespace
} // namespace kestrel
