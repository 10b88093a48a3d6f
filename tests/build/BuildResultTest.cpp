// SPDX-License-Identifier: MIT
#include "build/BuildResult.h"

#include <gtest/gtest.h>

#include <csignal>

namespace kestrel {
namespace {

using State = BuildResult::State;
using std::chrono::milliseconds;

BuildResult made(std::uintmax_t bytes, std::size_t errors = 0, std::size_t warnings = 0) {
    BuildResult result;
    result.state = State::made;
    result.image = "/game/output/Lanternfall.nes";
    result.bytes = bytes;
    result.duration = milliseconds(43);
    result.errors = errors;
    result.warnings = warnings;
    return result;
}

BuildResult notMade(std::size_t errors, std::size_t warnings, bool hasOutput = true) {
    BuildResult result = made(0, errors, warnings);
    result.state = State::notMade;
    result.hasOutput = hasOutput;
    return result;
}

TEST(BuildResult, TellsOfAnImageWithTimeSizeAndWarnings) {
    EXPECT_EQ(made(24592).sentence(), "Lanternfall.nes built in 0.04 s: 24,592 bytes, no warnings");
    EXPECT_EQ(made(1, 0, 1).sentence(), "Lanternfall.nes built in 0.04 s: 1 byte, 1 warning");
    EXPECT_EQ(made(999, 0, 2).sentence(), "Lanternfall.nes built in 0.04 s: 999 bytes, 2 warnings");
    EXPECT_EQ(made(1'234'567, 0, 1000).sentence(),
              "Lanternfall.nes built in 0.04 s: 1,234,567 bytes, 1,000 warnings");
    EXPECT_EQ(made(0, 1).sentence(),
              "Lanternfall.nes built in 0.04 s: 0 bytes, 1 error, no warnings");
    BuildResult slow = made(100'000);
    slow.duration = milliseconds(61'239);
    EXPECT_EQ(slow.sentence(), "Lanternfall.nes built in 61.24 s: 100,000 bytes, no warnings");
}

TEST(BuildResult, GivesNoTimeThatItCannotTell) {
    BuildResult fast = made(16'400);
    fast.duration = milliseconds(9);
    EXPECT_EQ(fast.sentence(), "Lanternfall.nes built in under 0.01 s: 16,400 bytes, no warnings");
    fast.duration = milliseconds(10);
    EXPECT_EQ(fast.sentence(), "Lanternfall.nes built in 0.01 s: 16,400 bytes, no warnings");
    fast.state = State::stopped;
    fast.duration = milliseconds(0);
    EXPECT_EQ(fast.sentence(), "The build was stopped after less than 0.01 s");
}

TEST(BuildResult, SaysWhenThereMayBeMoreErrors) {
    BuildResult result = notMade(20, 1);
    result.hasMoreErrors = true;
    EXPECT_EQ(result.sentence(), "20 errors or more, 1 warning: no image");
}

TEST(BuildResult, SaysWhenTheImageIsNotOfTheFilesAsTheyAre) {
    BuildResult result = made(24592);
    EXPECT_TRUE(result.isGood());
    result.notCopied = {{"main.asm", "Read-only file system", true}};
    EXPECT_FALSE(result.isGood());
    EXPECT_TRUE(result.isMade());
    EXPECT_EQ(result.sentence(), "Lanternfall.nes built in 0.04 s: 24,592 bytes, no warnings, but "
                                 "not of your files as they are");
    result = notMade(1, 0);
    result.notCopied = {{"main.asm", "Read-only file system", true}};
    EXPECT_EQ(result.sentence(), "1 error: no image");
    EXPECT_FALSE(result.isGood());
}

TEST(BuildResult, TellsWhyThereIsNoImage) {
    EXPECT_EQ(notMade(2, 1).sentence(), "2 errors, 1 warning: no image");
    EXPECT_EQ(notMade(1, 0).sentence(), "1 error: no image");
    EXPECT_EQ(notMade(1200, 3).sentence(), "1,200 errors, 3 warnings: no image");
    EXPECT_EQ(notMade(0, 0).sentence(), "No image was made; see what the assembler says");
    EXPECT_EQ(notMade(0, 1).sentence(),
              "No image was made, 1 warning; see what the assembler says");
    EXPECT_EQ(notMade(0, 100'000).sentence(),
              "No image was made, 100,000 warnings; see what the assembler says");
    EXPECT_EQ(notMade(0, 0, false).sentence(), "No image was made, and the assembler said nothing");
}

TEST(BuildResult, TellsOfTheOtherEnds) {
    BuildResult result;
    result.error = BuildError{"", 100, "Could not find main entry point for assembly file(s)"};
    EXPECT_EQ(result.sentence(), "Could not find main entry point for assembly file(s)");
    result.state = State::notStarted;
    result.error->description = "Could not start the assembler /x: No such file or directory";
    EXPECT_EQ(result.sentence(), "Could not start the assembler /x: No such file or directory");
    result.state = State::crashed;
    result.signal = SIGSEGV;
    EXPECT_EQ(result.sentence(), "The assembler crashed (Segmentation fault): no image");
    result.state = State::stopped;
    result.duration = milliseconds(1500);
    EXPECT_EQ(result.sentence(), "The build was stopped after 1.50 s");
}

TEST(BuildResult, OnlyOneStateMeansThatTheImageWasMade) {
    for (const State state :
         {State::refused, State::notStarted, State::notMade, State::crashed, State::stopped}) {
        BuildResult result;
        result.state = state;
        EXPECT_FALSE(result.isMade());
    }
    EXPECT_TRUE(made(1).isMade());
}

TEST(BuildResult, TheStateFollowsFromTheImageTheSignalAndTheStop) {
    EXPECT_EQ(stateAfter({false, 0, true}), State::made);
    EXPECT_EQ(stateAfter({false, 0, false}), State::notMade);
    EXPECT_EQ(stateAfter({false, SIGSEGV, false}), State::crashed);
    EXPECT_EQ(stateAfter({false, SIGSEGV, true}), State::made) << "what counts is the image";
    EXPECT_EQ(stateAfter({false, 0, true, true}), State::notMade) << "made by somebody else";
    EXPECT_EQ(stateAfter({false, SIGSEGV, true, true}), State::crashed);
    EXPECT_EQ(stateAfter({true, SIGTERM, true}), State::stopped);
    EXPECT_EQ(stateAfter({true, 0, false}), State::stopped);
}

} // namespace
} // namespace kestrel
