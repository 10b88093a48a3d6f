// SPDX-License-Identifier: MIT
#include "widgets/Announcement.h"

#include "support/Announced.h"

#include <gtest/gtest.h>
#include <QLabel>
#include <QTest>

namespace kestrel {
namespace {

class AnnouncementTest : public ::testing::Test {
protected:
    AnnouncementTest() {
        m_label.hide();
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
        m_announced.take();
    }

    QWidget m_window;
    QLabel m_label{&m_window};
    Announcement m_announcement{m_label};
    test::Announced m_announced{m_window};
};

TEST_F(AnnouncementTest, IsHeardOnceWhenItsSpeakerIsShown) {
    m_announcement.say(QStringLiteral("Not saved"));
    EXPECT_TRUE(m_announced.take().empty());
    m_label.show();
    EXPECT_EQ(m_announced.take(), std::vector{QStringLiteral("Not saved")});
}

TEST_F(AnnouncementTest, IsHeardEachTimeWhileItsSpeakerIsInSight) {
    m_label.show();
    m_announced.take();
    m_announcement.say(QStringLiteral("Not saved"));
    m_announcement.say(QStringLiteral("Not saved"));
    EXPECT_EQ(m_announced.take(), std::vector(2, QStringLiteral("Not saved")));
}

TEST_F(AnnouncementTest, IsHeardLaterWhenItsWindowIsHidden) {
    m_label.show();
    m_window.hide();
    m_announced.take();
    m_announcement.say(QStringLiteral("Not saved"));
    EXPECT_TRUE(m_announced.take().empty());
    m_window.show();
    EXPECT_EQ(m_announced.take(), std::vector{QStringLiteral("Not saved")});
}

} // namespace
} // namespace kestrel
