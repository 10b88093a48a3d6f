// SPDX-License-Identifier: MIT
#include "app/BuildStrip.h"

#include "app/BuildMark.h"
#include "app/ConsoleOutput.h"
#include "app/ConsoleWindow.h"
#include "support/Announced.h"
#include "widgets/Contrast.h"
#include "widgets/WrappedLabel.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QImage>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <vector>

namespace kestrel {
namespace {

/// The strip where it belongs: in the console's window.
class BuildStripTest : public ::testing::Test {
protected:
    BuildStripTest() {
        m_window.comeToFront();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    BuildStrip& strip() const { return *m_window.buildStrip(); }
    WrappedLabel& label(const char* name) const {
        return *strip().findChild<WrappedLabel*>(QLatin1String(name));
    }
    QPushButton& button() const { return *strip().findChild<QPushButton*>(); }
    BuildMark& mark() const { return *strip().findChild<BuildMark*>(); }

    static BuildNews made() {
        return {BuildMarkKind::made, QStringLiteral("Game.nes built"), {}, {}};
    }

    ConsoleWindow m_window;
    test::Announced m_announced{m_window};
};

TEST_F(BuildStripTest, IsHiddenUntilThereIsSomethingToSay) {
    EXPECT_TRUE(strip().isHidden());
    const QPoint place = m_window.consoleOutput()->mapTo(&m_window, QPoint());
    strip().showNews(made());
    EXPECT_TRUE(strip().isVisible());
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return m_window.consoleOutput()->mapTo(&m_window, QPoint()).y() > place.y(); }));
    strip().showNews({});
    EXPECT_TRUE(strip().isHidden());
}

TEST_F(BuildStripTest, ShowsSentenceHintAndButtonOnlyWhereThereAreAny) {
    strip().showNews(made());
    EXPECT_EQ(label("buildText").text(), QStringLiteral("Game.nes built"));
    EXPECT_FALSE(label("buildHint").isVisible());
    EXPECT_FALSE(button().isVisible());
    strip().showNews({BuildMarkKind::failed,
                      QStringLiteral("No"),
                      {},
                      QStringLiteral("Why"),
                      BuildNews::Again::build});
    EXPECT_EQ(label("buildHint").text(), QStringLiteral("Why"));
    EXPECT_TRUE(label("buildHint").isVisible());
    EXPECT_TRUE(button().isVisible());
    EXPECT_EQ(mark().kind(), BuildMarkKind::failed);
}

TEST_F(BuildStripTest, TheButtonAsksForSavingAndLeavesTheFocusWhereItIs) {
    strip().showNews(
        {BuildMarkKind::made, QStringLiteral("Built"), {}, {}, BuildNews::Again::build});
    const QSignalSpy asked(&strip(), &BuildStrip::saveAndBuildRequested);
    const QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(QApplication::focusWidget(), focused);
}

TEST_F(BuildStripTest, AfterARunTheButtonAsksForAnotherRun) {
    strip().showNews({BuildMarkKind::made, QStringLiteral("Built"), {}, {}, BuildNews::Again::run});
    EXPECT_EQ(button().text(), QStringLiteral("Save and Run Again"));
    EXPECT_EQ(button().accessibleName(), button().text());
    const QSignalSpy toBuild(&strip(), &BuildStrip::saveAndBuildRequested);
    const QSignalSpy toRun(&strip(), &BuildStrip::saveAndRunRequested);
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(toRun.size(), 1);
    EXPECT_EQ(toBuild.size(), 0);
}

TEST_F(BuildStripTest, TheMarkIsAGraphicForAssistiveTechnology) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&mark())->role(), QAccessible::Graphic);
}

TEST(FirstNews, HasAllItsTextInSight) {
    for (const bool isShownBefore : {false, true}) {
        ConsoleWindow window;
        window.resize(600, 400);
        if (isShownBefore) {
            window.comeToFront();
            QCoreApplication::processEvents();
        }
        BuildStrip& strip = *window.buildStrip();
        strip.showNews({});
        window.comeToFront();
        strip.showNews({BuildMarkKind::failed,
                        QStringLiteral("Could not find the main file"),
                        {},
                        QStringLiteral("The first hint.\nThe second hint."),
                        {}});
        ASSERT_TRUE(QTest::qWaitFor([&] { return strip.isVisible(); }));
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        const auto* hint = strip.findChild<WrappedLabel*>(QStringLiteral("buildHint"));
        EXPECT_EQ(hint->height(), hint->heightForWidth(hint->width())) << isShownBefore;
        EXPECT_TRUE(strip.rect().contains(hint->geometry())) << isShownBefore;
        EXPECT_LE(strip.height(), window.height() / 3) << isShownBefore;
    }
}

TEST_F(BuildStripTest, ANoticeStandsBelowTheResultAndGoesWithTheNextOne) {
    strip().showNews(made());
    strip().showNotice(QStringLiteral("“a.asm” is in no project"));
    EXPECT_EQ(label("buildText").text(), QStringLiteral("Game.nes built"));
    EXPECT_EQ(mark().kind(), BuildMarkKind::made);
    EXPECT_TRUE(label("buildNotice").isVisible());
    strip().showNews(made());
    EXPECT_FALSE(label("buildNotice").isVisible());
}

TEST_F(BuildStripTest, ANoticeAloneHasAMarkOfItsOwn) {
    strip().showNotice(QStringLiteral("Nothing there"));
    EXPECT_TRUE(strip().isVisible());
    EXPECT_EQ(mark().kind(), BuildMarkKind::notice);
    strip().showNotice({});
    EXPECT_TRUE(strip().isHidden());
}

TEST_F(BuildStripTest, EveryResultIsAnnouncedAndTheTimeThatRunsIsNot) {
    BuildNews news{BuildMarkKind::running, QStringLiteral("Building Game..."), {}, {}};
    for (const char* time : {"0.3 s", "0.4 s", "0.5 s"}) {
        news.elapsed = QLatin1String(time);
        strip().showNews(news);
    }
    EXPECT_EQ(label("buildText").text(), QStringLiteral("Building Game... 0.5 s"));
    EXPECT_EQ(m_announced.take(), std::vector{QStringLiteral("Building Game...")});
    strip().showNews({BuildMarkKind::failed, QStringLiteral("No"), {}, QStringLiteral("Why"), {}});
    EXPECT_EQ(m_announced.take(), std::vector{QStringLiteral("No. Why")});
    strip().showNews(made());
    strip().showNews(made());
    EXPECT_EQ(m_announced.take().size(), 2) << "the same result again is another result";
}

TEST_F(BuildStripTest, IsANotificationToAssistiveTechnology) {
    strip().showNews(made());
    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&strip());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Notification);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Game.nes built"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&mark())->text(QAccessible::Name),
              QStringLiteral("Made"));
}

TEST_F(BuildStripTest, WhatComesWhileTheConsoleIsHiddenIsAnnouncedWhenItIsShown) {
    m_window.hide();
    strip().showNews(made());
    EXPECT_TRUE(m_announced.take().empty());
    m_window.comeToFront();
    EXPECT_EQ(m_announced.take(), std::vector{QStringLiteral("Game.nes built")});
}

TEST_F(BuildStripTest, LosesNothingInTheNarrowestWindow) {
    const QString path = QStringLiteral("/home/somebody/") + QStringLiteral("folder").repeated(20);
    strip().showNews({BuildMarkKind::failed,
                      QStringLiteral("Could not start it: ").repeated(5),
                      {},
                      path,
                      BuildNews::Again::build});
    const auto isBelowText = [this] {
        const QRect hint = label("buildHint").rect();
        return button().y() >= label("buildHint").mapTo(&strip(), hint.bottomLeft()).y();
    };
    m_window.resize(1, 300);
    EXPECT_TRUE(QTest::qWaitFor(isBelowText)) << "the button is below the text";
    EXPECT_EQ(m_window.width(), 320) << "long words do not make the window wider";
    for (const char* name : {"buildText", "buildHint"}) {
        const WrappedLabel& shown = label(name);
        EXPECT_GE(shown.height(), shown.heightForWidth(shown.width())) << name;
        EXPECT_LE(shown.mapTo(&strip(), shown.rect().bottomRight()).x(), strip().width()) << name;
    }
    EXPECT_GT(label("buildHint").height(), 2 * label("buildHint").fontMetrics().height());
    EXPECT_EQ(button().width(), button().sizeHint().width());
    m_window.resize(900, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return button().y() < label("buildText").height() * 2 &&
               button().x() > label("buildText").width();
    })) << "here it is beside the text";
}

TEST_F(BuildStripTest, InALowWindowItIsScrolledAndLeavesRoomForTheText) {
    strip().showNews({BuildMarkKind::failed,
                      QStringLiteral("Could not find main entry point for assembly file(s)"),
                      {},
                      QStringLiteral("The main file is the first listed one. ").repeated(6),
                      BuildNews::Again::build});
    m_window.resize(320, 120);
    const auto* area = m_window.findChild<QScrollArea*>(QStringLiteral("buildStripArea"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return area->verticalScrollBar()->maximum() > 0; }));
    EXPECT_EQ(m_window.height(), 120);
    EXPECT_GE(m_window.consoleOutput()->height(), 2 * m_window.fontMetrics().lineSpacing());
    for (const char* name : {"buildText", "buildHint"}) {
        const WrappedLabel& shown = label(name);
        EXPECT_GE(shown.height(), shown.heightForWidth(shown.width())) << name;
    }
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
        return area->viewport()->rect().contains(
            button().mapTo(area->viewport(), button().rect().bottomLeft()));
    })) << "the button can be reached";
    EXPECT_EQ(area->focusPolicy(), Qt::TabFocus) << "by the keyboard, too";
    m_window.resize(320, 500);
    ASSERT_TRUE(QTest::qWaitFor([&] { return area->verticalScrollBar()->maximum() == 0; }));
    EXPECT_EQ(area->focusPolicy(), Qt::NoFocus);
    strip().showNews({});
    EXPECT_TRUE(area->isHidden());
}

/// A mark as it is painted on this background, in shades of grey.
QImage greyMark(BuildMarkKind kind, const QColor& background, const QColor& text) {
    BuildMark mark;
    QPalette palette;
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::WindowText, text);
    mark.setPalette(palette);
    mark.setKind(kind);
    mark.resize(32, 32);
    return mark.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
}

/// How many pixels of two marks are clearly darker in one than in the other.
int difference(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            count += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 80 ? 1 : 0;
        }
    }
    return count;
}

TEST(BuildMark, IsToldApartWithoutColoursOnLightAndDark) {
    for (const auto& [background, text] :
         {std::pair<QColor, QColor>{Qt::white, Qt::black}, {QColor(0x20, 0x20, 0x20), Qt::white}}) {
        std::vector<QImage> marks;
        for (const auto kind :
             {BuildMarkKind::notice, BuildMarkKind::running, BuildMarkKind::made,
              BuildMarkKind::warned, BuildMarkKind::failed, BuildMarkKind::stopped}) {
            marks.push_back(greyMark(kind, background, text));
            for (std::size_t i = 0; i + 1 < marks.size(); ++i) {
                EXPECT_GT(difference(marks.at(i), marks.back()), 20) << i << " " << marks.size();
            }
        }
    }
}

TEST(BuildMark, StandsOutFromItsBackground) {
    for (const auto& [background, text] :
         {std::pair<QColor, QColor>{QColor(0xef, 0xef, 0xef), Qt::black},
          {QColor(0x20, 0x20, 0x20), Qt::white}}) {
        for (const auto kind :
             {BuildMarkKind::made, BuildMarkKind::warned, BuildMarkKind::failed}) {
            BuildMark mark;
            QPalette palette;
            palette.setColor(QPalette::Window, background);
            palette.setColor(QPalette::WindowText, text);
            mark.setPalette(palette);
            mark.setKind(kind);
            mark.resize(32, 32);
            const QImage image = mark.grab().toImage();
            EXPECT_GE(contrast(image.pixelColor(16, 4), background), 4.5);
        }
    }
}

} // namespace
} // namespace kestrel
