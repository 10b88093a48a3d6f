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

TEST(OutputText, of_nothing_is_an_empty_text) {
    OutputText output;
    EXPECT_EQ(output.take(), QString());
}

TEST(OutputText, puts_characters_together_that_are_split_between_pieces) {
    const QString text = QStringLiteral("aé€\U0001F680z");
    for (qsizetype size = 1; size <= 11; ++size) {
        EXPECT_EQ(inPieces(text.toUtf8(), size), text) << size;
    }
}

TEST(OutputText, is_nothing_when_any_byte_is_wrong_however_it_is_split) {
    for (const char* bytes : {"good \xff bad", "\x80", "\xc3(", "\xc0\xaf", "\xed\xa0\x80",
                              "\xf5\x80\x80\x80", "\xe2\x82", "\xf0\x9f\x9a", "ok\xc3"}) {
        for (qsizetype size = 1; size <= 4; ++size) {
            EXPECT_FALSE(inPieces(bytes, size)) << bytes << " by " << size;
        }
    }
}

TEST(OutputText, stays_nothing_whatever_follows_a_wrong_byte) {
    OutputText output;
    output.append("\xff");
    output.append("good");
    EXPECT_FALSE(output.take());
}

TEST(OutputText, keeps_nul_bytes_and_byte_order_marks_as_characters) {
    const QByteArray bytes("\xef\xbb\xbf"
                           "a\0"
                           "b\xef\xbb\xbf",
                           9);
    EXPECT_EQ(inPieces(bytes, 3), QStringLiteral("\ufeffa\u0000b\ufeff"));
}

TEST(OutputText, is_given_once) {
    OutputText output;
    output.append("text");
    EXPECT_EQ(output.take(), QStringLiteral("text"));
    EXPECT_EQ(output.take(), QString());
}

TEST(QtText, of_a_path_is_nothing_when_it_is_not_utf8) {
    EXPECT_EQ(QtText::fromPath("/tmp/ä"), QStringLiteral("/tmp/ä"));
    EXPECT_FALSE(QtText::fromPath("/tmp/\xe4"));
}

} // namespace
} // namespace kestrel
