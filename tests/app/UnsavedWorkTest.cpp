// SPDX-License-Identifier: MIT
// Unsaved work in the real window: what a restart, a look at another file and the Edit menu do.
#include "drafts/UnsavedWork.h"

#include "app/WindowFixture.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/CommonEditorControllers.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QLineEdit>

#include <sys/stat.h>

namespace kestrel::test {
namespace {

class UnsavedWorkInWindow : public WindowTest {
protected:
    void SetUp() override {
        registerProject("Demo");
        showFile();
    }

    void showFile() {
        start();
        pane().loadFile(m_file);
        editorView().setFocus();
    }

    TextEditorController& pane() const { return *editor().commonController()->textEditor; }
    CodeEditorTextView& editorView() const { return *pane().codeEditor; }
    std::string text() const { return editorView().toPlainText().toStdString(); }

    void showPane() const { editor().commonController()->setCurrentWidget(&pane()); }

    bool isOffered() const {
        return QTest::qWaitFor([this] { return pane().unsavedWork()->offer().has_value(); },
                               20'000);
    }

    /// Whether an entry of the Edit menu can be chosen.
    bool isOpen(const char* name) const {
        Q_EMIT menu("editMenu")->aboutToShow();
        const bool enabled = action(name)->isEnabled();
        Q_EMIT menu("editMenu")->aboutToHide();
        return enabled;
    }

    std::filesystem::path m_file = home.path() / "Kestrel/Demo/main.asm";
    std::string m_saved = "\t.org $FFFA\n";
};

TEST_F(UnsavedWorkInWindow, ComesBackFromTheEditMenuAfterARestart) {
    showPane();
    EXPECT_FALSE(isOpen("bringBackAction"));
    QTest::keyClicks(&editorView(), QStringLiteral("typed"));
    showFile();
    showPane();
    EXPECT_EQ(text(), m_saved);
    ASSERT_TRUE(isOffered());
    EXPECT_TRUE(isOpen("bringBackAction"));
    action("bringBackAction")->trigger();
    EXPECT_EQ(text(), "typed" + m_saved);
    EXPECT_FALSE(isOpen("bringBackAction"));
    EXPECT_EQ(contentOf(m_file), m_saved);
}

TEST_F(UnsavedWorkInWindow, ComesBackByTheKeyOfUndoRightAfterLoading) {
    showPane();
    QTest::keyClicks(&editorView(), QStringLiteral("typed"));
    showFile();
    showPane();
    ASSERT_TRUE(isOffered());
    editorView().setFocus();
    EXPECT_TRUE(isOpen("undoAction"));
    QTest::keyClick(&editorView(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), "typed" + m_saved);
    QTest::keyClick(&editorView(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), m_saved);
    QTest::keyClick(&editorView(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(text(), "typed" + m_saved);
}

TEST_F(UnsavedWorkInWindow, DoesNotComeBackByUndoInABarOrAfterAnEdit) {
    showPane();
    QTest::keyClicks(&editorView(), QStringLiteral("typed"));
    showFile();
    showPane();
    ASSERT_TRUE(isOffered());
    action("findAction")->trigger();
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
    EXPECT_FALSE(isOpen("undoAction"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), m_saved);
    editorView().setFocus();
    QTest::keyClicks(&editorView(), QStringLiteral("x"));
    QTest::keyClick(&editorView(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&editorView(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text(), m_saved);
    EXPECT_FALSE(isOpen("undoAction"));
    EXPECT_TRUE(isOpen("bringBackAction"));
}

TEST_F(UnsavedWorkInWindow, IsKeptInTheStateFolderForTheUserAlone) {
    const auto folder = home.path() / ".local/state/kestrel/drafts";
    EXPECT_FALSE(std::filesystem::exists(home.path() / ".local")) << "nothing to keep yet";
    QTest::keyClicks(&editorView(), QStringLiteral("typed"));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return std::filesystem::exists(folder) && !std::filesystem::is_empty(folder); },
        20'000));
    close();
    struct stat status {};
    ASSERT_EQ(::stat(folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    for (const auto& draft : std::filesystem::directory_iterator(folder)) {
        ASSERT_EQ(::stat(draft.path().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0600U);
    }
}

TEST_F(UnsavedWorkInWindow, IsAskedForByNothingAndChangesNoFile) {
    QTest::keyClicks(&editorView(), QStringLiteral("typed"));
    close();
    EXPECT_EQ(contentOf(m_file), m_saved);
}

} // namespace
} // namespace kestrel::test
