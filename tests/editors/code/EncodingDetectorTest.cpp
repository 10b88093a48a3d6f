// SPDX-License-Identifier: MIT
#include "editors/code/EncodingDetector.h"

#include "EncodingSamples.h"

#include "editors/code/SourceCodec.h"

#include <gtest/gtest.h>
#include <QStringEncoder>

#include <string>

namespace kestrel {

namespace {

using namespace std::string_literals;
using test::EncodingSample;
using test::EncodingSamples;

std::string encoded(const EncodingSample& sample) {
    const bool marked = std::string(sample.what).starts_with("with a mark");
    QStringEncoder encoder(sample.encoding, marked ? QStringConverter::Flag::WriteBom
                                                   : QStringConverter::Flag::Stateless);
    const QByteArray bytes = encoder.encode(QString::fromUtf8(sample.text));
    EXPECT_FALSE(encoder.hasError()) << sample.encoding << ", " << sample.what;
    return bytes.toStdString();
}

TEST(EncodingDetector, ReadsSourcesInTheEncodingsThatPeopleUsed) {
    for (const EncodingSample& sample : EncodingSamples) {
        const auto source = decodeSource(encoded(sample));
        ASSERT_TRUE(source) << sample.encoding << ", " << sample.what;
        EXPECT_EQ(source->text.toStdString(), sample.text)
            << sample.encoding << ", " << sample.what << ", read as "
            << source->formerEncoding.toStdString();
        EXPECT_FALSE(source->formerEncoding.isEmpty()) << sample.what;
    }
}

/// What it takes for the encoding of these bytes.
std::string guess(const std::string& bytes) {
    const auto candidates = encodingCandidates(bytes);
    return candidates.empty() ? "none" : candidates.front().name;
}

TEST(EncodingDetector, TakesCharactersAndFewOtherBytesForUtf8) {
    EXPECT_EQ(guess("; Zähler für Größe, caf\xe9\n"), "UTF-8");
    EXPECT_EQ(guess("; für caf\xe9\n"), "UTF-8") << "one of each";
    EXPECT_EQ(guess("; 初期化 \x94\n; 座標 \xff\xfe\n"), "UTF-8");
    EXPECT_EQ(guess("; caf\xe9 \xe0 No\xebl, \xc2\xb0\n"), "windows-1252")
        << "one that came about by chance, or by pasting";
    EXPECT_EQ(guess("; caf\xe9\n"), "windows-1252") << "no character at all";
    EXPECT_EQ(guess("; 初期\xe5\x8c"s), "UTF-8") << "cut off";
}

TEST(EncodingDetector, ASignAloneIsOfWindows1252) {
    for (const char* sign : {"\x80", "\xa3", "\xb0", "\xf7", "\x91", "\x94", "\x99", "\xdf", "\xf1",
                             "\xc4", "\xd6", "\xb2"}) {
        EXPECT_EQ(guess("\tlda #0\r\n; load "s + sign + " here\r\n"), "windows-1252") << sign;
        EXPECT_EQ(guess("; price 5 "s + sign), "windows-1252") << sign;
    }
    EXPECT_EQ(guess("; \x93_\n"s), "Shift_JIS") << "a kanji whose second half is ASCII";
    EXPECT_EQ(guess("; \xda\xc4\xbf \xb3x\xb3 \xc0\xc4\xd9\n"), "IBM437") << "a frame in one line";
}

TEST(EncodingDetector, HalfWidthKanaThatLookLikeUtf8InPlacesAreShiftJis) {
    // The second word begins with C3 B0 and C4 B1, each a character in UTF-8.
    EXPECT_EQ(guess("; \xbd\xcc\xdf\xd7\xb2\xc4\n; \xc3\xb0\xcc\xde\xd9 \xb6\xb3\xdd\xc4\n"),
              "Shift_JIS");
}

TEST(EncodingDetector, TheEndOfALongTextChangesNothing) {
    std::string text;
    while (text.size() < 300000) {
        text += "\tlda #0 ; \x92\x6c\r\n";
    }
    EXPECT_EQ(guess(text), "Shift_JIS");
    EXPECT_EQ(guess(std::string(200000, '\x84')), guess(std::string(70000, '\x84')))
        << "a single line";
}

} // namespace

} // namespace kestrel
