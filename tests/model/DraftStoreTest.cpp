// SPDX-License-Identifier: MIT
#include "model/DraftStore.h"

#include "model/ModelFixtures.h"
#include "model/RunningProcess.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel {
namespace {

using test::contentOf;
using test::namesIn;

const std::filesystem::path File = "/project/main.asm";
constexpr auto Text = DraftKind::text;

Draft draftOf(const std::string& content, std::int64_t time = 1000) {
    return {File, Text, fingerprintOf("on the disk"), time, content};
}

ProcessIdentity goneProcess() {
    ProcessIdentity identity = ProcessIdentity::current();
    ++identity.start;
    return identity;
}

void makeOlder(const std::filesystem::path& file, std::int64_t seconds) {
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    const timespec time{status.st_mtim.tv_sec - seconds, 0};
    const timespec times[2] = {time, time};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
}

class DraftStoreTest : public ::testing::Test {
protected:
    std::optional<std::string> newestIn(DraftStore& store,
                                        const std::set<std::string>& without = {},
                                        const std::optional<Fingerprint>& present = {}) const {
        const auto found = store.newest(File, Text, without, present);
        return found ? std::optional(found->draft.content) : std::nullopt;
    }

    std::string written(DraftStore& store, const std::string& content, std::int64_t time = 1000) {
        const std::string name = store.newName(File, Text);
        EXPECT_TRUE(store.write(name, draftOf(content, time)));
        return name;
    }

    test::TemporaryFolder m_home;
    std::filesystem::path m_folder = m_home.path() / "state" / "drafts";
};

TEST_F(DraftStoreTest, MakesNothingBeforeTheFirstDraft) {
    DraftStore store(m_folder);
    EXPECT_EQ(newestIn(store), std::nullopt);
    store.remove("nothing");
    EXPECT_TRUE(namesIn(m_home.path()).empty());
}

TEST_F(DraftStoreTest, KeepsADraftForTheUserAlone) {
    DraftStore store(m_folder);
    const std::string name = written(store, "edited");
    EXPECT_EQ(newestIn(store), "edited");
    EXPECT_EQ(namesIn(m_folder), std::vector<std::string>{name});
    struct stat status {};
    ASSERT_EQ(::stat((m_folder / name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    ASSERT_EQ(::stat(m_folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(DraftStoreTest, ReplacesADraftOfTheSameName) {
    DraftStore store(m_folder);
    const std::string name = written(store, "first");
    EXPECT_TRUE(store.write(name, draftOf("second")));
    EXPECT_EQ(newestIn(store), "second");
    EXPECT_EQ(namesIn(m_folder).size(), 1U);
}

TEST_F(DraftStoreTest, GivesNoNameTwice) {
    DraftStore store(m_folder);
    const std::string name = written(store, "first");
    EXPECT_NE(store.newName(File, Text), name);
    DraftStore again(m_folder); // of the same process
    EXPECT_NE(again.newName(File, Text), name);
}

TEST_F(DraftStoreTest, OffersTheNewestOfAFileFirst) {
    DraftStore store(m_folder);
    written(store, "newer", 2000);
    const std::string newest = written(store, "newest", 3000);
    written(store, "old", 1000);
    EXPECT_EQ(newestIn(store), "newest");
    EXPECT_EQ(newestIn(store, {newest}), "newer");
    store.remove(newest);
    EXPECT_EQ(newestIn(store), "newer");
}

TEST_F(DraftStoreTest, KeepsFilesAndKindsApart) {
    DraftStore store(m_folder);
    written(store, "text");
    Draft tiles = draftOf("tiles");
    tiles.kind = DraftKind::tiles;
    ASSERT_TRUE(store.write(store.newName(File, DraftKind::tiles), tiles));
    Draft other = draftOf("other");
    other.file = "/project/other.asm";
    ASSERT_TRUE(store.write(store.newName(other.file, Text), other));
    EXPECT_EQ(newestIn(store), "text");
    EXPECT_EQ(store.newest(File, DraftKind::tiles, {}, {})->draft.content, "tiles");
    EXPECT_EQ(store.newest(other.file, Text, {}, {})->draft.content, "other");
}

TEST_F(DraftStoreTest, RemovesWhatTheDiskHoldsAnyway) {
    DraftStore store(m_folder);
    written(store, "older", 1000);
    written(store, "as on the disk", 2000);
    EXPECT_EQ(newestIn(store, {}, fingerprintOf("as on the disk")), "older");
    EXPECT_EQ(namesIn(m_folder).size(), 1U);
}

TEST_F(DraftStoreTest, LeavesTheDraftsOfARunningProcessToIt) {
    const test::RunningProcess process;
    DraftStore other(m_folder, process.identity());
    written(other, "of the other window", 5000);
    DraftStore store(m_folder);
    EXPECT_EQ(newestIn(store), std::nullopt);
    written(store, "own");
    EXPECT_EQ(newestIn(store), "own");
    EXPECT_EQ(newestIn(other), "of the other window");
}

TEST_F(DraftStoreTest, HandsTheDraftsOfAGoneProcessToTheNext) {
    DraftStore gone(m_folder, goneProcess());
    written(gone, "left behind");
    DraftStore store(m_folder);
    EXPECT_EQ(newestIn(store), "left behind");
    EXPECT_EQ(newestIn(store, {}, fingerprintOf("left behind")), std::nullopt);
    EXPECT_TRUE(namesIn(m_folder).empty());
}

TEST_F(DraftStoreTest, PassesOverWhatIsNoDraft) {
    DraftStore store(m_folder);
    const std::string good = written(store, "good");
    const std::string prefix = good.substr(0, good.find('-') + 1);
    test::TemporaryFolder elsewhere;
    const auto outside = elsewhere.write("outside", contentOf(m_folder / good));
    std::filesystem::create_directory(m_folder / (prefix + "folder.draft"));
    std::filesystem::create_symlink(outside, m_folder / (prefix + "link.draft"));
    ASSERT_EQ(::mkfifo((m_folder / (prefix + "fifo.draft")).c_str(), 0600), 0);
    std::ofstream(m_folder / (prefix + "damaged.draft")) << "{\"format\":";
    std::ofstream(m_folder / (prefix + "empty.draft"));
    std::ofstream(m_folder / "note.txt") << "something else";
    EXPECT_EQ(newestIn(store), "good");
    store.remove(good);
    EXPECT_EQ(newestIn(store), std::nullopt);
    EXPECT_EQ(namesIn(m_folder).size(), 6U);
    EXPECT_TRUE(std::filesystem::exists(outside));
}

TEST_F(DraftStoreTest, AnUnreadableDraftStopsNothing) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    DraftStore store(m_folder);
    written(store, "readable", 1000);
    const std::string locked = written(store, "locked", 2000);
    ASSERT_EQ(::chmod((m_folder / locked).c_str(), 0), 0);
    EXPECT_EQ(newestIn(store), "readable");
}

TEST_F(DraftStoreTest, AReadOnlyFolderKeepsDraftsInMemory) {
    if (test::isRoot()) {
        EXPECT_TRUE(test::passesAsOrdinaryUser());
        return;
    }
    std::filesystem::create_directory(m_home.path() / "state");
    ASSERT_EQ(::chmod((m_home.path() / "state").c_str(), 0500), 0);
    DraftStore store(m_folder);
    const std::string name = store.newName(File, Text);
    EXPECT_FALSE(store.write(name, draftOf("edited")));
    EXPECT_EQ(newestIn(store), "edited");
    EXPECT_EQ(newestIn(store, {name}), std::nullopt);
    ASSERT_EQ(::chmod((m_home.path() / "state").c_str(), 0700), 0);
    written(store, "later", 500); // and now the first one, too
    DraftStore next(m_folder);
    EXPECT_EQ(newestIn(next), "edited");
}

TEST_F(DraftStoreTest, WithoutAFolderDraftsAreInMemoryOnly) {
    DraftStore store({});
    EXPECT_FALSE(store.write(store.newName(File, Text), draftOf("edited")));
    EXPECT_EQ(newestIn(store), "edited");
    EXPECT_EQ(newestIn(store, {}, fingerprintOf("edited")), std::nullopt);
    const std::string name = store.newName(File, Text);
    EXPECT_FALSE(store.write(name, draftOf("again")));
    store.remove(name);
    EXPECT_EQ(newestIn(store), std::nullopt);
}

TEST_F(DraftStoreTest, AFullDiskKeepsTheFormerDraftAndTheNewOneInMemory) {
    DraftStore store(m_folder);
    const std::string name = written(store, "former");
    EXPECT_TRUE(test::holdsWithFileSizeLimit(1000, [&] {
        const std::string large(2000, 'x');
        return !store.write(name, draftOf(large)) && newestIn(store) == large;
    }));
    DraftStore next(m_folder);
    EXPECT_EQ(newestIn(next), "former");
    EXPECT_EQ(namesIn(m_folder).size(), 1U);
}

TEST_F(DraftStoreTest, OldDraftsGo) {
    DraftStore store(m_folder);
    const std::string old = written(store, "old");
    const std::string young = written(store, "young");
    makeOlder(m_folder / old, 30 * 24 * 3600 + 60);
    makeOlder(m_folder / young, 30 * 24 * 3600 - 60);
    const std::string latest = written(store, "latest");
    std::vector<std::string> expected = {young, latest};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(namesIn(m_folder), expected);
}

TEST_F(DraftStoreTest, TheOldestGoWhenThereIsTooMuch) {
    DraftStore store(m_folder, ProcessIdentity::current(), {.bytes = 2500});
    const std::string oldest = written(store, std::string(500, 'a'));
    const std::string middle = written(store, std::string(500, 'b'));
    makeOlder(m_folder / oldest, 200);
    makeOlder(m_folder / middle, 100);
    const std::string latest = written(store, std::string(500, 'c'));
    ASSERT_EQ(namesIn(m_folder).size(), 3U);
    EXPECT_TRUE(store.write(latest, draftOf(std::string(1000, 'd'))));
    std::vector<std::string> expected = {middle, latest};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(namesIn(m_folder), expected);
    EXPECT_TRUE(store.write(latest, draftOf(std::string(5000, 'e'))));
    EXPECT_EQ(namesIn(m_folder), std::vector<std::string>{latest}); // the one just written stays
}

TEST_F(DraftStoreTest, TheOldestInMemoryGoWhenThereIsTooMuch) {
    DraftStore store({}, ProcessIdentity::current(), {.bytes = 1000});
    const std::string names[] = {store.newName(File, Text), store.newName(File, Text),
                                 store.newName(File, Text)};
    store.write(names[0], draftOf(std::string(600, 'a'), 1));
    store.write(names[1], draftOf(std::string(300, 'b'), 2));
    store.write(names[2], draftOf(std::string(300, 'c'), 3));
    EXPECT_EQ(newestIn(store), std::string(300, 'c'));
    EXPECT_EQ(newestIn(store, {names[2]}), std::string(300, 'b'));
    EXPECT_EQ(newestIn(store, {names[2], names[1]}), std::nullopt);
}

TEST_F(DraftStoreTest, ClearsAwayWhatAKilledWriterLeft) {
    DraftStore store(m_folder);
    written(store, "first");
    const auto leftOver = m_folder / ".k0badcafe";
    const auto beingWritten = m_folder / ".k0badc0de";
    std::ofstream(leftOver) << "half a dra";
    std::ofstream(beingWritten) << "half a dra";
    makeOlder(leftOver, 2 * 3600);
    written(store, "second");
    EXPECT_FALSE(std::filesystem::exists(leftOver));
    EXPECT_TRUE(std::filesystem::exists(beingWritten));
}

TEST_F(DraftStoreTest, AKillLeavesTheFormerOrTheNewDraft) {
    const std::string former(200'000, 'f');
    const std::string present(200'000, 'p');
    for (int round = 0; round < 20; ++round) {
        DraftStore store(m_folder);
        written(store, former, 0);
        const pid_t child = ::fork();
        if (child == 0) {
            DraftStore own(m_folder);
            const std::string name = own.newName(File, Text);
            for (int time = 1;; time += 2) {
                own.write(name, draftOf(present, time));
                own.write(name, draftOf(former, time + 1));
            }
        }
        ::usleep(static_cast<useconds_t>(1000 + round * 1700));
        ::kill(child, SIGKILL);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        const auto found = newestIn(store);
        EXPECT_TRUE(found == former || found == present);
    }
}

} // namespace
} // namespace kestrel
