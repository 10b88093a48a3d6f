// SPDX-License-Identifier: MIT
#include "model/Paths.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace kestrel {
namespace {

TEST(Paths, JoiningPutsExactlyOneSeparatorBetween) {
    EXPECT_EQ(joined("/a", "b").native(), "/a/b");
    EXPECT_EQ(joined("/a/", "b").native(), "/a/b");
    EXPECT_EQ(joined("/a//", "b/c").native(), "/a/b/c");
    EXPECT_EQ(joined("/", "b").native(), "/b");
    EXPECT_EQ(joined("a", "b").native(), "a/b");
}

TEST(Paths, JoiningATextThatBeginsWithASeparatorStaysBelowTheBase) {
    EXPECT_EQ(joined("/a", "/b").native(), "/a/b");
    EXPECT_EQ(joined("/home/x", "/.Kestrel/AllProjects.cfg").native(),
              "/home/x/.Kestrel/AllProjects.cfg");
    EXPECT_EQ(joined("/a", "///b").native(), "/a/b");
}

TEST(Paths, JoiningToNothingGivesARelativePath) {
    EXPECT_EQ(joined("", "b").native(), "b");
    EXPECT_EQ(joined("", "/b").native(), "b");
    EXPECT_EQ(joined("", "").native(), "");
}

TEST(Paths, JoiningNothingGivesTheBase) {
    EXPECT_EQ(joined("/a", "").native(), "/a");
    EXPECT_EQ(joined("/a/", "/").native(), "/a");
}

TEST(Paths, JoiningNormalisesNothing) {
    EXPECT_EQ(joined("/a/./b", "../c").native(), "/a/./b/../c");
}

TEST(Paths, TextNeverEndsInASeparatorButTheRoot) {
    EXPECT_EQ(pathText("/a/b/"), "/a/b");
    EXPECT_EQ(pathText("/a/b//"), "/a/b");
    EXPECT_EQ(pathText("/a/b"), "/a/b");
    EXPECT_EQ(pathText("/"), "/");
    EXPECT_EQ(pathText("//"), "/");
    EXPECT_EQ(pathText(""), "");
    EXPECT_EQ(pathText(std::filesystem::path("/a") / ""), "/a");
}

TEST(Paths, BytesThatAreNoUtf8SurviveJoining) {
    EXPECT_EQ(pathText(joined("/\xff", "\xfe")), "/\xff/\xfe");
}

TEST(Paths, HomeComesFromTheEnvironmentFirst) {
    const test::TemporaryHome home;
    EXPECT_EQ(homeFolder(), home.path());
}

TEST(Paths, HomeComesFromTheAccountWhenTheEnvironmentHasNone) {
    const test::TemporaryHome restoresHome;
    const passwd* const account = ::getpwuid(::geteuid());
    const std::string expected = account != nullptr ? account->pw_dir : "";
    ::setenv("HOME", "", 1);
    EXPECT_EQ(homeFolder().native(), expected);
    ::unsetenv("HOME");
    EXPECT_EQ(homeFolder().native(), expected);
}

TEST(Paths, ExistenceFollowsLinks) {
    const test::TemporaryFolder folder;
    folder.write("file", "x");
    std::filesystem::create_symlink("file", folder.path() / "link");
    std::filesystem::create_symlink("nothing", folder.path() / "dangling");
    std::filesystem::create_symlink("ring", folder.path() / "ring");
    EXPECT_TRUE(existsAt(folder.path() / "file"));
    EXPECT_TRUE(existsAt(folder.path()));
    EXPECT_TRUE(existsAt(folder.path() / "link"));
    EXPECT_FALSE(existsAt(folder.path() / "dangling"));
    EXPECT_FALSE(existsAt(folder.path() / "ring"));
    EXPECT_FALSE(existsAt(folder.path() / "none"));
}

TEST(Paths, NothingExistsWhereAPathIsUnusable) {
    const test::TemporaryFolder folder;
    const std::string file = folder.write("file", "x").native();
    EXPECT_FALSE(existsAt(""));
    EXPECT_FALSE(existsAt(file + std::string("\0more", 5)));
    EXPECT_FALSE(existsAt(folder.path() / std::string(300, 'n')));
    EXPECT_FALSE(existsAt(file + "/below"));
}

} // namespace
} // namespace kestrel
