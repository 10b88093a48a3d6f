// SPDX-License-Identifier: MIT
#include "app/ConsoleOutput.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>

namespace kestrel {

namespace {

void finish(const ConsoleOutput& console) {
    EXPECT_TRUE(QTest::qWaitFor([&console] { return !console.isBusy(); }, 60000));
}

TEST(ConsoleOutput, ShowsAShortTextAtOnce) {
    ConsoleOutput console;
    console.append(QStringLiteral("\nPlease select a project to build"));
    EXPECT_EQ(console.console()->toPlainText(),
              QStringLiteral("\nPlease select a project to build"));
    EXPECT_FALSE(console.isBusy());
}

TEST(ConsoleOutput, NeverTakesTextForMarkup) {
    ConsoleOutput console;
    const QString text = QStringLiteral("\n<b>bold</b> &amp; <script>");
    console.append(text);
    EXPECT_EQ(console.console()->toPlainText(), text);
}

TEST(ConsoleOutput, ALongTextIsShownInSlicesAndLaterTextsKeepTheirPlace) {
    ConsoleOutput console;
    console.resize(400, 300);
    console.show();
    QString text;
    for (int i = 0; i < 60000; ++i) {
        text += QStringLiteral("line of output\n");
    }
    console.append(text);
    EXPECT_TRUE(console.isBusy());
    console.append(QStringLiteral("closing line"));
    finish(console);
    EXPECT_EQ(console.console()->toPlainText(), text + QStringLiteral("closing line"));
}

TEST(ConsoleOutput, ClearingDropsWhatStillWaitsAndNothingThatComesLater) {
    ConsoleOutput console;
    console.append(QString(4000000, QLatin1Char('x')));
    EXPECT_TRUE(console.isBusy());
    console.clear();
    EXPECT_EQ(console.console()->toPlainText(), QString());
    console.append(QStringLiteral("\nnew"));
    finish(console);
    QCoreApplication::processEvents();
    EXPECT_EQ(console.console()->toPlainText(), QStringLiteral("\nnew"));
}

TEST(ConsoleOutput, FollowsTheEndUnlessTheUserScrolledUp) {
    ConsoleOutput console;
    console.resize(300, 120);
    console.show();
    const QString lines = QStringLiteral("line\n").repeated(200);
    console.append(lines);
    finish(console);
    QScrollBar* bar = console.console()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
    bar->setValue(3);
    console.append(lines);
    finish(console);
    EXPECT_EQ(bar->value(), 3);
    bar->setValue(bar->maximum());
    console.append(lines);
    finish(console);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST(ConsoleOutput, FollowsTheEndOfTextThatCameBeforeItWasShown) {
    ConsoleOutput console;
    console.append(QStringLiteral("line\n").repeated(200));
    console.resize(300, 120);
    console.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&console));
    console.append(QStringLiteral("more\n").repeated(200));
    finish(console);
    const QScrollBar* bar = console.console()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST(ConsoleOutput, FollowsTheEndAgainOnceItWasClearedAtTheTop) {
    ConsoleOutput console;
    console.resize(300, 120);
    console.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&console));
    console.append(QStringLiteral("line\n").repeated(200));
    finish(console);
    QScrollBar* bar = console.console()->verticalScrollBar();
    bar->setValue(0);
    console.clear();
    console.append(QStringLiteral("line\n").repeated(200));
    finish(console);
    ASSERT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST(ConsoleOutput, NewTextSelectsNothing) {
    ConsoleOutput console;
    console.append(QStringLiteral("one"));
    console.append(QStringLiteral("two"));
    EXPECT_FALSE(console.console()->textCursor().hasSelection());
}

TEST(ConsoleOutput, TheUsersSelectionSurvivesNewTextAndCanBeCopied) {
    ConsoleOutput console;
    console.append(QStringLiteral("abc def"));
    console.resize(400, 300);
    console.show();
    QTextCursor last(console.console()->document());
    last.setPosition(6);
    // The word at the very end of the text, where new text is about to go.
    QTest::mouseDClick(console.console()->viewport(), Qt::LeftButton, {},
                       console.console()->cursorRect(last).center());
    ASSERT_EQ(console.console()->textCursor().selectedText(), QStringLiteral("def"));
    console.append(QStringLiteral("\nmore"));
    EXPECT_EQ(console.console()->textCursor().selectedText(), QStringLiteral("def"));
    QTest::keyClick(console.console(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("def"));
}

TEST(ConsoleOutput, CannotBeTypedInto) {
    ConsoleOutput console;
    console.append(QStringLiteral("abc"));
    console.show();
    QTest::keyClicks(console.console(), QStringLiteral("xyz"));
    EXPECT_EQ(console.console()->toPlainText(), QStringLiteral("abc"));
}

TEST(ConsoleOutput, WithoutItsViewNothingIsWritten) {
    ConsoleOutput console;
    delete console.console();
    console.append(QStringLiteral("lost"));
    console.clear();
    EXPECT_FALSE(console.isBusy());
}

} // namespace

} // namespace kestrel
