// SPDX-License-Identifier: MIT
// What is kept of unsaved text, and how the code editor takes it back.
#include "drafts/UnsavedWork.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/TextEditorController.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QTest>

namespace kestrel {
namespace {

using namespace std::string_literals;
using test::contentOf;

class UnsavedText : public ::testing::Test {
protected:
    UnsavedText() { begin(); }

    void begin() {
        m_pane.reset();
        m_pane = std::make_unique<TextEditorController>();
        m_keeper = std::make_shared<DraftKeeper>(DraftStore(m_folder.path() / "drafts"));
        work().setKeeper(m_keeper);
        m_pane->resize(600, 400);
        m_pane->show();
    }

    UnsavedWork& work() { return *m_pane->unsavedWork(); }
    CodeEditorTextView& editor() { return *m_pane->codeEditor; }
    std::string text() { return editor().source().text().toStdString(); }
    void type(const char* typed) { QTest::keyClicks(&editor(), QLatin1String(typed)); }

    bool isOffered() {
        return QTest::qWaitFor([this] { return work().offer().has_value(); }, 20'000);
    }

    /// Waits until all that was asked of the keeper is done.
    void settle() {
        bool done = false;
        m_keeper->look(m_keeper->begin("/nowhere", DraftKind::text, {}, {}),
                       [&done](const auto& /*found*/) { done = true; });
        EXPECT_TRUE(QTest::qWaitFor([&done] { return done; }, 20'000));
    }

    test::LogCapture m_log;
    test::TemporaryFolder m_folder;
    std::filesystem::path m_one = m_folder.write("one.asm", "one\r\ntwo\rthree\nfour");
    std::filesystem::path m_other = m_folder.write("other.asm", "other\n");
    std::shared_ptr<DraftKeeper> m_keeper;
    std::unique_ptr<TextEditorController> m_pane;
};

TEST_F(UnsavedText, ComesBackAfterASwitchAsOneEdit) {
    m_pane->loadFile(m_one);
    type("edited ");
    m_pane->loadFile(m_other);
    m_pane->loadFile(m_one);
    EXPECT_EQ(text(), "one\r\ntwo\rthree\nfour");
    ASSERT_TRUE(isOffered());
    work().bringBack();
    EXPECT_EQ(text(), "edited one\r\ntwo\rthree\nfour");
    editor().undo();
    EXPECT_EQ(text(), "one\r\ntwo\rthree\nfour");
    EXPECT_FALSE(editor().document()->isUndoAvailable());
    editor().redo();
    EXPECT_EQ(text(), "edited one\r\ntwo\rthree\nfour");
    EXPECT_EQ(contentOf(m_one), "one\r\ntwo\rthree\nfour");
}

TEST_F(UnsavedText, KeepsLineEndsMarksAndOddCharactersExactly) {
    const std::string odd = "\xef\xbb\xbf"
                            "a\r\n\xe2\x80\xa8 b\r\x01\0\xc2\xa0\xf0\x9f\x90\xa6\n\r\n"s;
    const auto file = m_folder.write("odd.asm", odd);
    m_pane->loadFile(file);
    type("x");
    begin();
    m_pane->loadFile(file);
    ASSERT_TRUE(isOffered());
    work().bringBack();
    m_pane->saveFile();
    std::string expected = odd;
    EXPECT_EQ(contentOf(file), expected.insert(3, "x"));
}

TEST_F(UnsavedText, KeepsBytesThatAreNoCharacters) {
    std::string bytes;
    for (int line = 0; line < 20; ++line) {
        bytes += "; ein gr\xc3\xbcner Fluss\n";
    }
    bytes += "; \xff\n";
    const auto file = m_folder.write("bytes.asm", bytes);
    m_pane->loadFile(file);
    type("x");
    begin();
    m_pane->loadFile(file);
    ASSERT_TRUE(isOffered());
    work().bringBack();
    m_pane->saveFile();
    EXPECT_EQ(contentOf(file), "x" + bytes);
}

TEST_F(UnsavedText, LookingAtFilesKeepsNothing) {
    const auto latin = m_folder.write("latin.asm", "; gr\xfc\xdf"
                                                   "e aus K\xf6ln\n");
    for (int round = 0; round < 2; ++round) {
        for (const auto& file : {m_one, latin, m_other, m_one, m_one}) {
            m_pane->loadFile(file);
            settle();
            EXPECT_FALSE(work().offer()) << file;
        }
    }
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "drafts"));
}

TEST_F(UnsavedText, OfAnotherEncodingIsKeptAsItWouldBeSaved) {
    const auto latin = m_folder.write("latin.asm", "; gr\xfc\xdf"
                                                   "e aus K\xf6ln\n");
    m_pane->loadFile(latin);
    type("!");
    const std::string edited = text();
    m_pane->loadFile(m_other);
    m_pane->loadFile(latin);
    ASSERT_TRUE(isOffered());
    EXPECT_FALSE(work().offer()->fileChanged);
    work().bringBack();
    EXPECT_EQ(text(), edited);
}

TEST_F(UnsavedText, StaysWithItsFileWhenAnotherCannotBeRead) {
    m_pane->loadFile(m_one);
    type("edited ");
    m_pane->loadFile(m_folder.path() / "missing.asm");
    EXPECT_EQ(text(), "edited one\r\ntwo\rthree\nfour");
    type("more ");
    begin();
    m_pane->loadFile(m_one);
    ASSERT_TRUE(isOffered());
    work().bringBack();
    EXPECT_EQ(text(), "edited more one\r\ntwo\rthree\nfour");
}

TEST_F(UnsavedText, EndsWithASaveThatReachesTheDisk) {
    m_pane->loadFile(m_one);
    type("saved ");
    m_pane->saveFile();
    begin();
    m_pane->loadFile(m_one);
    settle();
    EXPECT_FALSE(work().offer());
    type("unsaved ");
    std::filesystem::remove(m_one);
    std::filesystem::create_directory(m_one); // no save can succeed now
    m_pane->saveFile();
    begin();
    std::filesystem::remove(m_one);
    m_folder.write("one.asm", "changed");
    m_pane->loadFile(m_one);
    ASSERT_TRUE(isOffered());
    EXPECT_TRUE(work().offer()->fileChanged);
    work().bringBack();
    EXPECT_EQ(text(), "unsaved saved one\r\ntwo\rthree\nfour");
}

TEST_F(UnsavedText, UndoAfterReadingTheSameFileAnewTakesTheOfferAway) {
    m_pane->loadFile(m_one);
    type("edited ");
    m_pane->loadFile(m_one);
    ASSERT_TRUE(isOffered());
    editor().undo(); // the text view's own: it still has the edits
    EXPECT_EQ(text(), "edited one\r\ntwo\rthree\nfour");
    work().keep();
    settle();
    EXPECT_FALSE(work().offer());
}

TEST_F(UnsavedText, TheKeyOfUndoIsLeftToTheMenuOnlyWhenItBringsBack) {
    const auto isTaken = [this] {
        QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
        event.ignore();
        QCoreApplication::sendEvent(&editor(), &event);
        return event.isAccepted();
    };
    m_pane->loadFile(m_one);
    EXPECT_TRUE(isTaken());
    type("edited ");
    m_pane->loadFile(m_other);
    m_pane->loadFile(m_one);
    ASSERT_TRUE(isOffered());
    EXPECT_FALSE(isTaken());
    type("x");
    EXPECT_TRUE(isTaken());
}

TEST_F(UnsavedText, OfTenMegabytesDelaysNoKey) {
    std::string large;
    while (large.size() < 10'000'000) {
        large += "        lda #$01 ; a line of an ordinary length\r\n";
    }
    const auto file = m_folder.write("large.asm", large);
    m_pane->loadFile(file);
    type("x");
    QElapsedTimer timer;
    timer.start();
    work().keep();
    const auto taken = timer.elapsed();
    settle();
    RecordProperty("milliseconds", static_cast<int>(taken));
    EXPECT_LT(taken, 1000) << "far above what is needed, so that a busy machine does not fail";
    type("y");
    begin();
    m_pane->loadFile(file);
    ASSERT_TRUE(isOffered());
    work().bringBack();
    EXPECT_EQ(text(), "xy" + large);
}

} // namespace
} // namespace kestrel
