// SPDX-License-Identifier: MIT
#include "build/PlaceText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace kestrel::test {
namespace {

using Kind = Place::Kind;

/// A place as one text: file|line|column|kind|text; "-" for none.
std::string shown(const std::optional<PlaceText>& found, const QString& line) {
    if (!found) {
        return "-";
    }
    const Place& place = found->place;
    EXPECT_TRUE(line.sliced(found->begin, found->length).startsWith(place.file));
    const char* const kind = place.kind == Kind::error     ? "error"
                             : place.kind == Kind::warning ? "warning"
                             : place.kind == Kind::note    ? "note"
                                                           : "other";
    return place.file.toStdString() + "|" + std::to_string(place.line) + "|" +
           std::to_string(place.column) + "|" + kind + "|" + place.text.toStdString();
}

std::string problem(const char* line) {
    const QString text = QString::fromUtf8(line);
    return shown(problemIn(text), text);
}

std::string origin(const char* line) {
    const QString text = QString::fromUtf8(line);
    return shown(originIn(text), text);
}

TEST(PlaceTextTest, AProblemBeginsWithItsPlace) {
    EXPECT_EQ(problem("main.asm:3:5: error: no such thing"), "main.asm|3|5|error|no such thing");
    EXPECT_EQ(problem("main.asm:3:5: warning: odd [unused]"), "main.asm|3|5|warning|odd [unused]");
    EXPECT_EQ(problem("main.asm:3:5: note: see there"), "main.asm|3|5|note|see there");
    EXPECT_EQ(problem("main.asm:3:5: error:"), "main.asm|3|5|error|");
    EXPECT_EQ(problem("main.asm:3:5: error: x\r"), "main.asm|3|5|error|x");
}

TEST(PlaceTextTest, AFileNameMayHoldAnything) {
    EXPECT_EQ(problem("C:\\my games\\a:1:2 b.asm:12:34: error: x"),
              "C:\\my games\\a:1:2 b.asm|12|34|error|x");
    EXPECT_EQ(problem("say: error: \"main\".asm:1:2: error: x"),
              "say: error: \"main\".asm|1|2|error|x");
    EXPECT_EQ(problem("ä\xF0\x9F\x8E\xAE\xEF\xBF\xBD.asm:1:2: error: x"),
              "ä\xF0\x9F\x8E\xAE\xEF\xBF\xBD.asm|1|2|error|x");
    EXPECT_EQ(problem("a\tb.asm:1:2: warning: x"), "a\tb.asm|1|2|warning|x");
}

TEST(PlaceTextTest, WhatStandsFirstCounts) {
    EXPECT_EQ(problem("a:1:2: warning: see b:3:4: error: x"), "a|1|2|warning|see b:3:4: error: x");
    EXPECT_EQ(problem("a:1:2: error: b:3:4: error: y"), "a|1|2|error|b:3:4: error: y");
}

TEST(PlaceTextTest, OtherLinesAreNoProblems) {
    for (const char* const line :
         {"", " ", "error: the input cannot be read", "2 errors, 1 warning", "main.asm: error: x",
          "main.asm:3: error: x", ":3:5: error: x", "main.asm:x:5: error: x",
          "main.asm:3:5:error: x", "main.asm:0:5: error: x", "main.asm:3:0: error: x",
          "  main.asm:3:5: error: quoted", "\tmain.asm:3:5: error: quoted",
          "main.asm:99999999999:5: error: x", "main.asm:3:5: fatal: x",
          "  included at main.asm:3"}) {
        EXPECT_EQ(problem(line), "-") << line;
    }
}

TEST(PlaceTextTest, TheLinesBelowAMessageTellTheWayToIt) {
    EXPECT_EQ(origin("  included at code/main.asm:12"),
              "code/main.asm|12|1|note|included at code/main.asm:12");
    EXPECT_EQ(origin("  in macro add16 called at a b:1.asm:7"),
              "a b:1.asm|7|1|note|in macro add16 called at a b:1.asm:7");
    EXPECT_EQ(origin("  in the repetition begun at main.asm:3\r"),
              "main.asm|3|1|note|in the repetition begun at main.asm:3");
    for (const char* const line :
         {"", "included at main.asm:12", "  included at main.asm", "  included at :12",
          "  ... 7 more ...", "  in macro called at", "  in macro a called on main.asm:1"}) {
        EXPECT_EQ(origin(line), "-") << line;
    }
}

TEST(PlaceTextTest, OfALongLineOnlyTheBeginningIsLookedAt) {
    const QString near = QString(LongestPlaceText - 20, u'a') + QStringLiteral(":1:2: error: x");
    EXPECT_TRUE(problemIn(near));
    const QString far = QString(LongestPlaceText, u'a') + QStringLiteral(":1:2: error: x");
    EXPECT_FALSE(problemIn(far));
    EXPECT_FALSE(originIn(QStringLiteral("  in macro ") + far + QStringLiteral(" called at b:1")));
}

TEST(PlaceTextTest, HundredsOfThousandsOfLinesTakeNoTime) {
    const auto start = std::chrono::steady_clock::now();
    const QString line = QStringLiteral("code/main.asm:123:45: error: something is wrong here");
    const QString other = QString(200, u':') + QStringLiteral(": error: 1:2 : warning: 3");
    int found = 0;
    for (int i = 0; i < 200'000; ++i) {
        found += problemIn(line) ? 1 : 0;
        found += problemIn(other) ? 1 : 0;
    }
    EXPECT_EQ(found, 200'000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
} // namespace kestrel::test
