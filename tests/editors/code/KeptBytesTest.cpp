// SPDX-License-Identifier: MIT
#include "editors/code/KeptBytes.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

namespace kestrel {

namespace {

using namespace std::string_literals;

TEST(KeptBytes, StandForBytesThatArePartOfNoCharacter) {
    EXPECT_EQ(textWithKeptBytes("a\xe9z\xc3\xa9"),
              QString(u'a') + QChar(0xdce9) + QStringLiteral("z\u00e9"));
    EXPECT_EQ(textWithKeptBytes("\xc3"), QString(QChar(0xdcc3))) << "cut off";
    EXPECT_EQ(textWithKeptBytes("\xed\xa0\x80"),
              QString(QChar(0xdced)) + QChar(0xdca0) + QChar(0xdc80))
        << "an encoded surrogate is no character";
    EXPECT_EQ(textWithKeptBytes("\xc0\x80").size(), 2) << "nor is a longer form than needed";
    EXPECT_EQ(textWithKeptBytes("\xf4\x90\x80\x80").size(), 4) << "nor one past the last";
    EXPECT_EQ(keptByteCount(textWithKeptBytes("\xff \xf0\x9f\x98\x80 \x80")), 2);
}

TEST(KeptBytes, AMarkInsideIsACharacter) {
    EXPECT_EQ(textWithKeptBytes("\xef\xbb\xbf\xff\xef\xbb\xbf"),
              QString(QChar(0xfeff)) + QChar(0xdcff) + QChar(0xfeff));
}

TEST(KeptBytes, ContentIsCounted) {
    const Utf8Content content = contentOfUtf8("a\xc3\xa9\xe5\x88\x9d\xf0\x9f\x98\x80\xff\xed\xa0");
    EXPECT_EQ(content.characters, 3U);
    EXPECT_EQ(content.keptBytes, 3U);
}

TEST(KeptBytes, AnyBytesComeBack) {
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same bytes each time
    const std::array pieces{"\xc3\xa9"s,
                            "\xe5\x88\x9d"s,
                            "\xf0\x9f\x98\x80"s,
                            "\xed\xb2\x80"s,
                            "\xef\xbb\xbf"s,
                            "a\n"s,
                            "\xe5"s,
                            "\x88"s,
                            "\xff"s,
                            "\0"s};
    for (int round = 0; round < 2000; ++round) {
        std::string bytes;
        for (int i = 0; i < 12; ++i) {
            bytes += random() % 2 == 0 ? pieces.at(random() % pieces.size())
                                       : std::string(1, static_cast<char>(random() % 256));
        }
        ASSERT_EQ(bytesWithKeptBytes(textWithKeptBytes(bytes)), bytes);
    }
}

} // namespace

} // namespace kestrel
