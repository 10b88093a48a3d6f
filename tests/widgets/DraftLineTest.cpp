// SPDX-License-Identifier: MIT
#include "widgets/DraftLine.h"

#include "drafts/UnsavedWork.h"
#include "support/Announced.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace kestrel {
namespace {

/// A pane with a text, and drafts of it from before.
class DraftLineTest : public ::testing::Test {
protected:
    DraftLineTest() {
        m_layout = new QVBoxLayout(&m_pane);
        m_layout->addWidget(&m_line);
        m_layout->addWidget(m_content, 1);
        m_layout->insertWidget(0, m_before);
        m_layout->addWidget(m_after);
        m_line.setTabOrderAfter(m_before);
        m_pane.resize(600, 300);
        m_pane.show();
        m_pane.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_pane));
    }

    void keepDraft(const QDateTime& time, const std::string& content = "kept",
                   const std::string& base = "disk") {
        DraftStore store(m_drafts);
        EXPECT_TRUE(store.write(
            store.newName(m_file, DraftKind::text),
            {m_file, DraftKind::text, fingerprintOf(base), time.toMSecsSinceEpoch(), content}));
    }

    void showFile() {
        m_work.setKeeper(std::make_shared<DraftKeeper>(DraftStore(m_drafts)));
        m_work.shown(m_file, "disk");
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_line.isVisible(); }));
    }

    QString text() const { return m_line.findChild<QLabel*>(QStringLiteral("draftText"))->text(); }
    QPushButton* button(const char* name) const {
        return m_line.findChild<QPushButton*>(QLatin1String(name));
    }

    test::TemporaryFolder m_folder;
    std::filesystem::path m_drafts = m_folder.path() / "drafts";
    std::filesystem::path m_file = m_folder.write("file", "disk");
    std::string m_text = "disk";
    UnsavedWork m_work{DraftKind::text,
                       {[this] { return [content = m_text] { return content; }; },
                        [this](const std::string& content) {
                            m_text = content;
                            m_work.edited();
                        }},
                       nullptr};
    QWidget m_pane;
    QLineEdit* m_before = new QLineEdit(&m_pane);
    QLineEdit* m_after = new QLineEdit(&m_pane);
    QLineEdit* m_content = new QLineEdit(&m_pane);
    DraftLine m_line{m_work, *m_content, &m_pane};
    QVBoxLayout* m_layout = nullptr;
};

TEST_F(DraftLineTest, TheOfferIsAnnounced) {
    test::Announced announced(m_pane);
    const QDateTime time = QDateTime::currentDateTime();
    keepDraft(time);
    showFile();
    EXPECT_EQ(announced.take(), std::vector{text()});
    EXPECT_TRUE(text().startsWith(QStringLiteral("Unsaved changes of")));
}

TEST_F(DraftLineTest, TakesNoRoomWithoutAnOffer) {
    EXPECT_TRUE(m_line.isHidden());
    m_work.setKeeper(std::make_shared<DraftKeeper>(DraftStore(m_drafts)));
    m_work.shown(m_file, "disk");
    QTest::qWait(50);
    EXPECT_TRUE(m_line.isHidden());
}

TEST_F(DraftLineTest, SaysOfWhenTheChangesAre) {
    const QDateTime now = QDateTime::currentDateTime();
    keepDraft(QDateTime(now.date(), QTime(14, 2, 59)));
    showFile();
    EXPECT_EQ(text(), QStringLiteral("Unsaved changes of 14:02 are kept"));
}

TEST_F(DraftLineTest, NamesTheDayWhenItIsNotToday) {
    const QDate today = QDate::currentDate();
    keepDraft(QDateTime(QDate(today.year() - 2, 5, 7), QTime(9, 5)));
    showFile();
    EXPECT_EQ(text(),
              QStringLiteral("Unsaved changes of 7 May %1, 09:05 are kept").arg(today.year() - 2));
}

TEST_F(DraftLineTest, SaysThatTheFileHasChanged) {
    keepDraft(QDateTime(QDate::currentDate(), QTime(0, 0)), "kept", "former content");
    showFile();
    EXPECT_EQ(text(), QStringLiteral("Unsaved changes of 00:00 are kept. The file has changed "
                                     "since then."));
}

TEST_F(DraftLineTest, ItsButtonsAreNamedAndDescribed) {
    keepDraft(QDateTime::currentDateTime());
    showFile();
    for (const char* name : {"bringBackButton", "dropDraftButton"}) {
        const QAccessibleInterface* accessible =
            QAccessible::queryAccessibleInterface(button(name));
        ASSERT_NE(accessible, nullptr);
        EXPECT_EQ(accessible->role(), QAccessible::PushButton);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty());
        EXPECT_FALSE(accessible->text(QAccessible::Description).isEmpty());
    }
}

TEST_F(DraftLineTest, BringBackPutsTheContentBackAndGoes) {
    keepDraft(QDateTime::currentDateTime());
    showFile();
    m_content->setFocus();
    QTest::mouseClick(button("bringBackButton"), Qt::LeftButton);
    EXPECT_EQ(m_text, "kept");
    EXPECT_TRUE(m_line.isHidden());
    EXPECT_TRUE(m_content->hasFocus());
}

TEST_F(DraftLineTest, DropForgetsTheContentAndOffersTheOneBefore) {
    keepDraft(QDateTime::currentDateTime().addSecs(-1), "older");
    keepDraft(QDateTime::currentDateTime(), "newer");
    showFile();
    QTest::mouseClick(button("dropDraftButton"), Qt::LeftButton);
    EXPECT_EQ(m_text, "disk");
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_line.isVisible(); }));
    QTest::mouseClick(button("bringBackButton"), Qt::LeftButton);
    EXPECT_EQ(m_text, "older");
}

TEST_F(DraftLineTest, IsReachedByTabAndHandsTheFocusToTheContent) {
    keepDraft(QDateTime::currentDateTime());
    showFile();
    m_before->setFocus();
    QTest::keyClick(m_before, Qt::Key_Tab);
    EXPECT_TRUE(button("bringBackButton")->hasFocus());
    QTest::keyClick(button("bringBackButton"), Qt::Key_Tab);
    EXPECT_TRUE(button("dropDraftButton")->hasFocus());
    QTest::keyClick(button("dropDraftButton"), Qt::Key_Tab);
    EXPECT_TRUE(m_after->hasFocus());
    button("bringBackButton")->setFocus();
    QTest::keyClick(button("bringBackButton"), Qt::Key_Space);
    EXPECT_EQ(m_text, "kept");
    EXPECT_TRUE(m_content->hasFocus());
}

TEST_F(DraftLineTest, ShowsItsWholeTextInANarrowPane) {
    keepDraft(QDateTime::currentDateTime(), "kept", "former content");
    showFile();
    m_pane.resize(300, 300);
    QCoreApplication::sendPostedEvents(); // the layout's
    const auto* label = m_line.findChild<QLabel*>(QStringLiteral("draftText"));
    EXPECT_EQ(m_pane.width(), 300) << "it keeps no pane from being narrow";
    EXPECT_LE(m_line.width(), m_pane.width());
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
    EXPECT_GT(label->height(), label->fontMetrics().height()) << "more than one line";
    for (const char* name : {"bringBackButton", "dropDraftButton"}) {
        EXPECT_TRUE(m_line.rect().contains(button(name)->geometry())) << name;
        EXPECT_GE(button(name)->width(), button(name)->sizeHint().width()) << name;
    }
}

} // namespace
} // namespace kestrel
