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
