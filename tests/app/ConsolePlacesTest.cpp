// SPDX-License-Identifier: MIT
#include "app/ConsolePlaces.h"

#include "app/ConsoleOutput.h"

#include <gtest/gtest.h>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

namespace kestrel {
namespace {

class ConsolePlacesTest : public testing::Test {
protected:
    void SetUp() override {
        console.resize(700, 400);
        console.show();
        QObject::connect(&places, &ConsolePlaces::found, &console,
                         [this](const std::vector<Place>& more) {
                             found.insert(found.end(), more.begin(), more.end());
                         });
        QObject::connect(&places, &ConsolePlaces::cleared, &console, [this] { found.clear(); });
        QObject::connect(&places, &ConsolePlaces::chosen, &console,
                         [this](const Place& place, std::optional<std::size_t> number) {
                             chosen.emplace_back(place.file.toStdString(), number);
                         });
    }

    void show(const char* text) {
        console.append(QString::fromUtf8(text));
        ASSERT_TRUE(QTest::qWaitFor([this] { return !console.isBusy(); }, 60000));
    }

    QPlainTextEdit& view() const { return *console.console(); }
    QTextCursor caretIn(int line) const {
        return QTextCursor(view().document()->findBlockByNumber(line));
    }
    QPoint pointIn(int line) const {
        QTextCursor cursor = caretIn(line);
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 3);
        return view().cursorRect(cursor).center();
    }
    void point(const QPoint& place) {
        QMouseEvent move(QEvent::MouseMove, place, view().viewport()->mapToGlobal(place),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &move);
    }
    std::string underlined() const {
        for (const auto& selection : view().extraSelections()) {
            if (selection.format.fontUnderline()) {
                return selection.cursor.selectedText().toStdString();
            }
        }
        return "";
    }

    using Chosen = std::vector<std::pair<std::string, std::optional<std::size_t>>>;

    ConsoleOutput console;
    ConsolePlaces places{*console.console()};
    std::vector<Place> found;
    Chosen chosen;
};

constexpr const char* Output = "\nmain.asm:3:5: error: no such name\n\tlda x\n\t    ^\n"
                               "  included at top.asm:7\n"
                               "b c.asm:1:2: warning: odd\n1 error, 1 warning\n";

TEST_F(ConsolePlacesTest, ReadsTheProblemsInTheirOrder) {
    show(Output);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0], (Place{QStringLiteral("main.asm"), 3, 5, Place::Kind::error,
                               QStringLiteral("no such name")}));
    EXPECT_EQ(found[1].file, u"b c.asm");
    console.clear();
    EXPECT_TRUE(found.empty());
    show("\nother.asm:1:1: error: x\n");
    EXPECT_EQ(found.size(), 1U);
}

TEST_F(ConsolePlacesTest, ALineIsReadWhenItIsWholeOrWhenItIsAskedFor) {
    show("\nmain.asm:3:5: error: no su");
    EXPECT_TRUE(found.empty());
    show("ch name\nb.asm:1:1: error: last");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, u"no such name");
    places.readLastLine();
    places.readLastLine();
    EXPECT_EQ(found.size(), 2U);
}

TEST_F(ConsolePlacesTest, ADoubleClickChoosesALineThatNamesAPlace) {
    show(Output);
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, Qt::NoModifier, pointIn(1));
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, Qt::NoModifier, pointIn(4));
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, Qt::NoModifier, pointIn(5));
    EXPECT_EQ(chosen, (Chosen{{"main.asm", 0}, {"top.asm", std::nullopt}, {"b c.asm", 1}}));
    // Elsewhere it selects a word, as ever.
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, Qt::NoModifier, pointIn(6));
    QTest::mouseDClick(view().viewport(), Qt::RightButton, Qt::NoModifier, pointIn(1));
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 390));
    EXPECT_EQ(chosen.size(), 3U);
}

TEST_F(ConsolePlacesTest, TheCaretMovesByKeysAndReturnChoosesItsLine) {
    show(Output);
    view().setFocus();
    QTest::keyClick(&view(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&view(), Qt::Key_Return);
    EXPECT_TRUE(chosen.empty());
    QTest::keyClick(&view(), Qt::Key_Down);
    EXPECT_EQ(view().textCursor().blockNumber(), 1);
    QTest::keyClick(&view(), Qt::Key_Return);
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(&view(), Qt::Key_Down);
    }
    QTest::keyClick(&view(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(chosen, (Chosen{{"main.asm", 0}, {"b c.asm", 1}}));
    EXPECT_TRUE(view().isReadOnly());
    EXPECT_EQ(view().toPlainText(), QString::fromUtf8(Output));
}

TEST_F(ConsolePlacesTest, UnderThePointerAPlaceIsUnderlinedAndThePointerIsAHand) {
    show(Output);
    point(pointIn(1));
    EXPECT_EQ(underlined(), "main.asm:3:5");
    EXPECT_EQ(view().viewport()->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_FALSE(view().viewport()->toolTip().isEmpty());
    point(pointIn(4));
    EXPECT_EQ(underlined(), "top.asm:7");
    point(pointIn(2));
    EXPECT_EQ(underlined(), "");
    EXPECT_EQ(view().viewport()->cursor().shape(), Qt::IBeamCursor);
    EXPECT_TRUE(view().viewport()->toolTip().isEmpty());
    point(pointIn(5));
    EXPECT_EQ(underlined(), "b c.asm:1:2");
    point(QPoint(20, 390));
    EXPECT_EQ(underlined(), "");
}

TEST_F(ConsolePlacesTest, TheLineOfAProblemIsShownAndTinted) {
    QString text;
    for (int i = 0; i < 200; ++i) {
        text += QStringLiteral("a.asm:%1:1: error: x\n").arg(i + 1);
    }
    show(text.toUtf8().constData());
    places.showProblem(3);
    EXPECT_EQ(view().textCursor().blockNumber(), 3);
    EXPECT_TRUE(view().viewport()->rect().contains(view().cursorRect()));
    ASSERT_EQ(view().extraSelections().size(), 1);
    EXPECT_EQ(view().extraSelections().front().cursor.blockNumber(), 3);
    console.clear();
    EXPECT_TRUE(view().extraSelections().isEmpty());
}

TEST_F(ConsolePlacesTest, WhatIsSaidBelowTheLineOfAProblemIsInSightToo) {
    QString text;
    for (int i = 0; i < 40; ++i) {
        text += QStringLiteral("a.asm:%1:1: error: x\n  lda x\n      ^\nincluded from b.asm:3\n")
                    .arg(i + 1);
    }
    show(text.toUtf8().constData());
    view().verticalScrollBar()->setValue(0);
    for (const std::size_t problem : {20U, 21U, 25U, 3U, 38U}) {
        places.showProblem(problem);
        const QRect line = view().cursorRect();
        EXPECT_GE(line.top(), 0) << problem;
        EXPECT_LE(line.bottom() + 3 * line.height(), view().viewport()->height()) << problem;
    }
    places.showProblem(20);
    const int place = view().verticalScrollBar()->value();
    places.showProblem(21);
    EXPECT_EQ(view().verticalScrollBar()->value(), place) << "it was in sight";
}

TEST_F(ConsolePlacesTest, OfHundredsOfThousandsOfProblemsTheFirstAreReadAndAllCanBeChosen) {
    QString text;
    for (int i = 0; i < 300'000; ++i) {
        text += QStringLiteral("a.asm:%1:1: error: something is wrong\n").arg(i + 1);
    }
    show(text.toUtf8().constData());
    EXPECT_EQ(found.size(), ConsolePlaces::Limit);
    view().setTextCursor(caretIn(299'999));
    QTest::keyClick(&view(), Qt::Key_Return);
    EXPECT_EQ(chosen, (Chosen{{"a.asm", std::nullopt}}));
}

TEST_F(ConsolePlacesTest, ALineWithoutEndIsNotLookedAtWhole) {
    const QString line = QStringLiteral("a.asm:1:1: error: ") + QString(60'000, u'x');
    show(line.toUtf8().constData());
    places.readLastLine();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_LT(found[0].text.size(), LongestPlaceText);
}

} // namespace
} // namespace kestrel
