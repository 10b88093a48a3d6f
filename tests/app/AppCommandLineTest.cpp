// SPDX-License-Identifier: MIT
#include "app/AppCommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel {
namespace {

using Action = AppCommandLine::Action;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(AppCommandLine, TakesFilesInOrderAndMakesThemAbsolute) {
    const auto line = AppCommandLine::parse({"a.kst", "/b/c.kst", "../d.kst"}, "/home/me");
    EXPECT_EQ(line.action, Action::start);
    EXPECT_THAT(line.files, ElementsAre("/home/me/a.kst", "/b/c.kst", "/home/me/../d.kst"));
}

TEST(AppCommandLine, TakesEverythingBehindTwoDashesForFiles) {
    const auto line = AppCommandLine::parse({"--", "--help", "-x"}, "/f");
    EXPECT_EQ(line.action, Action::start);
    EXPECT_THAT(line.files, ElementsAre("/f/--help", "/f/-x"));
}

TEST(AppCommandLine, ShowsHelpAndVersion) {
    const auto help = AppCommandLine::parse({"x.kst", "--help"}, "/");
    EXPECT_EQ(help.action, Action::showHelp);
    EXPECT_THAT(help.text(), HasSubstr("usage: Kestrel"));
    const auto version = AppCommandLine::parse({"--version"}, "/");
    EXPECT_EQ(version.action, Action::showVersion);
    EXPECT_THAT(version.text(), HasSubstr(KESTREL_VERSION));
}

TEST(AppCommandLine, RefusesAnOptionThatItDoesNotKnow) {
    const auto line = AppCommandLine::parse({"--fast"}, "/");
    EXPECT_EQ(line.action, Action::refuse);
    EXPECT_THAT(line.problem, HasSubstr("--fast"));
}

TEST(AppCommandLine, IsEmptyWithoutArguments) {
    const auto line = AppCommandLine::parse({}, "/");
    EXPECT_EQ(line.action, Action::start);
    EXPECT_TRUE(line.files.empty());
}

} // namespace
} // namespace kestrel
