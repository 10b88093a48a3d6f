// SPDX-License-Identifier: MIT
#include "model/FileReader.h"

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace kestrel {
namespace {

using test::TemporaryFolder;

/// Why the file cannot be read as a JSON object; empty when it can.
std::string reasonFor(const std::filesystem::path& file) {
    std::string reason;
    readJsonObject(file, nullptr, &reason);
    return reason;
}

TEST(FileReader, GivesEveryByteOfAFile) {
    const TemporaryFolder folder;
    std::string content;
    for (int i = 0; i < 200'000; ++i) {
        content += static_cast<char>(i);
    }
    EXPECT_EQ(readFile(folder.write("file", content)), content);
    EXPECT_EQ(readFile(folder.write("empty", "")), "");
}

TEST(FileReader, FollowsALink) {
    const TemporaryFolder folder;
    folder.write("file", "x");
    std::filesystem::create_symlink("file", folder.path() / "link");
    EXPECT_EQ(readFile(folder.path() / "link"), "x");
}

TEST(FileReader, ReadsNothingWhereThereIsNoRegularFile) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nothing", folder.path() / "dangling");
    std::filesystem::create_symlink("ring", folder.path() / "ring");
    EXPECT_FALSE(readFile(folder.path()));
    EXPECT_FALSE(readFile(folder.path() / "dangling"));
    EXPECT_FALSE(readFile(folder.path() / "ring"));
    EXPECT_FALSE(readFile(folder.path() / "none"));
    EXPECT_FALSE(readFile("/dev/zero"));
    EXPECT_FALSE(readFile(""));
}

TEST(FileReader, DoesNotWaitForTheWriterOfAFifo) {
    const TemporaryFolder folder;
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_FALSE(readFile(fifo));
    EXPECT_FALSE(readJsonFile(fifo));
}

TEST(FileReader, DoesNotCutAPathAtANulByte) {
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "x").native();
    EXPECT_FALSE(readFile(file + std::string("\0", 1)));
}

TEST(FileReader, ReadsAFileOfTheLimitAndNoLargerOne) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "12345");
    EXPECT_EQ(readFile(file, 5), "12345");
    EXPECT_FALSE(readFile(file, 4));
}

TEST(FileReader, ReadsAFileWhoseSizeIsNotKnownBeforehand) {
    // What the kernel makes up while it is read is a regular file of size 0.
    const auto content = readFile("/proc/self/status");
    ASSERT_TRUE(content);
    EXPECT_NE(content->find("Pid:"), std::string::npos);
    EXPECT_FALSE(readFile("/proc/self/status", 10));
}

TEST(FileReader, AFileWithoutReadPermissionIsUnreadable) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    const TemporaryFolder folder;
    const auto file = folder.write("file", "{}");
    ASSERT_TRUE(readFile(file));
    std::filesystem::permissions(file, std::filesystem::perms::owner_write);
    EXPECT_FALSE(readFile(file));
    EXPECT_EQ(reasonFor(file), "Permission denied");
    EXPECT_FALSE(readJsonFile(file));
}

TEST(FileReader, ReadsAJsonFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(readJsonFile(folder.write("file", R"({"a":1})")), parseJson(R"({"a":1})"));
    EXPECT_FALSE(readJsonFile(folder.write("empty", "")));
    EXPECT_FALSE(readJsonFile(folder.write("truncated", R"({"a":)")));
    EXPECT_FALSE(readJsonFile(folder.path()));
}

TEST(FileReader, AJsonFileOf200MebibytesIsUnreadable) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "{}");
    ASSERT_EQ(::truncate(file.c_str(), 200LL * 1024 * 1024), 0);
    EXPECT_FALSE(readJsonFile(file));
}

TEST(FileReader, AJsonFileAboveTheLimitIsUnreadableThoughItIsGoodJson) {
    const TemporaryFolder folder;
    const std::string blanks(MaximumConfigurationSize, ' ');
    EXPECT_FALSE(readJsonFile(folder.write("file", blanks + "7")));
    EXPECT_EQ(readJsonFile(folder.write("file", blanks.substr(0, 100'000) + "7")), Dictionary(7));
}

TEST(FileReader, SaysWhyAFileCannotBeRead) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("ring", folder.path() / "ring");
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(reasonFor(folder.path() / "none"), "No such file or directory");
    EXPECT_EQ(reasonFor(folder.write("file", "{}") / "below"), "Not a directory");
    EXPECT_EQ(reasonFor(folder.path() / "ring"), "Too many levels of symbolic links");
    EXPECT_EQ(reasonFor(folder.path()), "it is a folder");
    EXPECT_EQ(reasonFor(fifo), "it is no regular file");
    EXPECT_EQ(reasonFor(""), "its path is empty or holds a NUL character");
    EXPECT_EQ(reasonFor(folder.path() / "file"), "");
}

TEST(FileReader, SaysThatAFileIsTooLarge) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "12345");
    std::string reason;
    EXPECT_FALSE(readFile(file, 4, &reason));
    EXPECT_EQ(reason, "it is larger than 4 bytes");
    EXPECT_FALSE(readFile("/proc/self/status", 10, &reason)); // its size is known only at its end
    EXPECT_EQ(reason, "it is larger than 10 bytes");
    ASSERT_EQ(::truncate(file.c_str(), 65LL * 1024 * 1024), 0);
    EXPECT_EQ(reasonFor(file), "it is larger than 64 MiB");
}

TEST(FileReader, SaysWhyAFileIsNoJsonObject) {
    const TemporaryFolder folder;
    EXPECT_EQ(reasonFor(folder.write("list", "[]")), "it is no JSON object");
    EXPECT_TRUE(reasonFor(folder.write("cut", "{\n\"a\":"))
                    .starts_with("parse error at line 2, column 5: "));
}

} // namespace
} // namespace kestrel
