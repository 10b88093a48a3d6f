// SPDX-License-Identifier: MIT
#include "build/SourceGatherer.h"

#include "model/Paths.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/stat.h>

namespace kestrel {
namespace {

using test::contentOf;

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
    void gather(const ProjectItems& files) const {
        SourceGatherer(m_folder.path(), temp()).gather({&files});
    }
    bool clean(const ProjectItems& files) const {
        return SourceGatherer(m_folder.path(), temp()).clean({&files});
    }

    test::TemporaryFolder m_folder;
};

TEST_F(SourceGathererTest, CopiesAbsoluteAndRelativeEntriesFlat) {
    m_folder.write("src/a.asm", "A");
    m_folder.write("src/deep/b.asm", "B");
    gather({entry("a.asm", src()), entry("b.asm", "/src/deep", FilePathType::relative)});
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
    gather({entry("a.asm", src())});
    EXPECT_EQ(contentOf(copy), "new");
}

TEST_F(SourceGathererTest, RemovesTheEarlierCopyOfASourceThatIsGone) {
    m_folder.write("tmp/a.asm", "stale");
    gather({entry("a.asm", src())});
    EXPECT_FALSE(existsAt(temp() / "a.asm"));
}

TEST_F(SourceGathererTest, IsSilentAboutASourceAndAFolderThatPermissionsClose) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    using std::filesystem::perms;
    const auto closed = m_folder.write("src/closed.asm", "new");
    m_folder.write("src/open.asm", "new");
    m_folder.write("tmp/closed.asm", "stale");
    m_folder.write("tmp/open.asm", "stale");
    const ProjectItems files{entry("closed.asm", src()), entry("open.asm", src())};
    std::filesystem::permissions(closed, perms::none);
    std::filesystem::permissions(temp(), perms::owner_read | perms::owner_exec);
    gather(files);
    EXPECT_EQ(contentOf(temp() / "closed.asm"), "stale");
    EXPECT_EQ(contentOf(temp() / "open.asm"), "stale");
    EXPECT_FALSE(clean(files));
    std::filesystem::permissions(temp(), perms::owner_all);
    gather(files);
    EXPECT_FALSE(existsAt(temp() / "closed.asm"));
    EXPECT_EQ(contentOf(temp() / "open.asm"), "new");
}

TEST_F(SourceGathererTest, SkipsEntriesWithoutAFile) {
    m_folder.write("src/a.asm", "A");
    m_folder.write("tmp/a.asm", "kept");
    gather({entry("a.asm", src(), FilePathType::noPath)});
    EXPECT_EQ(contentOf(temp() / "a.asm"), "kept");
}

TEST_F(SourceGathererTest, LeavesAFileAloneThatLiesInTheTemporaryFolderItself) {
    m_folder.write("tmp/a.asm", "only copy");
    gather({entry("a.asm", temp())});
    EXPECT_EQ(contentOf(temp() / "a.asm"), "only copy");
}

TEST_F(SourceGathererTest, LeavesAHardLinkToTheSourceAlone) {
    const auto source = m_folder.write("src/a.asm", "only content");
    std::filesystem::create_hard_link(source, temp() / "a.asm");
    gather({entry("a.asm", src())});
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
    gather({entry("a.asm", src()), entry("a.asm", temp())});
    EXPECT_EQ(contentOf(temp() / "a.asm"), "only copy");
    gather({entry("a.asm", temp()), entry("a.asm", src())});
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
    gather({entry("a.asm", src()), entry("b.asm", src())});
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
    gather({entry("a.asm", src()), entry("b.asm", src())});
    EXPECT_EQ(contentOf(elsewhere / "a.asm"), "kept");
}

TEST_F(SourceGathererTest, CopiesNothingWhenTheTemporaryFolderIsAFile) {
    m_folder.write("src/a.asm", "A");
    std::filesystem::remove(temp());
    m_folder.write("tmp", "a file");
    gather({entry("a.asm", src())});
    EXPECT_EQ(contentOf(temp()), "a file");
}

TEST_F(SourceGathererTest, CopiesRegularFilesOnlyAndNeverWaitsForAFifo) {
    std::filesystem::create_directories(src() / "folder.asm");
    ASSERT_EQ(::mkfifo((src() / "fifo.asm").c_str(), 0600), 0);
    gather({entry("folder.asm", src()), entry("fifo.asm", src())});
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

TEST_F(SourceGathererTest, ACopyThatDoesNotFitOnTheDiskLeavesNoPartOfAFile) {
    m_folder.write("src/a.asm", std::string(100000, 'x'));
    // A file size limit fails like a full disk does; in a child, so that it does not outlast this.
    const auto status = [&] {
        rlimit limit{70000, 70000};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        gather({entry("a.asm", src())});
        std::_Exit(existsAt(temp() / "a.asm") ? 1 : 0);
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
