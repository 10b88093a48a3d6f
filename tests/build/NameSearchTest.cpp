// SPDX-License-Identifier: MIT
#include "build/NameSearch.h"

#include "build/SourcePieces.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

class NameSearchTest : public testing::Test {
protected:
    static std::string told(const std::vector<BytePlace>& places) {
        std::string text;
        for (const BytePlace& place : places) {
            text += (text.empty() ? "" : " ") + place.path.stem().string() + ":" +
                    std::to_string(place.line) + ":" + std::to_string(place.column);
        }
        return text;
    }

    FoundName find(std::string_view source, std::string_view name,
                   std::string_view scope = {}) const {
        return findName({folder.write("a.asm", source)}, name, scope);
    }
    std::string all(std::string_view source, std::string_view name,
                    std::string_view scope = {}) const {
        return told(find(source, name, scope).all);
    }
    std::string definitions(std::string_view source, std::string_view name,
                            std::string_view scope = {}) const {
        return told(find(source, name, scope).definitions);
    }

    TemporaryFolder folder;
};

TEST_F(NameSearchTest, FindsWholeWordsInTheOrderOfTheFiles) {
    const auto a = folder.write("a.asm", " jsr go\n jsr gone\n jsr ago, go.x, go_, GO\n");
    const auto b = folder.write("b.asm", "go: jmp go");
    const FoundName found = findName({b, folder.path() / "none.asm", a}, "go", {});
    EXPECT_EQ(told(found.all), "b:1:1 b:1:9 a:1:6");
    EXPECT_EQ(told(found.definitions), "b:1:1");
    EXPECT_EQ(told(findName({}, "go", {}).all), "");
}

TEST_F(NameSearchTest, LinesEndInEveryWayAndTheLastOneMayHaveNoEnd) {
    EXPECT_EQ(all("a\r\n x a\r x a\n\n x a", "a"), "a:1:1 a:2:4 a:3:4 a:5:4");
    EXPECT_EQ(all("\xEF\xBB\xBF"
                  "a: nop",
                  "a"),
              "a:1:1");
    EXPECT_EQ(all("", "a"), "");
}

TEST_F(NameSearchTest, CommentsTextsCharactersAndNumbersHaveNoNames) {
    EXPECT_EQ(all(" lda x ; x\n; x\n .db \"x ; x\", x", "x"), "a:1:6 a:3:15");
    EXPECT_EQ(all(" lda #'x'\n lda #';' + x\n .db '\"', x", "x"), "a:2:13 a:3:11");
    EXPECT_EQ(all(" .db \"say \\\"x\\\" \", x", "x"), "a:1:20");
    EXPECT_EQ(all(" .db \"not closed, x\n lda x", "x"), "a:2:6");
    EXPECT_EQ(all(" lda #$FF\n lda FF", "FF"), "a:2:6");
    EXPECT_EQ(all(" lda #SIZE%COLUMNS", "COLUMNS"), "a:1:12");
    EXPECT_EQ(all(" it's x", "x"), "a:1:7");
    EXPECT_EQ(all(" lda '", "x"), "");
}

TEST_F(NameSearchTest, ALocalNameCountsBelowItsLabelOnly) {
    const std::string source = "one:\n.loop dex\n bne .loop\n  two: nop\n.loop\n bne .loop\n";
    EXPECT_EQ(all(source, ".loop", "one"), "a:2:1 a:3:6");
    EXPECT_EQ(definitions(source, ".loop", "one"), "a:2:1");
    EXPECT_EQ(all(source, ".loop", "two"), "a:5:1 a:6:6");
    EXPECT_EQ(all(source, ".loop", ""), "");
    EXPECT_EQ(all(".loop: bne .loop\n" + source, ".loop", ""), "a:1:1 a:1:12");
}

TEST_F(NameSearchTest, ConstantsVariablesAndStatementsInTheFirstColumnOpenNoScope) {
    EXPECT_EQ(all("one:\nA = 1\nb .RS 1\nc .Equ 2\nLDA #1\nRTS\n.loop\n bne .loop", ".loop", "one"),
              "a:7:1 a:8:6");
    EXPECT_EQ(scopeLabel("one: .loop: two: nop"), "two");
    EXPECT_EQ(scopeLabel("  one: nop"), "one");
    EXPECT_EQ(scopeLabel("rts"), "");
    EXPECT_EQ(scopeLabel(" jsr one"), "");
}

TEST_F(NameSearchTest, TheLastScopeOfAFilesFirstLines) {
    const auto a = folder.write("a.asm", "\none:\nA = 1\ntwo: nop");
    EXPECT_EQ(lastScope(a, 1), "");
    EXPECT_EQ(lastScope(a, 2), "one");
    EXPECT_EQ(lastScope(a, 3), "one");
    EXPECT_EQ(lastScope(a, 99), "two");
    EXPECT_EQ(lastScope(folder.path() / "none.asm", 9), "");
}

TEST_F(NameSearchTest, DefinitionsAreWhatALineBeginsWithOrAMacrosName) {
    EXPECT_EQ(definitions("x: jmp x\n  x: jmp x\n x = 1\nx .rs 1\n .macro x\n x\n lda x", "x"),
              "a:1:1 a:2:3 a:3:2 a:4:1 a:5:9");
    EXPECT_EQ(definitions("LDA #1\nlda #2\n lda #3", "LDA"), "");
}

TEST_F(NameSearchTest, PlacesGetTheTextOfTheirLinesAndColumnsInCharacters) {
    const auto a = folder.write("a.asm", "\xEF\xBB\xBF"
                                         "one\r\n\t .db \"\xC3\xA4\xF0\x9F\x98\x80\", x ; y\r\n");
    const auto places =
        placesWithText({{a, 2, 17}, {a, 1, 1}, {a, 2, 99}, {a, 3, 1}, {a, 0, 1}, {"/none", 1, 1}},
                       Place::Kind::use);
    ASSERT_EQ(places.size(), 3U);
    EXPECT_EQ(places[0].file, u"a.asm");
    EXPECT_EQ(places[0].path, a);
    EXPECT_EQ(places[0].line, 2);
    EXPECT_EQ(places[0].column, 13);
    EXPECT_EQ(places[0].kind, Place::Kind::use);
    EXPECT_EQ(places[0].text, QStringLiteral(".db \"\u00E4\U0001F600\", x ; y"));
    EXPECT_EQ(places[1].text, u"one");
    EXPECT_EQ(places[2].column, 18); // the line is shorter now
}

TEST_F(NameSearchTest, BytesThatAreNoCharacterCountOneByOne) {
    EXPECT_EQ(charactersIn("a\xFF\xC3(\xE2\x82\xAC"), 5);
    EXPECT_EQ(charactersIn("\xE2\x82"), 2);
    EXPECT_EQ(charactersIn(""), 0);
}

} // namespace
} // namespace kestrel::test
