// SPDX-License-Identifier: MIT
#include "build/MessageCounter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace kestrel {
namespace {

using Counts = std::pair<std::size_t, std::size_t>;

/// The errors and warnings in a text that comes in pieces of this size.
Counts countsOf(const std::string& text, std::size_t pieceSize = std::string::npos) {
    MessageCounter counter;
    for (std::size_t begin = 0; begin < text.size();
         begin += std::min(pieceSize, text.size() - begin)) {
        counter.append(std::string_view(text).substr(begin, pieceSize));
    }
    counter.finish();
    EXPECT_EQ(counter.hasText(), !text.empty());
    return {counter.errors(), counter.warnings()};
}

TEST(MessageCounter, CountsLinesThatBeginWithAPlace) {
    EXPECT_EQ(countsOf(""), Counts(0, 0));
    EXPECT_EQ(countsOf("main.asm:3:5: error: no such thing\n"), Counts(1, 0));
    EXPECT_EQ(countsOf("main.asm:3:5: warning: odd\n"), Counts(0, 1));
    EXPECT_EQ(countsOf("a/b c.asm:12:34: error: x\n  foo\n  ^\n"
                       "C:\\game\\ä.asm:1:1: warning: y\n"
                       "main.asm:9:1: error: z"),
              Counts(2, 1));
    EXPECT_EQ(countsOf("main.asm:3:5: error: x\r\nmain.asm:3:5: warning: y\r\n"), Counts(1, 1));
}

TEST(MessageCounter, KnowsWhenTheAssemblerReachedItsLimit) {
    const auto reachedLimit = [](const std::string& text, std::size_t pieceSize) {
        MessageCounter counter;
        for (std::size_t begin = 0; begin < text.size(); begin += pieceSize) {
            counter.append(std::string_view(text).substr(begin, pieceSize));
        }
        counter.finish();
        return counter.reachedLimit();
    };
    const std::string error = "main.asm:3:5: error: x\n";
    const std::string limit = "stopped here: 20 errors are the limit (--max-errors changes it)\n";
    for (const std::size_t size : {std::size_t{1}, std::size_t{30}, std::size_t{1000}}) {
        EXPECT_TRUE(reachedLimit(error + limit + error, size)) << size;
        EXPECT_FALSE(reachedLimit(error + "  " + limit, size)) << "a quoted line of the source";
        EXPECT_FALSE(reachedLimit(error, size));
    }
    EXPECT_EQ(countsOf(error + limit + error), Counts(2, 0));
}

TEST(MessageCounter, CountsLinesWithoutAPlace) {
    EXPECT_EQ(countsOf("error: the input 'a.asm' cannot be read: there is no such file\n"),
              Counts(1, 0));
    EXPECT_EQ(countsOf("main.asm:3:5: warning: x\nwarning: y\n"
                       "error: the output 'a.nes' cannot be written: No space left on device"),
              Counts(1, 2));
    EXPECT_EQ(countsOf("error: warning: x\nwarning: error: main.asm:3:5: error: y\n"),
              Counts(1, 1));
}

TEST(MessageCounter, CountsNothingElse) {
    EXPECT_EQ(countsOf("2 errors, 1 warning\nfatal error: x\nmy warning: y\nerror:\nerror\n"
                       " error: quoted\n\twarning: quoted\n"),
              Counts(0, 0));
    EXPECT_EQ(countsOf("main.asm:3: error: x\n:3:5: error: x\nmain.asm:3:5: note: x\n"),
              Counts(0, 0));
    EXPECT_EQ(countsOf("main.asm:x:5: error: x\nmain.asm:3:5:error: x\n"), Counts(0, 0));
    EXPECT_EQ(countsOf("  main.asm:3:5: error: quoted\n\tmain.asm:3:5: warning: quoted\n"),
              Counts(0, 0));
}

TEST(MessageCounter, ALineCountsOnceAsWhatStandsFirst) {
    EXPECT_EQ(countsOf("a:1:2: warning: see b:3:4: error: x\n"), Counts(0, 1));
    EXPECT_EQ(countsOf("a:1:2: error: b:3:4: error: c:1:1: warning: x\n"), Counts(1, 0));
    EXPECT_EQ(countsOf("say: error: main.asm:1:2: error: x\n"), Counts(1, 0));
}

TEST(MessageCounter, APieceMayEndAnywhere) {
    const std::string text = "main.asm:3:5: error: x\n\n  code\nmain.asm:7:1: warning: y\n"
                             "warning: w\nother.asm:1:1: error: z\nerror: v";
    for (std::size_t size = 1; size <= text.size(); ++size) {
        EXPECT_EQ(countsOf(text, size), Counts(3, 2)) << size;
    }
}

TEST(MessageCounter, ALineWithoutEndIsNotKept) {
    MessageCounter counter;
    const std::string piece(1 << 20, 'y');
    for (int i = 0; i < 64; ++i) {
        counter.append(piece);
    }
    counter.append("\nmain.asm:3:5: error: x");
    counter.finish();
    EXPECT_EQ(counter.errors(), 1U);
    EXPECT_EQ(countsOf("main.asm:3:5: error: " + std::string(100'000, 'x') + "\n", 1000),
              Counts(1, 0));
}

} // namespace
} // namespace kestrel
