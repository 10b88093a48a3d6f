// SPDX-License-Identifier: MIT
#include "assembler/state/Reporter.h"

#include <gtest/gtest.h>

#include <string>

namespace nesasm {

namespace {

/// A line of a file, and what is reported of it.
class ReporterTest : public ::testing::Test {
protected:
    ReporterTest() {
        Origin origin;
        origin.file = "game.asm";
        m_line.origin = m_origins.add(origin);
        m_line.number = 7;
        m_line.order = 1;
    }

    Cursor read(const std::string& text) {
        m_text = text + "\n";
        m_line.begin = Cursor(m_text.data());
        return m_line.begin;
    }
    std::string shown() {
        m_diagnostics.finish();
        return m_shown;
    }

    std::string m_text;
    std::string m_shown;
    Arena m_arena;
    Origins m_origins;
    Line m_line;
    Diagnostics m_diagnostics{m_origins, [this](std::string_view text) { m_shown += text; }, 0,
                              MessageForm::plain};
    Reporter m_reporter{m_line, m_diagnostics, m_origins, m_arena};
};

TEST_F(ReporterTest, NamesThePlaceInThePresentLine) {
    m_reporter.error(read("\tlda x") + 5, "so");
    EXPECT_TRUE(shown().starts_with("game.asm:7:6: error: so\n\tlda x\n")) << shown();
}

TEST_F(ReporterTest, SeesWhereAStatementEnds) {
    for (const char* const text : {"", "  ", " ; a comment", "\t;"}) {
        EXPECT_TRUE(m_reporter.expectEnd(read(text))) << text;
    }
    EXPECT_EQ(m_diagnostics.errorCount(), 0U);
    EXPECT_FALSE(m_reporter.expectEnd(read(" x")));
    EXPECT_NE(shown().find("7:2: error: expected the end of the statement, found 'x'; a comma"),
              std::string::npos)
        << shown();
}

TEST_F(ReporterTest, KeepsThePlaceOfALineThatDoesNotLast) {
    m_line.isShortLived = true;
    const Position kept = m_reporter.keep(read("first line") + 6);
    read("another li");
    EXPECT_EQ(std::string_view(kept.line, 10), "first line");
    EXPECT_EQ(kept.column, 6U);
    EXPECT_TRUE(m_origins[m_line.origin].kept);
}

TEST_F(ReporterTest, KnowsThatAPartIsMissingOnceItIsTold) {
    EXPECT_FALSE(m_reporter.isPartMissing());
    m_reporter.notePartMissing();
    EXPECT_TRUE(m_reporter.isPartMissing());
}

} // namespace

} // namespace nesasm
