// SPDX-License-Identifier: MIT
#include "build/SourceGatherer.h"

#include "model/Paths.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/stat.h>

namespace kestrel {
namespace {

using test::contentOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SourceGathererTest : public ::testing::Test {
protected:
    SourceGathererTest() { std::filesystem::create_directories(temp()); }

    std::filesystem::path temp() const { return m_folder.path() / "tmp"; }
    std::filesystem::path src() const { return m_folder.path() / "src"; }
    static std::shared_ptr<ProjectItem> entry(const std::string& name,
                                              const std::filesystem::path& path,
                                              FilePathType pathType = FilePathType::absolute) {
        auto item = std::make_shared<ProjectNavigationSettingItem>(name, path, FileType::text,
                                                                   ProjectType::nes);
        item->setItemPathType(pathType);
        return item;
    }
    std::vector<UncopiedFile> gather(const ProjectItems& files) const {
        return SourceGatherer(m_folder.path(), temp()).gather({&files});
    }
    bool clean(const ProjectItems& files) const {
        return SourceGatherer(m_folder.path(), temp()).clean({&files});
    }

    test::TemporaryFolder m_folder;
};

TEST_F(SourceGathererTest, CopiesAbsoluteAndRelativeEntriesFlat) {
    m_folder.write("src/a.asm", "A");
    m_folder.write("src/deep/b.asm", "B");
    EXPECT_THAT(
        gather({entry("a.asm", src()), entry("b.asm", "/src/deep", FilePathType::relative)}),
        IsEmpty());
    EXPECT_EQ(contentOf(temp() / "a.asm"), "A");
    EXPECT_EQ(contentOf(temp() / "b.asm"), "B");
}

TEST_F(SourceGathererTest, CopiesTheListsInTheirOrderSoThatTheLaterOfOneNameWins) {
    m_folder.write("one/x", "first");
    m_folder.write("two/x", "second");
    const ProjectItems assembly{entry("x", m_folder.path() / "one")};
    const ProjectItems graphics{entry("x", m_folder.path() / "two")};
    const ProjectItems palettes;
    SourceGatherer(m_folder.path(), temp()).gather({&assembly, &graphics, &palettes});
    EXPECT_EQ(contentOf(temp() / "x"), "second");
}

TEST_F(SourceGathererTest, LeavesFilesOfEarlierBuildsAlone) {
    m_folder.write("tmp/old.asm", "old");
    m_folder.write("src/a.asm", "A");
    gather({entry("a.asm", src())});
    EXPECT_EQ(contentOf(temp() / "old.asm"), "old");
}

TEST_F(SourceGathererTest, ReplacesAnEarlierCopyEvenAReadOnlyOne) {
    m_folder.write("src/a.asm", "new");
    const auto copy = m_folder.write("tmp/a.asm", "old and longer");
    std::filesystem::permissions(copy, std::filesystem::perms::owner_read);
    EXPECT_THAT(gather({entry("a.asm", src())}), IsEmpty());
    EXPECT_EQ(contentOf(copy), "new");
}

TEST_F(SourceGathererTest, RemovesTheEarlierCopyOfASourceThatIsGoneAndSaysNothing) {
    m_folder.write("tmp/a.asm", "stale");
    EXPECT_THAT(gather({entry("a.asm", src()), entry("b.asm", src())}), IsEmpty());
    EXPECT_FALSE(existsAt(temp() / "a.asm"));
}

TEST_F(SourceGathererTest, TellsOfASourceAndAFolderThatPermissionsClose) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    using std::filesystem::perms;
    const auto closed = m_folder.write("src/closed.asm", "new");
    m_folder.write("src/open.asm", "new");
    m_folder.write("tmp/closed.asm", "stale");
    m_folder.write("tmp/open.asm", "stale");
    m_folder.write("tmp/gone.asm", "stale");
    const ProjectItems files{entry("closed.asm", src()), entry("open.asm", src()),
                             entry("gone.asm", src()), entry("never.asm", src())};
    std::filesystem::permissions(closed, perms::none);
    std::filesystem::permissions(temp(), perms::owner_read | perms::owner_exec);
    EXPECT_THAT(
        gather(files),
        ElementsAre(UncopiedFile{"closed.asm", "Permission denied", true},
                    UncopiedFile{"gone.asm", "it cannot be read: No such file or directory", true},
                    UncopiedFile{"open.asm", "Permission denied", true}));
    EXPECT_EQ(contentOf(temp() / "closed.asm"), "stale");
    EXPECT_EQ(contentOf(temp() / "open.asm"), "stale");
    EXPECT_FALSE(clean(files));
    std::filesystem::permissions(temp(), perms::owner_all);
    EXPECT_THAT(gather(files), ElementsAre(UncopiedFile{
                                   "closed.asm", "it cannot be read: Permission denied", false}));
    EXPECT_FALSE(existsAt(temp() / "closed.asm"));
    EXPECT_EQ(contentOf(temp() / "open.asm"), "new");
}

TEST_F(SourceGathererTest, SkipsEntriesWithoutAFile) {
    m_folder.write("src/a.asm", "A");
    m_folder.write("tmp/a.asm", "kept");
    EXPECT_THAT(gather({entry("a.asm", src(), FilePathType::noPath)}), IsEmpty());
    EXPECT_EQ(contentOf(temp() / "a.asm"), "kept");
}

TEST_F(SourceGathererTest, LeavesAFileAloneThatLiesInTheTemporaryFolderItself) {
    m_folder.write("tmp/a.asm", "only copy");
    EXPECT_THAT(gather({entry("a.asm", temp())}), IsEmpty());
    EXPECT_EQ(contentOf(temp() / "a.asm"), "only copy");
}

TEST_F(SourceGathererTest, LeavesAHardLinkToTheSourceAlone) {
    const auto source = m_folder.write("src/a.asm", "only content");
    std::filesystem::create_hard_link(source, temp() / "a.asm");
    EXPECT_THAT(gather({entry("a.asm", src())}), IsEmpty());
    EXPECT_EQ(contentOf(source), "only content");
    EXPECT_EQ(std::filesystem::hard_link_count(source), 2U);
}

TEST_F(SourceGathererTest, LeavesAFileAloneThatTheSourceIsALinkTo) {
    m_folder.write("tmp/a.asm", "only copy");
    std::filesystem::create_directories(src());
    std::filesystem::create_symlink(temp() / "a.asm", src() / "a.asm");
    gather({entry("a.asm", src())});
    EXPECT_EQ(contentOf(temp() / "a.asm"), "only copy");
    EXPECT_EQ(contentOf(src() / "a.asm"), "only copy");
}

TEST_F(SourceGathererTest, LeavesALinkToTheSourceAlone) {
    const auto source = m_folder.write("src/a.asm", "A");
    std::filesystem::create_symlink(source, temp() / "a.asm");
    gather({entry("a.asm", src())});
    EXPECT_TRUE(std::filesystem::is_symlink(temp() / "a.asm"));
    EXPECT_EQ(contentOf(source), "A");
}

TEST_F(SourceGathererTest, ReplacesALinkToAnotherFileWithoutWritingThroughIt) {
    m_folder.write("src/a.asm", "A");
    const auto other = m_folder.write("precious.txt", "precious");
    std::filesystem::create_symlink(other, temp() / "a.asm");
    gather({entry("a.asm", src())});
    EXPECT_EQ(contentOf(other), "precious");
    EXPECT_FALSE(std::filesystem::is_symlink(temp() / "a.asm"));
    EXPECT_EQ(contentOf(temp() / "a.asm"), "A");
}

TEST_F(SourceGathererTest, AnotherFileOfThatNameDoesNotPushOutAUsersOwn) {
    m_folder.write("tmp/a.asm", "only copy");
    m_folder.write("src/a.asm", "other");
    EXPECT_THAT(gather({entry("a.asm", src()), entry("a.asm", temp())}), IsEmpty());
    EXPECT_EQ(contentOf(temp() / "a.asm"), "only copy");
    EXPECT_THAT(gather({entry("a.asm", temp()), entry("a.asm", src())}), IsEmpty());
    EXPECT_EQ(contentOf(temp() / "a.asm"), "only copy");
}

TEST_F(SourceGathererTest, AnotherFileOfThatNameDoesNotPushOutWhatASourceIsALinkTo) {
    m_folder.write("tmp/a.asm", "only copy");
    m_folder.write("tmp/b.asm", "another only copy");
    m_folder.write("one/a.asm", "other");
    m_folder.write("one/b.asm", "other");
    std::filesystem::create_directories(src());
    std::filesystem::create_symlink(temp() / "a.asm", src() / "a.asm");
    std::filesystem::create_symlink(temp() / "b.asm", src() / "linked.asm");
    const ProjectItems files{entry("a.asm", m_folder.path() / "one"), entry("a.asm", src()),
                             entry("b.asm", m_folder.path() / "one"), entry("linked.asm", src())};
    gather(files);
    EXPECT_EQ(contentOf(src() / "a.asm"), "only copy");
    EXPECT_EQ(contentOf(src() / "linked.asm"), "another only copy");
    EXPECT_EQ(contentOf(temp() / "linked.asm"), "another only copy");
    EXPECT_FALSE(clean(files));
    EXPECT_EQ(contentOf(src() / "a.asm"), "only copy");
    EXPECT_EQ(contentOf(src() / "linked.asm"), "another only copy");
}

TEST_F(SourceGathererTest, AHardLinkToASourceGivesWayToALaterFileOfItsName) {
    const auto first = m_folder.write("one/a.asm", "first");
    m_folder.write("two/a.asm", "second");
    std::filesystem::create_hard_link(first, temp() / "a.asm");
    gather({entry("a.asm", m_folder.path() / "one"), entry("a.asm", m_folder.path() / "two")});
    EXPECT_EQ(contentOf(temp() / "a.asm"), "second");
    EXPECT_EQ(contentOf(first), "first");
}

TEST_F(SourceGathererTest, NeverRemovesAFolder) {
    m_folder.write("src/a.asm", "A");
    m_folder.write("tmp/a.asm/inner", "kept");
    std::filesystem::create_directories(temp() / "b.asm");
    EXPECT_THAT(gather({entry("a.asm", src()), entry("b.asm", src())}),
                ElementsAre(UncopiedFile{"a.asm", "a folder of its name is there", false}));
    EXPECT_EQ(contentOf(temp() / "a.asm/inner"), "kept");
    EXPECT_TRUE(std::filesystem::is_directory(temp() / "b.asm"));
}

TEST_F(SourceGathererTest, SkipsNamesThatAreNoPlainName) {
    m_folder.write("src/sub/a.asm", "A");
    m_folder.write("victim.asm", "kept");
    gather({entry("../victim.asm", src()), entry("..", src()), entry(".", src()), entry("", src()),
            entry("sub/a.asm", src()), entry(std::string("a\0b", 3), src())});
    EXPECT_EQ(contentOf(m_folder.path() / "victim.asm"), "kept");
    EXPECT_TRUE(std::filesystem::is_empty(temp()));
    EXPECT_TRUE(existsAt(src() / "sub/a.asm"));
}

TEST_F(SourceGathererTest, CopiesNothingIntoATemporaryFolderThatIsALink) {
    m_folder.write("src/a.asm", "A");
    const auto elsewhere = m_folder.write("elsewhere/a.asm", "kept").parent_path();
    std::filesystem::remove(temp());
    std::filesystem::create_directory_symlink(elsewhere, temp());
    m_folder.write("src/c.asm", "C");
    EXPECT_THAT(gather({entry("c.asm", src()), entry("a.asm", src()), entry("b.asm", src())}),
                ElementsAre(UncopiedFile{"a.asm", "that is a link", true},
                            UncopiedFile{"c.asm", "that is a link", false}));
    EXPECT_EQ(contentOf(elsewhere / "a.asm"), "kept");
    EXPECT_FALSE(existsAt(elsewhere / "c.asm"));
}

TEST_F(SourceGathererTest, NothingNeedsACopyInATemporaryFolderThatIsALinkToTheSources) {
    m_folder.write("src/a.asm", "A");
    m_folder.write("other/a.asm", "other");
    std::filesystem::remove(temp());
    std::filesystem::create_directory_symlink(src(), temp());
    EXPECT_THAT(gather({entry("a.asm", m_folder.path() / "other"), entry("a.asm", src())}),
                IsEmpty());
    EXPECT_EQ(contentOf(src() / "a.asm"), "A");
}

TEST_F(SourceGathererTest, OfTwoFilesOfOneNameOnlyTheOneThatStaysMustBeCopied) {
    std::filesystem::create_directories(m_folder.path() / "one/a.asm");
    m_folder.write("two/a.asm", "second");
    const auto one = entry("a.asm", m_folder.path() / "one");
    const auto two = entry("a.asm", m_folder.path() / "two");
    EXPECT_THAT(gather({one, two}), IsEmpty());
    EXPECT_THAT(gather({two, one}),
                ElementsAre(UncopiedFile{"a.asm", "it is no ordinary file", false}));
}

TEST_F(SourceGathererTest, CopiesNothingWhenTheTemporaryFolderIsAFile) {
    m_folder.write("src/a.asm", "A");
    std::filesystem::remove(temp());
    m_folder.write("tmp", "a file");
    EXPECT_THAT(gather({entry("a.asm", src())}),
                ElementsAre(UncopiedFile{"a.asm", "that is no folder", false}));
    EXPECT_EQ(contentOf(temp()), "a file");
}

TEST_F(SourceGathererTest, CopiesRegularFilesOnlyAndNeverWaitsForAFifo) {
    std::filesystem::create_directories(src() / "folder.asm");
    ASSERT_EQ(::mkfifo((src() / "fifo.asm").c_str(), 0600), 0);
    EXPECT_THAT(gather({entry("folder.asm", src()), entry("fifo.asm", src())}),
                ElementsAre(UncopiedFile{"fifo.asm", "it is no ordinary file", false},
                            UncopiedFile{"folder.asm", "it is no ordinary file", false}));
    EXPECT_TRUE(std::filesystem::is_empty(temp()));
}

TEST_F(SourceGathererTest, CopiesFollowALinkAtTheSource) {
    const auto real = m_folder.write("real.asm", "real");
    std::filesystem::create_directories(src());
    std::filesystem::create_symlink(real, src() / "a.asm");
    gather({entry("a.asm", src())});
    EXPECT_FALSE(std::filesystem::is_symlink(temp() / "a.asm"));
    EXPECT_EQ(contentOf(temp() / "a.asm"), "real");
}

TEST_F(SourceGathererTest, ALargeFileAndAnEmptyOneAreCopiedWhole) {
    const std::string large(3 * 1024 * 1024 + 1, 'x');
    m_folder.write("src/large.chr", large);
    m_folder.write("src/empty.chr", "");
    gather({entry("large.chr", src()), entry("empty.chr", src())});
    EXPECT_TRUE(contentOf(temp() / "large.chr") == large);
    EXPECT_EQ(contentOf(temp() / "empty.chr"), "");
}

TEST_F(SourceGathererTest, ACopyThatDoesNotFitOnTheDiskLeavesNoPartOfAFileAndIsTold) {
    m_folder.write("src/a.asm", std::string(100000, 'x'));
    // A file size limit fails like a full disk does; in a child, so that it does not outlast this.
    const auto status = [&] {
        rlimit limit{70000, 70000};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const bool isTold = gather({entry("a.asm", src())}) ==
                            std::vector{UncopiedFile{"a.asm", "File too large", false}};
        std::_Exit(existsAt(temp() / "a.asm") || !isTold ? 1 : 0);
    };
    EXPECT_EXIT(status(), ::testing::ExitedWithCode(0), "");
}

TEST_F(SourceGathererTest, CleaningRemovesTheListedFilesAndNothingElse) {
    m_folder.write("src/a.asm", "A");
    m_folder.write("tmp/other.asm", "kept");
    const ProjectItems files{entry("a.asm", src()), entry("gone.asm", src())};
    gather(files);
    EXPECT_TRUE(clean(files));
    EXPECT_FALSE(existsAt(temp() / "a.asm"));
    EXPECT_EQ(contentOf(temp() / "other.asm"), "kept");
    EXPECT_EQ(contentOf(src() / "a.asm"), "A");
}

TEST_F(SourceGathererTest, CleaningRemovesALinkAndNotWhatItLeadsTo) {
    const auto source = m_folder.write("src/a.asm", "A");
    std::filesystem::create_symlink(source, temp() / "a.asm");
    EXPECT_TRUE(clean({entry("a.asm", src())}));
    EXPECT_EQ(contentOf(source), "A");
}

TEST_F(SourceGathererTest, CleaningLeavesFoldersAndAUsersOwnFilesAndSaysSo) {
    m_folder.write("tmp/folder.asm/inner", "kept");
    m_folder.write("tmp/own.asm", "only copy");
    EXPECT_FALSE(clean({entry("folder.asm", src())}));
    EXPECT_FALSE(clean({entry("own.asm", temp())}));
    EXPECT_EQ(contentOf(temp() / "folder.asm/inner"), "kept");
    EXPECT_EQ(contentOf(temp() / "own.asm"), "only copy");
}

TEST_F(SourceGathererTest, CleaningDoesNotGoThroughALinkAtTheTemporaryFoldersPlace) {
    const auto elsewhere = m_folder.write("elsewhere/a.asm", "kept").parent_path();
    std::filesystem::remove(temp());
    EXPECT_TRUE(clean({entry("a.asm", src())})) << "no folder: nothing is left in it";
    std::filesystem::create_directory_symlink(elsewhere, temp());
    EXPECT_FALSE(clean({entry("a.asm", src())}));
    EXPECT_EQ(contentOf(elsewhere / "a.asm"), "kept");
}

} // namespace
} // namespace kestrel
