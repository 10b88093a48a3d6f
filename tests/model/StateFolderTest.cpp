// SPDX-License-Identifier: MIT
#include "model/StateFolder.h"

#include "model/ModelFixtures.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace kestrel {
namespace {

using test::contentOf;
using test::namesIn;
using test::TemporaryFolder;

unsigned modeOf(const std::filesystem::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777U;
}

class StateFolderTest : public ::testing::Test {
protected:
    ~StateFolderTest() override { ::unsetenv("XDG_STATE_HOME"); }

    TemporaryFolder m_folder;
    test::TemporaryHome m_home;
};

TEST_F(StateFolderTest, IsInTheHomeFolderOrWhereTheVariableSays) {
    ::unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(stateFolder(), m_home.path() / ".local/state/kestrel");
    ::setenv("XDG_STATE_HOME", m_folder.path().c_str(), 1);
    EXPECT_EQ(stateFolder(), m_folder.path() / "kestrel");
    for (const char* value : {"", "relative/folder"}) {
        ::setenv("XDG_STATE_HOME", value, 1);
        EXPECT_EQ(stateFolder(), m_home.path() / ".local/state/kestrel") << value;
    }
}

TEST_F(StateFolderTest, IsNowhereWithoutAnAbsoluteHome) {
    ::unsetenv("XDG_STATE_HOME");
    ::setenv("HOME", "not/absolute", 1);
    EXPECT_TRUE(stateFolder().empty());
}

TEST_F(StateFolderTest, IsMadeForTheUserAlone) {
    const mode_t former = ::umask(0);
    const auto inner = m_folder.path() / "a" / "b";
    EXPECT_TRUE(makePrivateFolder(inner));
    ::umask(former);
    EXPECT_EQ(modeOf(inner), 0700U);
    EXPECT_EQ(modeOf(inner.parent_path()), 0700U);
    ASSERT_EQ(::chmod(inner.c_str(), 0755), 0);
    EXPECT_TRUE(makePrivateFolder(inner));
    EXPECT_EQ(modeOf(inner), 0700U);
}

TEST_F(StateFolderTest, IsNoFileAndNotInOne) {
    const auto file = m_folder.write("file", "content");
    EXPECT_FALSE(makePrivateFolder(file));
    EXPECT_FALSE(makePrivateFolder(file / "inner"));
    EXPECT_FALSE(makePrivateFolder({}));
    EXPECT_EQ(contentOf(file), "content");
}

TEST_F(StateFolderTest, OfAnotherUserIsRefused) {
    if (!test::isRoot()) {
        EXPECT_FALSE(makePrivateFolder("/usr")); // only root can give a folder away
        return;
    }
    const auto foreign = m_folder.path() / "foreign";
    ASSERT_TRUE(makePrivateFolder(foreign));
    ASSERT_EQ(::chown(foreign.c_str(), 65534, 65534), 0);
    EXPECT_FALSE(makePrivateFolder(foreign));
}

TEST_F(StateFolderTest, PrivateFilesAreForTheUserAlone) {
    const mode_t former = ::umask(0);
    const auto file = m_folder.path() / "file";
    EXPECT_TRUE(replacePrivateFile(file, "first"));
    ::umask(former);
    EXPECT_EQ(modeOf(file), 0600U);
    ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
    EXPECT_TRUE(replacePrivateFile(file, "second"));
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(contentOf(file), "second");
    EXPECT_EQ(namesIn(m_folder.path()), std::vector<std::string>{"file"});
}

TEST_F(StateFolderTest, APrivateFileReplacesALinkAndNotWhatItPointsTo) {
    const auto target = m_folder.write("elsewhere/target", "untouched");
    const auto link = m_folder.path() / "link";
    std::filesystem::create_symlink(target, link);
    EXPECT_TRUE(replacePrivateFile(link, "new"));
    EXPECT_EQ(contentOf(target), "untouched");
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    EXPECT_EQ(contentOf(link), "new");
}

TEST_F(StateFolderTest, AFullDiskLeavesTheOldPrivateFile) {
    const auto file = m_folder.path() / "file";
    ASSERT_TRUE(replacePrivateFile(file, "old"));
    EXPECT_TRUE(test::holdsWithFileSizeLimit(
        10, [&] { return !replacePrivateFile(file, std::string(1000, 'x')); }));
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_EQ(namesIn(m_folder.path()), std::vector<std::string>{"file"});
}

} // namespace
} // namespace kestrel
