// SPDX-License-Identifier: MIT
#include "tools/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel {
namespace {

using Action = CommandLine::Action;
using ::testing::HasSubstr;

TEST(CommandLine, OneNameIsTheProjectToBuild) {
    const CommandLine line = CommandLine::parse({"game.kst"});
    EXPECT_EQ(line.action, Action::build);
    EXPECT_EQ(line.project, "game.kst");
}

TEST(CommandLine, RelocateMayStandBeforeOrBehindTheProject) {
    for (const CommandLine& line : {CommandLine::parse({"--relocate", "game.kst"}),
                                    CommandLine::parse({"game.kst", "--relocate"})}) {
        EXPECT_EQ(line.action, Action::relocate);
        EXPECT_EQ(line.project, "game.kst");
    }
}

TEST(CommandLine, BehindTwoDashesANameMayBeginWithADash) {
    const CommandLine line = CommandLine::parse({"--", "--relocate"});
    EXPECT_EQ(line.action, Action::build);
    EXPECT_EQ(line.project, "--relocate");
}

TEST(CommandLine, BehindTwoDashesEvenHelpIsAName) {
    EXPECT_EQ(CommandLine::parse({"--", "--help"}).project, "--help");
}

TEST(CommandLine, ASingleDashIsAName) {
    EXPECT_EQ(CommandLine::parse({"-"}).project, "-");
}

TEST(CommandLine, HelpAndVersionWinOverFaults) {
    EXPECT_EQ(CommandLine::parse({"--nonsense", "--help"}).action, Action::showHelp);
    EXPECT_EQ(CommandLine::parse({"a", "b", "--version"}).action, Action::showVersion);
    EXPECT_EQ(CommandLine::parse({"--version", "--help"}).action, Action::showVersion);
    EXPECT_EQ(CommandLine::parse({"-h"}).action, Action::showHelp);
}

TEST(CommandLine, NoProjectIsRefusedWithAnExample) {
    const CommandLine line = CommandLine::parse({});
    EXPECT_EQ(line.action, Action::refuse);
    EXPECT_THAT(line.problem, HasSubstr("kestrel-build game.kst"));
    EXPECT_EQ(CommandLine::parse({"--relocate"}).action, Action::refuse);
    EXPECT_EQ(CommandLine::parse({"--"}).action, Action::refuse);
}

TEST(CommandLine, TwoProjectsAreRefusedByName) {
    const CommandLine line = CommandLine::parse({"a.kst", "b.kst"});
    EXPECT_EQ(line.action, Action::refuse);
    EXPECT_THAT(line.problem, HasSubstr("\"a.kst\" and \"b.kst\""));
}

TEST(CommandLine, AnUnknownOptionIsNamedAndTheKnownOnesAreListed) {
    for (const char* option : {"--frob", "-x", "--relocate=yes", "--Help"}) {
        const CommandLine line = CommandLine::parse({option, "game.kst"});
        EXPECT_EQ(line.action, Action::refuse) << option;
        EXPECT_THAT(line.problem, HasSubstr(option));
        EXPECT_THAT(line.problem, HasSubstr("--relocate, --help and --version"));
    }
}

TEST(CommandLine, WithoutFurtherOptionsTheAssemblerGetsNoFurtherArguments) {
    EXPECT_TRUE(CommandLine::parse({"game.kst"}).assemblerArguments.empty());
    EXPECT_TRUE(CommandLine::parse({"--", "-v"}).assemblerArguments.empty());
}

TEST(CommandLine, TheAssemblersOptionsArePassedOnWithTheirValues) {
    const CommandLine line = CommandLine::parse(
        {"-v", "--labels", "mlb", "game.kst", "--labels=dbg", "-Wno-odd-number", "-W", "overwrite",
         "-DDEBUG=1", "--max-errors", "5", "--listing=/x/game.lst", "--expand-macros"});
    EXPECT_EQ(line.action, Action::build);
    EXPECT_EQ(line.project, "game.kst");
    EXPECT_THAT(line.assemblerArguments,
                ::testing::ElementsAre("-v", "--labels", "mlb", "--labels", "dbg", "-W",
                                       "no-odd-number", "-W", "overwrite", "-D", "DEBUG=1",
                                       "--max-errors", "5", "--listing", "/x/game.lst",
                                       "--expand-macros"));
}

TEST(CommandLine, TheListingsNameCountsFromWhereTheProgramWasStarted) {
    EXPECT_THAT(CommandLine::parse({"--listing", "game.lst", "game.kst"}).assemblerArguments,
                ::testing::ElementsAre("--listing",
                                       (std::filesystem::current_path() / "game.lst").string()));
}

TEST(CommandLine, AnAssemblerOptionWithoutItsValueIsRefused) {
    for (const char* option : {"--listing", "--labels", "-W", "-D", "--max-errors"}) {
        const CommandLine line = CommandLine::parse({"game.kst", option});
        EXPECT_EQ(line.action, Action::refuse) << option;
        EXPECT_THAT(line.problem, HasSubstr(option));
    }
}

TEST(CommandLine, RelocatingHasNoUseForTheAssemblersOptions) {
    EXPECT_EQ(CommandLine::parse({"--relocate", "-v", "game.kst"}).action, Action::refuse);
    EXPECT_EQ(CommandLine::parse({"--find-emulator", "-v", "g.kst"}).action, Action::refuse);
    EXPECT_EQ(CommandLine::parse({"--find-emulator", "g.kst"}).action, Action::findEmulator);
    EXPECT_EQ(CommandLine::parse({"--find-emulator", "--relocate", "g.kst"}).action,
              Action::refuse);
}

TEST(CommandLine, AnEmptyNameIsRefused) {
    EXPECT_EQ(CommandLine::parse({""}).action, Action::refuse);
}

TEST(CommandLine, TheHelpFitsATerminalAndEndsInALineBreak) {
    std::string_view help = CommandLine::helpText();
    ASSERT_FALSE(help.empty());
    EXPECT_EQ(help.back(), '\n');
    while (!help.empty()) {
        const std::size_t end = help.find('\n');
        EXPECT_LE(end, 80U) << help.substr(0, end);
        help.remove_prefix(end + 1);
    }
}

} // namespace
} // namespace kestrel
