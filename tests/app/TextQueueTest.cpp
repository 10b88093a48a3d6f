// SPDX-License-Identifier: MIT
#include "app/TextQueue.h"

#include <gtest/gtest.h>
#include <QStringList>

namespace kestrel {

namespace {

QStringList slices(const QString& text, qsizetype limit) {
    TextQueue queue;
    queue.add(text);
    QStringList taken;
    while (!queue.isEmpty()) {
        taken.append(queue.takeSlice(limit));
    }
    return taken;
}

TEST(TextQueue, GivesTextsInTheOrderInWhichTheyCameIn) {
    TextQueue queue;
    queue.add(QStringLiteral("one"));
    queue.add(QString());
    queue.add(QStringLiteral("two"));
    EXPECT_EQ(queue.takeSlice(100), QStringLiteral("one"));
    EXPECT_EQ(queue.takeSlice(100), QStringLiteral("two"));
    EXPECT_TRUE(queue.isEmpty());
    EXPECT_EQ(queue.takeSlice(100), QString());
}

TEST(TextQueue, EndsASliceBehindALineBreakWhereThereIsOne) {
    EXPECT_EQ(slices(QStringLiteral("ab\ncd\nefghijkl"), 4),
              (QStringList{QStringLiteral("ab\n"), QStringLiteral("cd\n"), QStringLiteral("efgh"),
                           QStringLiteral("ijkl")}));
}

TEST(TextQueue, NeverSplitsASurrogatePairOrALineEnd) {
    const QString pair = QString::fromUtf8("\xf0\x9f\x98\x80");
    EXPECT_EQ(slices(QStringLiteral("a") + pair + QStringLiteral("b"), 2),
              (QStringList{QStringLiteral("a"), pair, QStringLiteral("b")}));
    EXPECT_EQ(slices(QStringLiteral("ab\r\ncd"), 3),
              (QStringList{QStringLiteral("ab"), QStringLiteral("\r\n"), QStringLiteral("cd")}));
    EXPECT_EQ(slices(pair + pair, 1), (QStringList{pair, pair}));
}

TEST(TextQueue, LosesNothingWhateverTheLimit) {
    QString text;
    for (int i = 0; i < 500; ++i) {
        text += QString::number(i) + QString::fromUtf8(i % 7 == 0 ? "\r\n" : "\xf0\x9f\x8e\xae");
    }
    for (qsizetype limit = 1; limit < 40; ++limit) {
        EXPECT_EQ(slices(text, limit).join(QString()), text) << limit;
    }
}

TEST(TextQueue, ClearingDropsTheRestOfATextThatWasBegun) {
    TextQueue queue;
    queue.add(QStringLiteral("abcdef"));
    EXPECT_EQ(queue.takeSlice(2), QStringLiteral("ab"));
    queue.clear();
    queue.add(QStringLiteral("xyz"));
    EXPECT_EQ(queue.takeSlice(2), QStringLiteral("xy"));
}

} // namespace

} // namespace kestrel
