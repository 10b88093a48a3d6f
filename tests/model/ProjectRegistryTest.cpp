// SPDX-License-Identifier: MIT
#include "model/ProjectRegistry.h"

#include "model/FileProcessor.h"
#include "model/ModelFixtures.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace kestrel {
namespace {

using namespace test;
using Names = std::vector<std::string>;

/// A home folder with, if wanted, a registry.
class ProjectRegistryTest : public testing::Test {
protected:
    void writeRegistry(std::string_view content) const { m_home.write(Registry, content); }
    std::string registry() const { return contentOf(m_home.path() / Registry); }
    std::filesystem::path folder() const { return m_home.path() / ".Kestrel"; }

    static bool add(const std::string& name, const std::string& path) {
        return FileProcessor::saveToRecentlyConfiguredProjects(makeProject(name, path));
    }
    static bool rewrite(const ProjectItems& projects) {
        return FileProcessor::saveRecentlyConfiguredProjects(projects);
    }

    static constexpr std::string_view Registry = ".Kestrel/AllProjects.cfg";
    TemporaryHome m_home;
};

std::string entry(const std::string& name, const std::string& path) {
    return R"({"ProjectName":")" + name + R"(","Path":")" + path + R"("})";
}

TEST_F(ProjectRegistryTest, LiesInAHiddenFolderOfTheHome) {
    EXPECT_EQ(registryLocation(), m_home.path() / ".Kestrel/AllProjects.cfg");
}

TEST_F(ProjectRegistryTest, LoadingWithoutARegistryGivesNothingAndMakesNothing) {
    EXPECT_TRUE(FileProcessor::loadRecentlyConfiguredProjects().empty());
    EXPECT_TRUE(namesIn(m_home.path()).empty());
}

TEST_F(ProjectRegistryTest, TheFirstAddMakesTheRegistry) {
    EXPECT_TRUE(add("demo", "/p/demo/"));
    EXPECT_EQ(registry(), R"({"version":"1","1":{"ProjectName":"demo","Path":"/p/demo"}})");
    EXPECT_EQ(namesIn(folder()), Names{"AllProjects.cfg"});
}

TEST_F(ProjectRegistryTest, AddingTwiceGivesTwoMembers) {
    EXPECT_TRUE(add("demo", "/p"));
    EXPECT_TRUE(add("demo", "/p"));
    EXPECT_EQ(registry(), R"({"version":"1","1":)" + entry("demo", "/p") + R"(,"2":)" +
                              entry("demo", "/p") + "}");
}

TEST_F(ProjectRegistryTest, TheNextKeyFollowsTheLargestNumber) {
    const std::string one = entry("a", "/a");
    writeRegistry(R"({"version":"1","1":)" + one + R"(,"7":)" + one + R"(,"x":)" + one + "}");
    EXPECT_TRUE(add("b", "/b"));
    EXPECT_NE(registry().find(R"("8":{"ProjectName":"b","Path":"/b"})"), std::string::npos);
    ASSERT_EQ(registryEntries().size(), 4U);
}

TEST_F(ProjectRegistryTest, OnlyAWholeNumberWithinItsRangeCountsForTheNextKey) {
    struct Case {
        const char* key;
        const char* next;
    };
    for (const auto& [key, next] :
         {Case{"7abc", "1"}, Case{" 7", "1"}, Case{"7 ", "1"}, Case{"0x7", "1"}, Case{"", "1"},
          Case{"+", "1"}, Case{"-", "1"}, Case{"+-7", "1"}, Case{"7.0", "1"}, Case{"+7", "8"},
          Case{"007", "8"}, Case{"-7", "1"}, Case{"0", "1"}, Case{"9223372036854775808", "1"},
          Case{"-9223372036854775808", "1"}, Case{"9223372036854775806", "9223372036854775807"}}) {
        writeRegistry("{\"" + std::string(key) + "\":" + entry("a", "/a") + "}");
        EXPECT_TRUE(add("b", "/b")) << key;
        EXPECT_EQ(registry(), "{\"" + std::string(key) + "\":" + entry("a", "/a") + ",\"" + next +
                                  "\":" + entry("b", "/b") + "}");
    }
}

TEST_F(ProjectRegistryTest, ALargestKeyThatCannotBeIncreasedMakesTheAddFail) {
    const std::string text = R"({"9223372036854775807":)" + entry("a", "/a") + "}";
    writeRegistry(text);
    EXPECT_FALSE(add("b", "/b"));
    EXPECT_EQ(registry(), text);
}

TEST_F(ProjectRegistryTest, AddingToWhatIsNoRegistryFailsAndLeavesIt) {
    for (const std::string_view text : {"", "[]", "7", "{", "{\"1\":", "\xff"}) {
        writeRegistry(text);
        EXPECT_FALSE(add("b", "/b")) << text;
        EXPECT_EQ(registry(), text);
        EXPECT_TRUE(FileProcessor::loadRecentlyConfiguredProjects().empty());
    }
    EXPECT_EQ(namesIn(folder()), Names{"AllProjects.cfg"});
}

TEST_F(ProjectRegistryTest, AFolderOrFifoInItsPlaceIsNoRegistry) {
    std::filesystem::create_directories(registryLocation());
    EXPECT_FALSE(add("b", "/b"));
    EXPECT_FALSE(rewrite({makeProject("b", "/b")}));
    EXPECT_TRUE(FileProcessor::loadRecentlyConfiguredProjects().empty());
    std::filesystem::remove(registryLocation());
    ASSERT_EQ(::mkfifo(registryLocation().c_str(), 0600), 0);
    EXPECT_FALSE(add("b", "/b"));
    EXPECT_FALSE(rewrite({makeProject("b", "/b")}));
    EXPECT_TRUE(FileProcessor::loadRecentlyConfiguredProjects().empty());
    EXPECT_EQ(namesIn(folder()), Names{"AllProjects.cfg"});
}

TEST_F(ProjectRegistryTest, AFileWhereItsFolderShouldBeMakesBothWritersFail) {
    m_home.write(".Kestrel", "x");
    EXPECT_FALSE(add("b", "/b"));
    EXPECT_FALSE(rewrite({}));
    EXPECT_EQ(contentOf(folder()), "x");
}

TEST_F(ProjectRegistryTest, ADanglingLinkIsWrittenThrough) {
    std::filesystem::create_directory(folder());
    std::filesystem::create_symlink("real.cfg", registryLocation());
    EXPECT_TRUE(add("b", "/b"));
    EXPECT_TRUE(std::filesystem::is_symlink(registryLocation()));
    EXPECT_EQ(contentOf(folder() / "real.cfg"), R"({"version":"1","1":)" + entry("b", "/b") + "}");
}

TEST_F(ProjectRegistryTest, ANameThatIsNotUtf8IsNotAdded) {
    EXPECT_FALSE(add("\xff", "/b"));
    EXPECT_EQ(registry(), R"({"version":"1"})");
    EXPECT_FALSE(rewrite({makeProject("\xff", "/b")}));
    EXPECT_EQ(registry(), R"({"version":"1"})");
}

TEST_F(ProjectRegistryTest, NoProjectIsNotAdded) {
    EXPECT_FALSE(FileProcessor::saveToRecentlyConfiguredProjects(nullptr));
    EXPECT_TRUE(namesIn(m_home.path()).empty());
}

TEST_F(ProjectRegistryTest, ARewriteNumbersFromZeroAndDropsTheVersion) {
    EXPECT_TRUE(add("a", "/a"));
    EXPECT_TRUE(add("b", "/b"));
    EXPECT_TRUE(rewrite({makeProject("b", "/b")}));
    EXPECT_EQ(registry(), R"({"0":)" + entry("b", "/b") + "}");
    EXPECT_TRUE(add("c", "/c"));
    EXPECT_EQ(registry(), R"({"0":)" + entry("b", "/b") + R"(,"1":)" + entry("c", "/c") + "}");
    EXPECT_EQ(namesIn(folder()), Names{"AllProjects.cfg"});
}

TEST_F(ProjectRegistryTest, ARewriteMakesAMissingRegistry) {
    EXPECT_TRUE(rewrite({}));
    EXPECT_EQ(registry(), "{}");
}

TEST_F(ProjectRegistryTest, ARewriteThatDropsMoreThanOneProjectKeepsABackupFirst) {
    const std::string text = R"({"1":)" + entry("a", "/a") + R"(,"2":)" + entry("lost", "/l") +
                             R"(,"3":)" + entry("c", "/c") + "}";
    writeRegistry(text);
    EXPECT_TRUE(rewrite({makeProject("c", "/c/")}));
    EXPECT_EQ(contentOf(folder() / "AllProjects.cfg.bak"), text);
    EXPECT_EQ(registry(), R"({"0":)" + entry("c", "/c") + "}");
    EXPECT_TRUE(rewrite({}));
    EXPECT_EQ(namesIn(folder()), (Names{"AllProjects.cfg", "AllProjects.cfg.bak"}));
}

TEST_F(ProjectRegistryTest, ARewriteOfTheSameProjectListedTwiceCountsBoth) {
    const std::string text = R"({"1":)" + entry("a", "/a") + R"(,"2":)" + entry("a", "/a") +
                             R"(,"3":)" + entry("a", "/a") + "}";
    writeRegistry(text);
    EXPECT_TRUE(rewrite({makeProject("a", "/a")}));
    EXPECT_EQ(contentOf(folder() / "AllProjects.cfg.bak"), text);
}

TEST_F(ProjectRegistryTest, ARewriteKeepsWhatWasNotUnderstoodOnce) {
    const std::string good = R"("1":)" + entry("a", "/a");
    int number = 0;
    for (const std::string& text :
         {std::string("{"), std::string(), std::string("[]"), "{" + good + R"(,"2":7})",
          "{" + good + R"(,"note":"mine"})", "{" + good + R"(,"version":"2"})",
          "{" + good + "," + good + "}", "{" + good + R"(,"2":{"ProjectName":"b"}})",
          std::string(R"({"1":{"ProjectName":"a","Path":"/a","Colour":"red"}})"),
          std::string(R"({"1":{"ProjectName":"a","Path":"/a","Colour":7}})")}) {
        writeRegistry(text);
        EXPECT_TRUE(rewrite({makeProject("a", "/a")})) << text;
        EXPECT_TRUE(rewrite({makeProject("a", "/a")})) << text;
        const std::string ending = number == 0 ? ".bak" : ".bak" + std::to_string(number);
        EXPECT_EQ(contentOf(folder() / ("AllProjects.cfg" + ending)), text);
        EXPECT_EQ(registry(), R"({"0":)" + entry("a", "/a") + "}");
        ++number;
    }
    EXPECT_EQ(namesIn(folder()).size(), static_cast<std::size_t>(number) + 1);
}

TEST_F(ProjectRegistryTest, AnAddKeepsUnknownMembersAndMakesOneBackupOfThem) {
    const std::string text = R"({"note":"mine","1":)" + entry("a", "/a") + R"(,"2":[7]})";
    writeRegistry(text);
    EXPECT_TRUE(add("b", "/b"));
    EXPECT_TRUE(add("c", "/c"));
    EXPECT_EQ(registry(), text.substr(0, text.size() - 1) + R"(,"3":)" + entry("b", "/b") +
                              R"(,"4":)" + entry("c", "/c") + "}");
    EXPECT_EQ(contentOf(folder() / "AllProjects.cfg.bak"), text);
    EXPECT_EQ(namesIn(folder()), (Names{"AllProjects.cfg", "AllProjects.cfg.bak"}));
}

TEST_F(ProjectRegistryTest, AnAddKeepsABackupOfRepeatedMembers) {
    const std::string text = R"({"1":)" + entry("a", "/a") + R"(,"1":)" + entry("b", "/b") + "}";
    writeRegistry(text);
    m_home.write(".Kestrel/AllProjects.cfg.bak", "an older one");
    EXPECT_TRUE(add("c", "/c"));
    EXPECT_EQ(registry(), R"({"1":)" + entry("b", "/b") + R"(,"2":)" + entry("c", "/c") + "}");
    EXPECT_EQ(contentOf(folder() / "AllProjects.cfg.bak"), "an older one");
    EXPECT_EQ(contentOf(folder() / "AllProjects.cfg.bak1"), text);
}

TEST_F(ProjectRegistryTest, AFullDiskLeavesTheOldRegistry) {
    writeRegistry(R"({"1":)" + entry("a", "/a") + "}");
    const std::string before = registry();
    EXPECT_TRUE(holdsWithFileSizeLimit(10, [] { return !add("b", "/b"); }));
    EXPECT_TRUE(holdsWithFileSizeLimit(10, [] { return !rewrite({makeProject("a", "/a")}); }));
    EXPECT_EQ(registry(), before);
    EXPECT_EQ(namesIn(folder()), Names{"AllProjects.cfg"});
}

TEST_F(ProjectRegistryTest, ARegistryThatCannotBeReadOrWrittenStays) {
    if (isRoot()) {
        EXPECT_TRUE(passesAsOrdinaryUser());
        return;
    }
    writeRegistry(R"({"1":)" + entry("a", "/a") + "}");
    const auto path = registryLocation();
    const std::string before = registry();
    for (const mode_t mode : {0000U, 0200U, 0400U}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        EXPECT_FALSE(add("b", "/b")) << mode;
        EXPECT_FALSE(rewrite({makeProject("b", "/b")})) << mode;
        EXPECT_EQ(registryEntries().size(), mode == 0400U ? 1U : 0U);
    }
    ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
    EXPECT_EQ(registry(), before);
    EXPECT_EQ(namesIn(folder()), Names{"AllProjects.cfg"});
}

TEST_F(ProjectRegistryTest, MembersThatDescribeNoProjectAreLeftOut) {
    writeRegistry(R"({"version":"1","a":7,"b":{"ProjectName":"x"},"c":{"Path":"/x"},"d":[],)"
                  R"("e":{"ProjectName":"x","Path":"/x","n":1},)"
                  R"("f":{"ProjectName":"x","Path":"/x","n":"extra"},"g":null})");
    const auto entries = registryEntries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].name, "x");
    EXPECT_EQ(entries[0].path, "/x");
}

TEST_F(ProjectRegistryTest, TheOrderOfTheDocumentIsTheOrderOfTheProjects) {
    writeRegistry(R"({"9":)" + entry("first", "/1") + R"(,"-3":)" + entry("second", "/2") +
                  R"(,"10":)" + entry("third", "/3") + "}");
    const auto entries = registryEntries();
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].name, "first");
    EXPECT_EQ(entries[1].name, "second");
    EXPECT_EQ(entries[2].name, "third");
}

TEST_F(ProjectRegistryTest, AProjectIsRegisteredByItsNameAndFolder) {
    EXPECT_FALSE(isRegistered(*makeProject("demo", "/p")));
    writeRegistry(R"({"1":)" + entry("demo", "/p/") + "}");
    EXPECT_TRUE(isRegistered(*makeProject("demo", "/p")));
    EXPECT_FALSE(isRegistered(*makeProject("other", "/p")));
    EXPECT_FALSE(isRegistered(*makeProject("demo", "/q")));
}

} // namespace
} // namespace kestrel
