// SPDX-License-Identifier: MIT
#include "model/KnownContent.h"

#include "model/FileWriter.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

using test::contentOf;
using test::holdsWithFileSizeLimit;
using test::TemporaryFolder;

class KnownFile : public ::testing::Test {
protected:
    KnownFile() { known.note("read"); }

    /// The name of the backup that is made before "next" is saved; "none" when none is needed,
    /// "failed" when it could not be made.
    std::string backup(KnownContent::Keep keep = KnownContent::Keep::other) const {
        const auto kept = known.keepBeforeSaving(path, "next", keep);
        if (!kept) {
            return "failed";
        }
        return kept->empty() ? "none" : kept->filename().string();
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder.write("file", "read");
    KnownContent known;
};

TEST_F(KnownFile, IsReplacedWithoutABackup) {
    EXPECT_EQ(backup(), "none");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "file.bak"));
}

TEST_F(KnownFile, IsKeptWhenAnotherProgramChangedIt) {
    folder.write("file", "else");
    EXPECT_EQ(backup(), "file.bak");
    EXPECT_EQ(contentOf(folder.path() / "file.bak"), "else");
    EXPECT_EQ(backup(), "file.bak") << "kept already";
    folder.write("file", "something longer than both");
    EXPECT_EQ(backup(), "file.bak1");
    EXPECT_EQ(contentOf(folder.path() / "file.bak"), "else");
    EXPECT_EQ(contentOf(folder.path() / "file.bak1"), "something longer than both");
    EXPECT_EQ(contentOf(path), "something longer than both") << "it is not replaced here";
}

TEST_F(KnownFile, IsNotKeptWhenItsContentIsTheSameAgain) {
    std::filesystem::remove(path);
    EXPECT_EQ(backup(), "none") << "there is nothing to keep";
    folder.write("file", "read");
    EXPECT_EQ(backup(), "none") << "written anew by another program";
    folder.write("file", "next");
    EXPECT_EQ(backup(), "none") << "what will be saved lies there already";
}

TEST_F(KnownFile, IsKeptToo) {
    EXPECT_EQ(backup(KnownContent::Keep::any), "file.bak");
    EXPECT_EQ(contentOf(folder.path() / "file.bak"), "read");
}

TEST_F(KnownFile, IsKeptWhenNothingIsKnownOfIt) {
    known.forget();
    EXPECT_FALSE(known.isNoted());
    EXPECT_EQ(backup(), "file.bak");
}

TEST_F(KnownFile, MustNotBeReplacedWhenItCannotBeKept) {
    folder.write("file", "else");
    EXPECT_TRUE(holdsWithFileSizeLimit(2, [this] { return backup() == "failed"; }));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "file.bak")) << "no half of a backup";
    EXPECT_EQ(contentOf(path), "else");
}

TEST_F(KnownFile, ThatIsAFolderNowMustNotBeReplaced) {
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(backup(), "none") << "saving refuses it by itself, and says why";
    std::string reason;
    EXPECT_FALSE(saveBytes(path, "next", &reason));
    EXPECT_EQ(reason, "a folder has its name");
}

} // namespace
} // namespace kestrel
