// SPDX-License-Identifier: MIT
#include "model/FileWriter.h"

#include "model/FileReader.h"
#include "model/ModelFixtures.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace kestrel {
namespace {

using test::contentOf;
using test::namesIn;
using test::TemporaryFolder;
using Names = std::vector<std::string>;

unsigned modeOf(const std::filesystem::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

TEST(FileWriter, CreatesAndReplacesAFileWhole) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "file";
    EXPECT_TRUE(replaceFile(file, "a long first content"));
    EXPECT_EQ(contentOf(file), "a long first content");
    EXPECT_TRUE(replaceFile(file, std::string_view("a\0b", 3)));
    EXPECT_EQ(contentOf(file), std::string("a\0b", 3));
    EXPECT_TRUE(replaceFile(file, ""));
    EXPECT_EQ(contentOf(file), "");
    EXPECT_EQ(namesIn(folder.path()), Names{"file"});
}

TEST(FileWriter, AReaderOfTheOldFileKeepsTheOldContent) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "old");
    std::filesystem::create_hard_link(file, folder.path() / "second name");
    EXPECT_TRUE(replaceFile(file, "new"));
    EXPECT_EQ(contentOf(folder.path() / "second name"), "old");
}

TEST(FileWriter, KeepsThePermissionsOfTheOldFile) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "old");
    for (const unsigned mode : {0600U, 0755U, 0666U, 0640U}) {
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        EXPECT_TRUE(replaceFile(file, "new"));
        EXPECT_EQ(modeOf(file), mode);
    }
}

TEST(FileWriter, GivesANewFileThePermissionsThatTheUmaskLeaves) {
    const TemporaryFolder folder;
    const mode_t former = ::umask(0027);
    EXPECT_TRUE(replaceFile(folder.path() / "file", "x"));
    ::umask(former);
    EXPECT_EQ(modeOf(folder.path() / "file"), 0640U);
}

TEST(FileWriter, WritesThroughAChainOfLinks) {
    const TemporaryFolder folder;
    folder.write("real/file", "old");
    std::filesystem::create_symlink("real/file", folder.path() / "first");
    std::filesystem::create_symlink(folder.path() / "first", folder.path() / "second");
    EXPECT_TRUE(replaceFile(folder.path() / "second", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "second"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "first"));
    EXPECT_EQ(contentOf(folder.path() / "real/file"), "new");
    EXPECT_EQ(namesIn(folder.path()), (Names{"first", "real", "second"}));
    EXPECT_EQ(namesIn(folder.path() / "real"), Names{"file"});
}

TEST(FileWriter, CreatesWhatADanglingLinkPointsTo) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("target", folder.path() / "link");
    EXPECT_TRUE(replaceFile(folder.path() / "link", "x"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
    EXPECT_EQ(contentOf(folder.path() / "target"), "x");
}

TEST(FileWriter, ALinkIntoAFolderThatIsNotThereFails) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("none/target", folder.path() / "link");
    EXPECT_FALSE(replaceFile(folder.path() / "link", "x"));
    EXPECT_EQ(namesIn(folder.path()), Names{"link"});
}

TEST(FileWriter, ARingOfLinksFails) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("b", folder.path() / "a");
    std::filesystem::create_symlink("a", folder.path() / "b");
    EXPECT_FALSE(replaceFile(folder.path() / "a", "x"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"a", "b"}));
}

TEST(FileWriter, ReplacesRegularFilesOnly) {
    const TemporaryFolder folder;
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_directory(folder.path() / "folder");
    EXPECT_FALSE(replaceFile(fifo, "x"));
    EXPECT_FALSE(replaceFile(folder.path() / "folder", "x"));
    EXPECT_FALSE(replaceFile(folder.path() / "folder/", "x"));
    EXPECT_FALSE(replaceFile("/dev/null", "x"));
    EXPECT_FALSE(replaceFile("", "x"));
    EXPECT_FALSE(replaceFile((folder.path() / "file").native() + std::string("\0x", 2), "x"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"fifo", "folder"}));
}

TEST(FileWriter, ANameOf255BytesWorks) {
    const TemporaryFolder folder;
    const auto file = folder.path() / std::string(255, 'n');
    EXPECT_TRUE(replaceFile(file, "one"));
    EXPECT_TRUE(replaceFile(file, "two"));
    EXPECT_EQ(contentOf(file), "two");
    EXPECT_FALSE(replaceFile(folder.path() / std::string(256, 'n'), "x"));
    EXPECT_EQ(namesIn(folder.path()).size(), 1U);
}

TEST(FileWriter, AFullDiskLeavesTheOldFileWholeAndNothingElse) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "old");
    EXPECT_TRUE(test::holdsWithFileSizeLimit(
        4096, [&] { return !replaceFile(file, std::string(100'000, 'x')); }));
    EXPECT_TRUE(test::holdsWithFileSizeLimit(
        4096, [&] { return !saveBytes(folder.path() / "new", std::string(100'000, 'x')); }));
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_EQ(namesIn(folder.path()), Names{"file"});
}

TEST(FileWriter, WhatFitsIsWrittenUnderTheSameLimit) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "old");
    EXPECT_TRUE(test::holdsWithFileSizeLimit(
        4096, [&] { return replaceFile(file, std::string(4096, 'x')); }));
    EXPECT_EQ(contentOf(file), std::string(4096, 'x'));
}

TEST(FileWriter, AFileWithoutWritePermissionIsNotReplaced) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    const TemporaryFolder folder;
    const auto file = folder.write("file", "old");
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    EXPECT_FALSE(replaceFile(file, "new"));
    EXPECT_FALSE(saveBytes(file, "new"));
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_EQ(namesIn(folder.path()), Names{"file"});
}

TEST(FileWriter, NothingIsWrittenInAFolderWithoutWritePermission) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    const TemporaryFolder folder;
    const auto file = folder.write("closed/file", "old");
    ASSERT_EQ(::chmod(file.parent_path().c_str(), 0555), 0);
    EXPECT_FALSE(replaceFile(file, "new"));
    EXPECT_FALSE(replaceFile(file.parent_path() / "other", "new"));
    EXPECT_FALSE(createFolders(file.parent_path() / "below"));
    EXPECT_FALSE(keepBackup(file));
    EXPECT_EQ(contentOf(file), "old");
    ASSERT_EQ(::chmod(file.parent_path().c_str(), 0755), 0);
    EXPECT_EQ(namesIn(file.parent_path()), Names{"file"});
}

TEST(FileWriter, SavingMakesTheMissingFolders) {
    const TemporaryFolder folder;
    EXPECT_TRUE(saveBytes(folder.path() / "a/b/c/file", "x"));
    EXPECT_EQ(contentOf(folder.path() / "a/b/c/file"), "x");
}

TEST(FileWriter, SavingBelowAFileFails) {
    const TemporaryFolder folder;
    folder.write("file", "x");
    EXPECT_FALSE(saveBytes(folder.path() / "file/below", "y"));
    EXPECT_FALSE(createFolders(folder.path() / "file"));
    EXPECT_EQ(contentOf(folder.path() / "file"), "x");
}

TEST(FileWriter, AFolderThatIsThereAlreadyIsFine) {
    const TemporaryFolder folder;
    std::filesystem::create_directory_symlink(folder.path(), folder.path() / "link");
    EXPECT_TRUE(createFolders(folder.path()));
    EXPECT_TRUE(createFolders(folder.path().native() + "/"));
    EXPECT_TRUE(createFolders(folder.path() / "link"));
    EXPECT_TRUE(createFolders(folder.path() / "link/new/"));
    EXPECT_FALSE(createFolders(""));
}

TEST(FileWriter, ABackupNeverOverwritesAnother) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "one");
    EXPECT_TRUE(keepBackup(file));
    folder.write("file", "two");
    EXPECT_TRUE(keepBackup(file));
    folder.write("file", "three");
    EXPECT_TRUE(keepBackup(file));
    EXPECT_EQ(contentOf(folder.path() / "file.bak"), "one");
    EXPECT_EQ(contentOf(folder.path() / "file.bak1"), "two");
    EXPECT_EQ(contentOf(folder.path() / "file.bak2"), "three");
    EXPECT_EQ(contentOf(file), "three");
    EXPECT_EQ(namesIn(folder.path()), (Names{"file", "file.bak", "file.bak1", "file.bak2"}));
    EXPECT_EQ(backupLocation(file), folder.path() / "file.bak");
}

TEST(FileWriter, ABackupWithTheSameBytesIsEnough) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "one");
    EXPECT_TRUE(keepBackup(file));
    EXPECT_TRUE(keepBackup(file));
    EXPECT_EQ(namesIn(folder.path()), (Names{"file", "file.bak"}));
}

TEST(FileWriter, ABackupKeepsThePermissions) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "secret");
    ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
    EXPECT_TRUE(keepBackup(file));
    EXPECT_EQ(modeOf(folder.path() / "file.bak"), 0600U);
}

TEST(FileWriter, ABackupOfNothingIsNoFailure) {
    const TemporaryFolder folder;
    EXPECT_TRUE(keepBackup(folder.path() / "none"));
    EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(FileWriter, ABackupOfAFolderOrFifoFailsAndLeavesNothing) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder.path() / "fifo").c_str(), 0600), 0);
    std::filesystem::create_directory(folder.path() / "folder");
    EXPECT_FALSE(keepBackup(folder.path() / "fifo"));
    EXPECT_FALSE(keepBackup(folder.path() / "folder"));
    EXPECT_EQ(namesIn(folder.path()), (Names{"fifo", "folder"}));
}

TEST(FileWriter, TheBackupOfALongNameIsCutBetweenCharacters) {
    const TemporaryFolder folder;
    std::string name = "n";
    for (int i = 0; i < 127; ++i) {
        name += "\xc3\xa9";
    }
    ASSERT_EQ(name.size(), 255U);
    const auto file = folder.write(name, "x");
    EXPECT_TRUE(keepBackup(file));
    EXPECT_EQ(backupLocation(file).filename().native(), name.substr(0, 251) + ".bak");
    EXPECT_EQ(contentOf(backupLocation(file)), "x");
    folder.write(name, "yy");
    EXPECT_TRUE(keepBackup(file));
    EXPECT_EQ(contentOf(folder.path() / (name.substr(0, 249) + ".bak1")), "yy");
}

TEST(FileWriter, AFullDiskLeavesNoPartOfABackup) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", std::string(100'000, 'x'));
    EXPECT_TRUE(test::holdsWithFileSizeLimit(4096, [&] { return !keepBackup(file); }));
    EXPECT_EQ(namesIn(folder.path()), Names{"file"});
}

TEST(FileWriter, FilesReplacedTogetherAreAllReplaced) {
    const TemporaryFolder folder;
    const auto first = folder.write("first", "old 1");
    const auto second = folder.path() / "second";
    EXPECT_TRUE(replaceFilesTogether({{first, "new 1"}, {second, "new 2"}}));
    EXPECT_EQ(contentOf(first), "new 1");
    EXPECT_EQ(contentOf(second), "new 2");
    EXPECT_EQ(namesIn(folder.path()), (Names{"first", "second"}));
    EXPECT_TRUE(replaceFilesTogether({}));
}

TEST(FileWriter, ARenameThatFailsPutsTheFilesBackThatWereRenamedBefore) {
    const TemporaryFolder folder;
    const auto present = folder.write("present", "old");
    ASSERT_EQ(::chmod(present.c_str(), 0640), 0);
    // Only the rename itself finds out that the last name is too long.
    EXPECT_FALSE(replaceFilesTogether({{present, "new"},
                                       {folder.path() / "fresh", "new"},
                                       {present, "newer"},
                                       {folder.path() / std::string(256, 'n'), "new"}}));
    EXPECT_EQ(contentOf(present), "old");
    EXPECT_EQ(modeOf(present), 0640U);
    EXPECT_EQ(namesIn(folder.path()), Names{"present"});
}

TEST(FileWriter, FilesReplacedTogetherChangeOnlyWhenAllCouldBeWritten) {
    const TemporaryFolder folder;
    const auto first = folder.write("first", "old 1");
    const auto second = folder.write("second", "old 2");
    EXPECT_FALSE(replaceFilesTogether({{first, "new"}, {folder.path() / "none/x", "new"}}));
    EXPECT_FALSE(replaceFilesTogether({{first, "new"}, {folder.path(), "new"}}));
    EXPECT_TRUE(test::holdsWithFileSizeLimit(4096, [&] {
        return !replaceFilesTogether({{first, "new"}, {second, std::string(100'000, 'x')}});
    }));
    EXPECT_EQ(contentOf(first), "old 1");
    EXPECT_EQ(contentOf(second), "old 2");
    EXPECT_EQ(namesIn(folder.path()), (Names{"first", "second"}));
}

/// Why `content` cannot be saved at `path`; empty when it can.
std::string reasonFor(const std::filesystem::path& path, std::string_view content = "x") {
    std::string reason;
    saveBytes(path, content, &reason);
    return reason;
}

TEST(FileWriter, SaysWhyAFileCannotBeSaved) {
    const TemporaryFolder folder;
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_symlink("ring", folder.path() / "ring");
    std::filesystem::create_directory(folder.path() / "folder");
    EXPECT_EQ(reasonFor(folder.path() / "file"), "");
    EXPECT_EQ(reasonFor(folder.path() / "file/below"), "Not a directory");
    EXPECT_EQ(reasonFor(folder.path() / "folder"), "a folder has its name");
    EXPECT_EQ(reasonFor(folder.path() / "folder/"), "its path names a folder");
    EXPECT_EQ(reasonFor(fifo), "what has its name is no regular file");
    EXPECT_EQ(reasonFor(folder.path() / "ring"), "it is a ring of links");
    EXPECT_EQ(reasonFor(folder.path() / std::string(256, 'n')), "File name too long");
    EXPECT_EQ(reasonFor(""), "its path is empty or holds a NUL character");
    EXPECT_TRUE(test::holdsWithFileSizeLimit(4096, [&] {
        return reasonFor(folder.path() / "big", std::string(100'000, 'x')) == "File too large";
    }));
}

TEST(FileWriter, SaysWhyNothingCanBeWrittenInAFolder) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    const TemporaryFolder folder;
    const auto file = folder.write("file", "old");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_EQ(reasonFor(file), "Permission denied");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0500));
    EXPECT_EQ(reasonFor(folder.path() / "new"), "Permission denied");
    EXPECT_EQ(reasonFor(folder.path() / "sub/new"), "Permission denied");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0700));
}

TEST(FileWriter, SaysWhyABackupCannotBeMade) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "folder");
    const auto backup = (folder.path() / "folder.bak").string();
    std::string reason;
    EXPECT_FALSE(keepBackup(folder.path() / "folder", &reason));
    EXPECT_EQ(reason,
              "the backup " + backup + " could not be made: the original is no regular file");
}

} // namespace
} // namespace kestrel
