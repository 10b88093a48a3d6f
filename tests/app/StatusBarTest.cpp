// SPDX-License-Identifier: MIT
#include "app/StatusBar.h"

#include "app/BuildMark.h"
#include "app/WindowFixture.h"
#include "editors/CommonEditorControllers.h"
#include "support/Announced.h"
#include "widgets/Contrast.h"
#include "widgets/ElidedLabel.h"

namespace kestrel {
namespace {

using namespace test;

/// A bar of its own, 480 pixels wide as the smallest window is.
class StatusBarOnItsOwn : public testing::Test {
protected:
    void SetUp() override {
        bar.resize(480, bar.sizeHint().height());
        bar.show();
    }

    ElidedLabel& label(const char* name) const {
        return *bar.findChild<ElidedLabel*>(QLatin1String(name));
    }

    StatusBoard board;
    StatusBar bar{board};
};

TEST_F(StatusBarOnItsOwn, ShowsOnlyFieldsWithATextAndTakesNoRoomForOthers) {
    EXPECT_FALSE(label("savingStatus").isVisible());
    EXPECT_FALSE(label("encodingStatus").isVisible());
    board.setText(StatusField::encoding, QStringLiteral("UTF-8, LF"));
    EXPECT_FALSE(label("savingStatus").isVisible());
    ASSERT_TRUE(label("encodingStatus").isVisible());
    EXPECT_EQ(label("encodingStatus").visibleText(), QStringLiteral("UTF-8, LF"));
    const QRect place = label("encodingStatus").geometry();
    EXPECT_EQ(place.right(), 471);
    board.setText(StatusField::saving, QStringLiteral("Kept"));
    EXPECT_EQ(label("savingStatus").x(), 8);
    EXPECT_EQ(label("encodingStatus").geometry(), place) << "facts stay where they are";
    board.clear(StatusField::encoding);
    EXPECT_FALSE(label("encodingStatus").isVisible());
}

TEST_F(StatusBarOnItsOwn, ALongMessageIsElidedAndTheLessImportantFieldGivesWay) {
    board.setText(StatusField::encoding, QStringLiteral("UTF-8, LF"));
    const QString message = QStringLiteral("a long message ").repeated(20);
    board.setText(StatusField::saving, message);
    EXPECT_FALSE(label("encodingStatus").isVisible());
    EXPECT_NE(label("savingStatus").visibleText(), message);
    EXPECT_LE(label("savingStatus").geometry().right(), 471);
    EXPECT_TRUE(label("savingStatus").accessibleName().endsWith(message));
    bar.resize(label("savingStatus").sizeHint().width() + 200, bar.height());
    EXPECT_TRUE(label("encodingStatus").isVisible());
    EXPECT_EQ(label("savingStatus").visibleText(), message);
}

TEST_F(StatusBarOnItsOwn, AssistiveTechnologyReadsNameAndText) {
    board.setText(StatusField::encoding, QStringLiteral("UTF-8, CRLF"));
    EXPECT_EQ(label("encodingStatus").accessibleName(),
              QStringLiteral("Encoding and line ends: UTF-8, CRLF"));
}

TEST_F(StatusBarOnItsOwn, KeepsTheHeightOfOneLine) {
    const int empty = bar.sizeHint().height();
    EXPECT_GT(empty, bar.fontMetrics().height());
    board.setText(StatusField::encoding, QStringLiteral("UTF-8"));
    EXPECT_EQ(bar.sizeHint().height(), empty);
}

TEST_F(StatusBarOnItsOwn, TheResultOfTheBuildComesFirstWithAMark) {
    auto* mark = bar.findChild<BuildMark*>();
    EXPECT_FALSE(mark->isVisible());
    board.setText(StatusField::saving, QStringLiteral("Not saved"));
    bar.setBuildMark(BuildMarkKind::failed);
    board.setText(StatusField::build, QStringLiteral("1 error: no image"));
    EXPECT_TRUE(mark->isVisible());
    EXPECT_EQ(mark->x(), 8);
    EXPECT_EQ(mark->kind(), BuildMarkKind::failed);
    EXPECT_GT(label("buildStatus").x(), mark->geometry().right());
    EXPECT_GT(label("savingStatus").x(), label("buildStatus").geometry().right());
    EXPECT_EQ(label("buildStatus").accessibleName(),
              QStringLiteral("Result of the build: 1 error: no image"));
    board.clear(StatusField::build);
    EXPECT_FALSE(mark->isVisible());
    EXPECT_EQ(label("savingStatus").x(), 8);
}

TEST_F(StatusBarOnItsOwn, AnnouncesWhatHappensEachTimeAndNothingElse) {
    Announced announced(bar);
    for (const StatusRow& row : statusRows()) {
        board.setText(row.field, QStringLiteral("told"));
    }
    EXPECT_EQ(announced.take(),
              (std::vector{QStringLiteral("Saving: told"), QStringLiteral("Notice: told")}));
    board.setText(StatusField::saving, QStringLiteral("told"));
    EXPECT_EQ(announced.take(), std::vector{QStringLiteral("Saving: told")});
    board.clear(StatusField::saving);
    bar.resize(600, bar.height());
    EXPECT_TRUE(announced.take().empty());
}

TEST_F(StatusBarOnItsOwn, ASaveThatFailedIsWholeBesideALongResultOfTheBuild) {
    const QString failed = QStringLiteral("main.asm could not be saved: File too large");
    board.setText(StatusField::place, QStringLiteral("Line 1, Column 1"));
    board.setText(StatusField::notice, QStringLiteral("There is no problem to go to"));
    board.setText(StatusField::saving, failed);
    board.setText(StatusField::build, QStringLiteral("another sentence ").repeated(20));
    EXPECT_EQ(label("savingStatus").visibleText(), failed);
    for (const char* name : {"buildStatus", "savingStatus", "noticeStatus"}) {
        EXPECT_TRUE(label(name).isVisible()) << name;
        EXPECT_GE(label(name).width(), label(name).minimumSizeHint().width()) << name;
        EXPECT_LE(label(name).geometry().right(), 471) << name;
    }
    EXPECT_FALSE(label("placeStatus").isVisible());
}

TEST_F(StatusBarOnItsOwn, WhatIsPastIsDimAndCanBeReadOnLightAndDark) {
    board.setText(StatusField::address, QStringLiteral("$C000"), StatusTone::past);
    const ElidedLabel& address = label("addressStatus");
    for (const auto& [background, text, disabled] :
         {std::array<QColor, 3>{QColor(0xef, 0xef, 0xef), Qt::black, QColor(0xbe, 0xbe, 0xbe)},
          {QColor(0x20, 0x20, 0x20), Qt::white, QColor(0x60, 0x60, 0x60)}}) {
        QPalette palette;
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, disabled);
        bar.setPalette(palette);
        const auto color = [&address] { return address.palette().color(address.foregroundRole()); };
        EXPECT_GE(contrast(color(), background), LeastTextContrast);
        EXPECT_LT(contrast(color(), background), contrast(text, background) / 2);
        board.setText(StatusField::address, QStringLiteral("$C000"));
        EXPECT_EQ(color(), text);
        board.setText(StatusField::address, QStringLiteral("$C000"), StatusTone::past);
    }
}

class MainWindowStatusBar : public WindowTest {
protected:
    void SetUp() override {
        registerProject("demo");
        start();
    }

    QString encoding() const {
        const auto* label = window().findChild<ElidedLabel*>(QStringLiteral("encodingStatus"));
        return label->isVisible() ? label->text() : QString();
    }
};

TEST_F(MainWindowStatusBar, TellsTheEncodingOfTheShownSourceUntilAnotherPaneIsShown) {
    EXPECT_EQ(encoding(), QString());
    const auto project = tree().allItems().at(0);
    tree().select(project->subItems().at(0));
    EXPECT_EQ(encoding(), QStringLiteral("UTF-8, LF"));
    tree().select(project);
    EXPECT_EQ(encoding(), QString());
    editor().commonController()->setCurrentWidget(editor().commonController()->textEditor);
    EXPECT_EQ(encoding(), QStringLiteral("UTF-8, LF"));
}

} // namespace
} // namespace kestrel
