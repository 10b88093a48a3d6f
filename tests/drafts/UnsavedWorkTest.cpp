// SPDX-License-Identifier: MIT
#include "drafts/UnsavedWork.h"

#include "model/RunningProcess.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <fstream>
#include <iterator>

namespace kestrel {
namespace {

using test::TemporaryFolder;

constexpr int Patience = 20'000;

/// Lets events and the keeper's thread go on until the condition holds.
template<typename Condition> bool waitFor(Condition holds) {
    QElapsedTimer timer;
    timer.start();
    QTimer look; // what the keeper's thread does to files is no event
    look.start(1);
    while (!holds()) {
        if (timer.elapsed() > Patience) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// A pane with a text, as the code editor has one.
class Pane {
public:
    explicit Pane(const std::filesystem::path& folder,
                  ProcessIdentity process = ProcessIdentity::current())
        : keeper(std::make_shared<DraftKeeper>(DraftStore(folder, std::move(process)))) {
        work.setKeeper(keeper);
        work.setDelay(1);
    }

    void show(const std::filesystem::path& file) {
        work.leave();
        text = test::contentOf(file);
        shownFile = file;
        work.shown(file, text);
    }

    void type(const std::string& typed) {
        text += typed;
        work.edited();
    }

    void save() {
        std::ofstream(shownFile, std::ios::trunc) << text;
        work.saved(text);
    }

    /// Waits until all that was asked of the keeper until now is done and answered.
    void settle() {
        work.keep();
        bool answered = false;
        const auto session = keeper->begin("/nowhere", DraftKind::text, {}, {});
        keeper->look(session, [&answered](const auto& /*found*/) { answered = true; });
        EXPECT_TRUE(waitFor([&] { return answered; }));
    }

    bool isOffered() const { return work.offer().has_value(); }

    std::string text;
    std::filesystem::path shownFile;
    std::shared_ptr<DraftKeeper> keeper;
    int contentsTaken = 0;
    UnsavedWork work{DraftKind::text,
                     {[this] {
                          ++contentsTaken;
                          return [content = text] { return content; };
                      },
                      [this](const std::string& content) {
                          text = content;
                          work.edited();
                      }},
                     nullptr};
};

class UnsavedWorkTest : public ::testing::Test {
protected:
    std::size_t draftsOnDisk() const {
        const auto folder = m_folder.path() / "drafts";
        return std::filesystem::exists(folder)
                   ? static_cast<std::size_t>(
                         std::distance(std::filesystem::directory_iterator(folder), {}))
                   : 0;
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_one = m_folder.write("one.asm", "one\r\n");
    std::filesystem::path m_other = m_folder.write("other.asm", "other\n");
    std::unique_ptr<Pane> m_pane = std::make_unique<Pane>(m_folder.path() / "drafts");
};

TEST_F(UnsavedWorkTest, HasChangesFromAnEditUntilItIsSavedOrTakenBack) {
    const auto file = m_folder.write("file", "disk");
    Pane pane(m_folder.path() / "drafts");
    EXPECT_FALSE(pane.work.hasChanges());
    EXPECT_EQ(pane.work.file(), "");
    pane.show(file);
    EXPECT_FALSE(pane.work.hasChanges());
    EXPECT_EQ(pane.work.file(), file);
    pane.type("!");
    EXPECT_TRUE(pane.work.hasChanges());
    pane.text = "disk";
    pane.work.edited();
    EXPECT_FALSE(pane.work.hasChanges()) << "the edit was taken back";
    pane.type("!");
    pane.save();
    EXPECT_FALSE(pane.work.hasChanges());
    pane.text = "disk";
    pane.work.edited();
    EXPECT_TRUE(pane.work.hasChanges()) << "what counts now is what was saved";
    pane.show(file);
    EXPECT_FALSE(pane.work.hasChanges());
}

TEST_F(UnsavedWorkTest, NothingIsKeptWithoutAnEdit) {
    m_pane->show(m_one);
    m_pane->show(m_other);
    m_pane->show(m_one);
    m_pane->settle();
    EXPECT_FALSE(m_pane->isOffered());
    EXPECT_EQ(m_pane->contentsTaken, 0);
    EXPECT_EQ(draftsOnDisk(), 0U);
}

TEST_F(UnsavedWorkTest, ASwitchKeepsWhatWasNotSavedAndOffersItAgain) {
    m_pane->show(m_one);
    m_pane->type("edited\0");
    const std::string edited = m_pane->text;
    m_pane->show(m_other);
    m_pane->settle();
    EXPECT_FALSE(m_pane->isOffered());
    m_pane->show(m_one);
    EXPECT_EQ(m_pane->text, "one\r\n");
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    EXPECT_FALSE(m_pane->work.offer()->fileChanged);
    EXPECT_NEAR(static_cast<double>(m_pane->work.offer()->time), static_cast<double>(presentTime()),
                60'000);
    m_pane->work.bringBack();
    EXPECT_EQ(m_pane->text, edited);
    EXPECT_FALSE(m_pane->isOffered());
}

TEST_F(UnsavedWorkTest, SaysThatTheFileHasChangedSince) {
    m_pane->show(m_one);
    m_pane->type("edited");
    m_pane->show(m_other);
    m_folder.write("one.asm", "changed by another program");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    EXPECT_TRUE(m_pane->work.offer()->fileChanged);
}

TEST_F(UnsavedWorkTest, EditsAreWrittenWhileTheFileIsShown) {
    m_pane->show(m_one);
    m_pane->type("a");
    EXPECT_TRUE(waitFor([&] { return draftsOnDisk() == 1; }));
    const int taken = m_pane->contentsTaken;
    m_pane->settle();
    EXPECT_EQ(m_pane->contentsTaken, taken) << "nothing was edited since";
    m_pane->type("b");
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 1U);
    EXPECT_FALSE(m_pane->isOffered()) << "what is shown is no offer";
}

TEST_F(UnsavedWorkTest, ManyEditsTakeTheContentOnce) {
    m_pane->work.setDelay(50);
    m_pane->show(m_one);
    for (int edit = 0; edit < 10'000; ++edit) {
        m_pane->type("x");
    }
    EXPECT_EQ(m_pane->contentsTaken, 0);
    EXPECT_TRUE(waitFor([&] { return m_pane->contentsTaken == 1; }));
    m_pane->settle();
    EXPECT_EQ(m_pane->contentsTaken, 1);
}

TEST_F(UnsavedWorkTest, ATimerThatRunsIsNotStartedAnew) {
    m_pane->work.setDelay(100);
    m_pane->show(m_one);
    QElapsedTimer timer;
    timer.start();
    // Without a pause for as long as it takes: the content must be taken all the same.
    EXPECT_TRUE(waitFor([&] {
        m_pane->type("x");
        return m_pane->contentsTaken > 0;
    }));
    EXPECT_GE(timer.elapsed(), 90);
}

TEST_F(UnsavedWorkTest, EditsThatWereTakenBackLeaveNoDraft) {
    m_pane->show(m_one);
    m_pane->type("a");
    EXPECT_TRUE(waitFor([&] { return draftsOnDisk() == 1; }));
    m_pane->text = "one\r\n";
    m_pane->work.edited();
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 0U);
}

TEST_F(UnsavedWorkTest, ASaveEndsTheDraftOfWhatWasSaved) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->settle();
    m_pane->show(m_other);
    m_pane->type("other");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->work.bringBack();
    m_pane->save(); // before the timer has seen that it is back
    m_pane->settle();
    EXPECT_FALSE(m_pane->isOffered());
    EXPECT_EQ(draftsOnDisk(), 1U) << "that of the other file";
    m_pane->type("second");
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 2U);
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    EXPECT_FALSE(m_pane->work.offer()->fileChanged) << "what was saved is what it goes on from";
    m_pane->work.bringBack();
    m_pane->settle();
    m_pane->save();
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 1U);
}

TEST_F(UnsavedWorkTest, ASaveLeavesWhatWasNotBroughtBackOnOffer) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_one);
    m_pane->type("second");
    m_pane->settle();
    ASSERT_TRUE(m_pane->isOffered());
    EXPECT_FALSE(m_pane->work.offer()->fileChanged);
    m_pane->save();
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 1U);
    ASSERT_TRUE(m_pane->isOffered());
    EXPECT_TRUE(m_pane->work.offer()->fileChanged) << "by the save";
    m_pane->work.bringBack();
    EXPECT_EQ(m_pane->text, "one\r\nfirst");
}

TEST_F(UnsavedWorkTest, WhatWasBroughtBackIsADraftAtEachMoment) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->work.bringBack();
    EXPECT_EQ(draftsOnDisk(), 1U) << "still that from before";
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 1U) << "one in place of the other";
    m_pane->text = "one\r\n"; // as Undo makes it
    m_pane->work.edited();
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 1U);
    Pane next(m_folder.path() / "drafts");
    next.show(m_one);
    EXPECT_TRUE(waitFor([&] { return next.isOffered(); }));
    next.work.bringBack();
    EXPECT_EQ(next.text, "one\r\nfirst");
}

TEST_F(UnsavedWorkTest, WithoutBringingBackNewWorkIsKeptBesideTheOld) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_one);
    m_pane->type("second");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->work.bringBack();
    EXPECT_EQ(m_pane->text, "one\r\nsecond");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 2U) << "what was brought back is not kept twice";
    m_pane->work.drop();
    EXPECT_FALSE(m_pane->isOffered());
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->work.bringBack();
    EXPECT_EQ(m_pane->text, "one\r\nfirst");
}

TEST_F(UnsavedWorkTest, WhatWasDroppedIsGone) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->work.drop();
    m_pane->settle();
    EXPECT_FALSE(m_pane->isOffered());
    EXPECT_EQ(draftsOnDisk(), 0U);
    EXPECT_EQ(m_pane->text, "one\r\n");
}

TEST_F(UnsavedWorkTest, WhatWasBroughtBackAndUndoneIsOfferedAgainAndStays) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->work.bringBack();
    m_pane->text = "one\r\n"; // as Undo makes it
    m_pane->work.edited();
    m_pane->settle();
    EXPECT_TRUE(m_pane->isOffered());
    m_pane->show(m_other);
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
}

TEST_F(UnsavedWorkTest, WhatTheViewItselfBroughtBackIsNotOfferedAnyMore) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->type("first"); // as the editor's own Undo makes it when the same file was read again
    m_pane->settle();
    EXPECT_FALSE(m_pane->isOffered());
    m_pane->show(m_other);
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 1U);
}

TEST_F(UnsavedWorkTest, UndoBringsBackOnlyBeforeTheFirstEdit) {
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_one);
    EXPECT_FALSE(m_pane->work.undoBringsBack());
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    EXPECT_TRUE(m_pane->work.undoBringsBack());
    m_pane->type("x");
    EXPECT_TRUE(m_pane->isOffered());
    EXPECT_FALSE(m_pane->work.undoBringsBack());
}

TEST_F(UnsavedWorkTest, OneFileByTwoPathsHasOneDraft) {
    const auto link = m_folder.path() / "link.asm";
    std::filesystem::create_symlink(m_one, link);
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(link);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
}

TEST_F(UnsavedWorkTest, TheEndOfThePaneWritesWhatIsLeft) {
    m_pane->work.setDelay(1'000'000);
    m_pane->show(m_one);
    m_pane->type("last words");
    m_pane->work.leave();
    m_pane.reset();
    EXPECT_EQ(draftsOnDisk(), 1U);
    Pane next(m_folder.path() / "drafts");
    next.show(m_one);
    EXPECT_TRUE(waitFor([&] { return next.isOffered(); }));
}

TEST_F(UnsavedWorkTest, TwoProcessesKeepTheirDraftsApart) {
    test::RunningProcess process;
    Pane other(m_folder.path() / "drafts", process.identity());
    other.show(m_one);
    other.type("theirs");
    other.settle();
    m_pane->show(m_one);
    m_pane->type("ours");
    m_pane->settle();
    EXPECT_FALSE(m_pane->isOffered());
    m_pane->save();
    m_pane->settle();
    EXPECT_EQ(draftsOnDisk(), 1U);
    process.end();
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    EXPECT_TRUE(m_pane->work.offer()->fileChanged);
    m_pane->work.bringBack();
    EXPECT_EQ(m_pane->text, "one\r\ntheirs");
}

TEST_F(UnsavedWorkTest, WhatCannotBeWrittenIsKeptInMemoryAndLoggedOnce) {
    const test::LogCapture log;
    m_folder.write("drafts", "a file in the folder's place");
    m_pane->show(m_one);
    m_pane->type("first");
    m_pane->show(m_other);
    m_pane->type("second");
    m_pane->show(m_one);
    EXPECT_TRUE(waitFor([&] { return m_pane->isOffered(); }));
    m_pane->work.bringBack();
    EXPECT_EQ(m_pane->text, "one\r\nfirst");
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST_F(UnsavedWorkTest, WithoutAKeeperNothingHappens) {
    Pane pane(m_folder.path() / "drafts");
    pane.work.setKeeper(nullptr);
    pane.show(m_one);
    pane.type("x");
    pane.save();
    pane.work.bringBack();
    pane.work.drop();
    pane.show(m_other);
    EXPECT_EQ(pane.contentsTaken, 0);
    EXPECT_EQ(draftsOnDisk(), 0U);
}

TEST_F(UnsavedWorkTest, AnswersThatComeAfterTheEndAreDropped) {
    m_pane->show(m_one);
    m_pane->type("x");
    m_pane->work.keep();
    const std::shared_ptr<DraftKeeper> keeper = m_pane->keeper;
    m_pane.reset();
    bool answered = false;
    keeper->look(keeper->begin(m_one, DraftKind::text, {}, {}),
                 [&answered](const auto& /*found*/) { answered = true; });
    EXPECT_TRUE(waitFor([&] { return answered; }));
}

} // namespace
} // namespace kestrel
