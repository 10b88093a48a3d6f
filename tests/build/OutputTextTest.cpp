// SPDX-License-Identifier: MIT
#include "build/OutputText.h"

#include "build/QtText.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

/// The text of `bytes` when they come in pieces of `size`.
std::optional<QString> inPieces(const QByteArray& bytes, qsizetype size) {
    OutputText output;
    for (qsizetype start = 0; start < bytes.size(); start += size) {
        output.append(QByteArrayView(bytes).sliced(start, qMin(size, bytes.size() - start)));
    }
    return output.take();
}

TEST(OutputText, OfNothingIsAnEmptyText) {
    OutputText output;
    EXPECT_EQ(output.take(), QString());
}

TEST(OutputText, PutsCharactersTogetherThatAreSplitBetweenPieces) {
    const QString text = QStringLiteral("aé€\U0001F680z");
    for (qsizetype size = 1; size <= 11; ++size) {
        EXPECT_EQ(inPieces(text.toUtf8(), size), text) << size;
    }
}

TEST(OutputText, IsNothingWhenAnyByteIsWrongHoweverItIsSplit) {
    for (const char* bytes : {"good \xff bad", "\x80", "\xc3(", "\xc0\xaf", "\xed\xa0\x80",
                              "\xf5\x80\x80\x80", "\xe2\x82", "\xf0\x9f\x9a", "ok\xc3"}) {
        for (qsizetype size = 1; size <= 4; ++size) {
            EXPECT_FALSE(inPieces(bytes, size)) << bytes << " by " << size;
        }
    }
}

TEST(OutputText, StaysNothingWhateverFollowsAWrongByte) {
    OutputText output;
    output.append("\xff");
    output.append("good");
    EXPECT_FALSE(output.take());
}

TEST(OutputText, KeepsNulBytesAndByteOrderMarksAsCharacters) {
    const QByteArray bytes("\xef\xbb\xbf"
                           "a\0"
                           "b\xef\xbb\xbf",
                           9);
    EXPECT_EQ(inPieces(bytes, 3), QStringLiteral("\ufeffa\u0000b\ufeff"));
}

TEST(OutputText, IsGivenOnce) {
    OutputText output;
    output.append("text");
    EXPECT_EQ(output.take(), QStringLiteral("text"));
    EXPECT_EQ(output.take(), QString());
}

TEST(QtText, OfAPathIsNothingWhenItIsNotUtf8) {
    EXPECT_EQ(textFromPath("/tmp/ä"), QStringLiteral("/tmp/ä"));
    EXPECT_FALSE(textFromPath("/tmp/\xe4"));
}

} // namespace
} // namespace kestrel
