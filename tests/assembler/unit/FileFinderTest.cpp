// SPDX-License-Identifier: MIT
#include "assembler/reading/FileFinder.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace nesasm {

namespace {

class FileFinderTest : public ::testing::Test {
protected:
    std::string path(const std::string& name) const { return (m_folder.path() / name).string(); }
    void write(const std::string& name) const { m_folder.write(name, "x"); }
    static std::string found(const FileFinder& finder, std::string_view name,
                             const std::string& folder = {}, bool isSource = true) {
        const auto result = finder.find(name, folder, isSource);
        return result && result->isRegular ? result->path : "";
    }

    kestrel::test::TemporaryFolder m_folder;
};

TEST_F(FileFinderTest, SearchesOptionsThenEnvironmentThenTheIncludingFolderThenBareNames) {
    write("option/sub/f.asm");
    write("environment/sub/f.asm");
    write("including/sub/f.asm");
    write("environment/f.asm");
    const FileFinder finder({path("option")}, path("environment"));
    const std::string folder = path("including");
    for (const char* const expected : {"option/sub/f.asm", "environment/sub/f.asm",
                                       "including/sub/f.asm", "environment/f.asm"}) {
        EXPECT_EQ(found(finder, "sub/f.asm", folder), path(expected));
        std::filesystem::remove(path(expected));
    }
    EXPECT_EQ(found(finder, "sub/f.asm", folder), "");
}

TEST_F(FileFinderTest, TheListMayNameOneFolderWithAColon) {
    write("a:b/f.asm");
    write("c/f.asm");
    EXPECT_EQ(found(FileFinder({}, path("a:b")), "f.asm"), path("a:b/f.asm"));
    EXPECT_EQ(found(FileFinder({}, path("none") + "::" + path("c")), "f.asm"), path("c/f.asm"));
}

TEST_F(FileFinderTest, ABackslashIsASeparator) {
    write("e/sub/f.asm");
    EXPECT_EQ(found(FileFinder({}, path("e")), "sub\\f.asm"), path("e/sub/f.asm"));
}

TEST_F(FileFinderTest, ASourceMayLackItsEndingAndDataMayNot) {
    write("e/f.asm");
    std::filesystem::create_directory(path("e/g"));
    write("e/g.asm");
    const FileFinder finder({}, path("e"));
    EXPECT_EQ(found(finder, "f"), path("e/f.asm"));
    EXPECT_EQ(found(finder, "g"), path("e/g.asm"));
    EXPECT_EQ(found(finder, "f", {}, false), "");
}

TEST_F(FileFinderTest, OneFileThatDiffersInCaseIsTakenAndTwoAreNot) {
    write("e/Sub/File.ASM");
    const FileFinder finder({}, path("e"));
    const auto result = finder.find("sub/fILE.asm", {}, true);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->path, path("e/Sub/File.ASM"));
    EXPECT_TRUE(result->caseDiffers);
    write("e/Sub/file.ASM");
    EXPECT_FALSE(finder.find("sub/fILE.asm", {}, true));
    const auto exact = finder.find("Sub/file.ASM", {}, true);
    ASSERT_TRUE(exact);
    EXPECT_FALSE(exact->caseDiffers);
}

TEST_F(FileFinderTest, AFolderIsNoFile) {
    std::filesystem::create_directories(path("e/data.bin"));
    const auto result = FileFinder({}, path("e")).find("data.bin", {}, false);
    ASSERT_TRUE(result);
    EXPECT_FALSE(result->isRegular);
}

TEST_F(FileFinderTest, TheInputComesFromTheEnvironmentFirst) {
    write("e/game.asm");
    FileFinder finder({}, path("e"));
    const auto result = finder.findInput("game.asm");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->path, path("e/game.asm"));
    EXPECT_FALSE(FileFinder({}, path("e")).findInput("no-such-file.asm"));
}

/// Makes `folder` the current one until the end of its scope.
class CurrentFolder {
public:
    explicit CurrentFolder(const std::filesystem::path& folder)
        : m_former(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    CurrentFolder(CurrentFolder&&) = delete;
    CurrentFolder& operator=(CurrentFolder&&) = delete;
    ~CurrentFolder() { std::filesystem::current_path(m_former); }

private:
    std::filesystem::path m_former;
};

TEST_F(FileFinderTest, TheCurrentFolderIsLeftOutOnlyWhenTheInputComesFromTheEnvironment) {
    write("e/src/game.asm");
    write("here/stray.asm");
    write("here/own/game.asm");
    write("option/given/game.asm");
    write("e/flat.asm");
    const CurrentFolder current(m_folder.path() / "here");
    const auto takesStray = [&](const std::string& input) {
        FileFinder finder({path("option")}, path("e"));
        EXPECT_TRUE(finder.findInput(input)) << input;
        return !found(finder, "stray.asm").empty();
    };
    EXPECT_FALSE(takesStray("src/game.asm"));
    EXPECT_FALSE(takesStray("SRC/Game.asm"));
    EXPECT_FALSE(takesStray("nowhere/flat.asm"));
    EXPECT_FALSE(takesStray("flat.asm"));
    EXPECT_TRUE(takesStray("own/game.asm"));
    EXPECT_TRUE(takesStray("given/game.asm"));
    EXPECT_TRUE(takesStray("stray.asm"));
    EXPECT_TRUE(takesStray(path("e/src/game.asm")));
}

} // namespace

} // namespace nesasm
