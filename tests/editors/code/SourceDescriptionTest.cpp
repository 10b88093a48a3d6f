// SPDX-License-Identifier: MIT
#include "editors/code/SourceDescription.h"

#include <gtest/gtest.h>

namespace kestrel {

namespace {

std::string description(const char* bytes) {
    const auto source = decodeSource(bytes);
    return source ? sourceDescription(*source).toStdString() : "no text";
}

TEST(SourceDescription, NamesTheEncodingAndTheLineEnds) {
    EXPECT_EQ(description(""), "UTF-8");
    EXPECT_EQ(description("a"), "UTF-8");
    EXPECT_EQ(description("a\nb"), "UTF-8, LF");
    EXPECT_EQ(description("a\r\nb\r\n"), "UTF-8, CRLF");
    EXPECT_EQ(description("a\rb\r"), "UTF-8, CR");
    EXPECT_EQ(description("a\r\nb\n"), "UTF-8, mixed line ends");
    EXPECT_EQ(description("\xef\xbb\xbf"
                          "a\n"),
              "UTF-8 with a byte-order mark, LF");
}

TEST(SourceDescription, CountsBytesThatAreKeptAsTheyAre) {
    EXPECT_EQ(description("für caf\xe9\n"), "UTF-8 with 1 byte kept as it is, LF");
    EXPECT_EQ(description("für \xff Größe \xfe\n"), "UTF-8 with 2 bytes kept as they are, LF");
}

TEST(SourceDescription, SaysThatAnotherEncodingIsSavedAsUtf8) {
    EXPECT_EQ(sourceDescription({QStringLiteral("a\n"), false, QStringLiteral("Shift-JIS")}),
              QStringLiteral("Shift-JIS, saved as UTF-8, LF"));
    EXPECT_EQ(decodeSource(std::string("\xff\xfe\x61\0", 4)).value().formerEncoding,
              QStringLiteral("UTF-16"));
}

} // namespace

} // namespace kestrel
