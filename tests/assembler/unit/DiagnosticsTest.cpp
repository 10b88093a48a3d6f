// SPDX-License-Identifier: MIT
#include "assembler/messages/Diagnostics.h"

#include <gtest/gtest.h>

namespace nesasm {

namespace {

class DiagnosticsTest : public ::testing::Test {
protected:
    Position place(const char* line, std::uint32_t column, std::uint32_t order = 1) {
        if (m_file == NoOrigin) {
            m_file = m_origins.add({Origin::Kind::file, false, false, "game.asm", {}, NoOrigin, 0});
        }
        return {line, order, column, m_file, order};
    }
    Diagnostics made(std::size_t limit = 0, MessageForm form = MessageForm::plain) {
        return {m_origins, [this](std::string_view text) { m_shown += text; }, limit, form};
    }

    Origins m_origins;
    OriginId m_file = NoOrigin;
    std::string m_shown;
};

TEST_F(DiagnosticsTest, ShowsPlaceLineCaretAndCount) {
    Diagnostics diagnostics = made();
    diagnostics.error(place("\té lda x\n", 4), "wrong");
    diagnostics.finish();
    EXPECT_EQ(m_shown, "game.asm:1:4: error: wrong\n\té lda x\n\t  ^\n1 error\n");
}

TEST_F(DiagnosticsTest, SortsByTheOrderOfTheSource) {
    Diagnostics diagnostics = made();
    diagnostics.error(place("b\n", 0, 2), "second");
    diagnostics.warning(Warning::oddNumber, place("a\n", 0, 1), "first");
    diagnostics.finish();
    EXPECT_LT(m_shown.find("first [odd-number]"), m_shown.find("second"));
    EXPECT_NE(m_shown.find("1 error, 1 warning\n"), std::string::npos);
}

TEST_F(DiagnosticsTest, StopsAtTheLimitAndSaysSo) {
    Diagnostics diagnostics = made(2);
    for (std::uint32_t i = 1; i < 10; ++i) {
        diagnostics.error(place("x\n", 0, i), "wrong");
    }
    EXPECT_TRUE(diagnostics.limitReached());
    EXPECT_EQ(diagnostics.errorCount(), 2U);
    diagnostics.finish();
    EXPECT_NE(m_shown.find("--max-errors"), std::string::npos);
}

TEST_F(DiagnosticsTest, ABrokenMacroIsReportedOnceAnExpansion) {
    const Position call = place("M\n", 0);
    Diagnostics diagnostics = made();
    for (int i = 0; i < 2; ++i) {
        const OriginId expansion =
            m_origins.add({Origin::Kind::macro, false, false, "game.asm", "M", call.origin, 7});
        for (std::uint32_t line = 1; line < 4; ++line) {
            diagnostics.error({"bad\n", line, 0, expansion, 5}, "wrong");
        }
    }
    EXPECT_EQ(diagnostics.errorCount(), 2U);
    diagnostics.finish();
    EXPECT_NE(m_shown.find("  in macro M called at game.asm:7\n"), std::string::npos) << m_shown;
}

TEST_F(DiagnosticsTest, LongLinesAreShownAroundTheColumn) {
    const std::string line = std::string(1000000, 'a') + "!" + std::string(1000000, 'b') + "\n";
    Diagnostics diagnostics = made();
    diagnostics.error(place(line.c_str(), 1000000), "wrong");
    diagnostics.finish();
    EXPECT_LT(m_shown.size(), 1000U);
    const std::size_t quote = m_shown.find('\n') + 1;
    const std::size_t caretLine = m_shown.find('\n', quote) + 1;
    EXPECT_EQ(m_shown.find('!', quote) - quote, m_shown.find('^') - caretLine);
}

TEST_F(DiagnosticsTest, ColoursAreThereOnlyOnWish) {
    Diagnostics plain = made();
    plain.error(place("x\n", 0), "wrong\x1b[1m");
    plain.finish();
    EXPECT_EQ(m_shown.find('\x1b'), std::string::npos);
    Diagnostics coloured = made(0, MessageForm::coloured);
    coloured.error(place("x\n", 0), "wrong");
    coloured.finish();
    EXPECT_NE(m_shown.find("\x1b[1;31merror: \x1b[0m"), std::string::npos);
}

TEST_F(DiagnosticsTest, JsonHasAnObjectForEachMessageAndOneForTheCount) {
    Diagnostics diagnostics = made(0, MessageForm::json);
    diagnostics.warning(Warning::oddNumber, place("\t\xE9 \"$\"\n", 3), "a\tb; do c");
    diagnostics.finish();
    EXPECT_EQ(m_shown,
              R"({"type":"message","text":"a�b; do c","severity":"warning",)"
              R"("warning":"odd-number","hint":"do c","file":"game.asm","line":1,"column":4,)"
              R"("endColumn":7,"source":"\t� \"$\"","sourceColumn":4})"
              "\n"
              R"({"type":"count","text":"1 warning","errors":0,"warnings":1})"
              "\n");
}

TEST_F(DiagnosticsTest, EveryWarningHasANameOfItsOwnAndAText) {
    for (std::size_t i = 0; i < WarningTable.size(); ++i) {
        EXPECT_FALSE(WarningTable[i].text.empty());
        for (std::size_t other = 0; other < i; ++other) {
            EXPECT_NE(WarningTable[i].name, WarningTable[other].name);
        }
    }
}

} // namespace

} // namespace nesasm
