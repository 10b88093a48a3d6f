// SPDX-License-Identifier: MIT
#include "memory/MemoryView.h"

#include "facts/ProgramKnowledge.h"
#include "memory/MemoryList.h"
#include "memory/MemoryModel.h"
#include "memory/MemoryRowDelegate.h"
#include "memory/SampleProgram.h"

#include <gtest/gtest.h>
#include <QAccessible>
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

namespace kestrel {

using test::makeBank;
using test::sampleProgram;

namespace {

/// Counts the rows that are painted.
class CountingDelegate : public MemoryRowDelegate {
public:
    using MemoryRowDelegate::MemoryRowDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        ++painted;
        MemoryRowDelegate::paint(painter, option, index);
    }
    mutable int painted = 0;
};

class MemoryViewTest : public testing::Test {
protected:
    void build(ProgramFacts facts, const char* image = "/p/Game.nes") {
        knowledge.set(image, std::make_shared<const ProgramFacts>(std::move(facts)));
    }

    void show() {
        view.resize(500, 400);
        view.show();
        view.activateWindow();
        view.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    MemoryList& list() const { return *view.findChild<MemoryList*>(QStringLiteral("memoryList")); }
    QLabel& summary() const { return *view.findChild<QLabel*>(QStringLiteral("memorySummary")); }
    QString told(int row) const {
        return list().model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
    }
    QImage picture() { return list().viewport()->grab().toImage(); }

    /// The tip that comes when nothing is shown and the pointer rests on the bar of a row.
    QString toolTipAt(int row, int x) {
        QToolTip::hideText(); // it stays for a moment
        EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
        pointAt(row, x);
        return QToolTip::text();
    }

    void pointAt(int row, int x) {
        const QRect rect = list().visualRect(list().model()->index(row, 0));
        const QPoint place(x, MemoryRowDelegate::barRect(rect, list().fontMetrics()).center().y());
        QHelpEvent event(QEvent::ToolTip, place, list().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(list().viewport(), &event);
    }

    ProgramKnowledge knowledge;
    MemoryView view{knowledge};
};

/// A cartridge with 256 banks.
ProgramFacts largeProgram() {
    ProgramFacts facts;
    for (std::uint32_t i = 0; i < 256; ++i) {
        facts.areas.push_back(makeBank(MemoryArea::Kind::prg, i, {{0, i + 1}}));
    }
    return facts;
}

} // namespace

TEST_F(MemoryViewTest, SaysWhatToDoBeforeTheFirstBuild) {
    show();
    EXPECT_EQ(list().model()->rowCount(), 0);
    EXPECT_TRUE(
        list().accessibleDescription().startsWith(QStringLiteral("Build a project to see")));
    EXPECT_TRUE(summary().isHidden());
    QImage empty(picture().size(), picture().format());
    empty.fill(list().palette().color(QPalette::Base));
    empty.setDevicePixelRatio(picture().devicePixelRatio());
    EXPECT_NE(picture(), empty) << "the sentence is not painted";
}

TEST_F(MemoryViewTest, ShowsTheProgramOfTheLastBuild) {
    show();
    build(sampleProgram());
    ASSERT_EQ(list().model()->rowCount(), 4);
    EXPECT_EQ(told(2),
              QStringLiteral("Zero page: 13 of 256 bytes used, 243 free, largest gap 239"));
    EXPECT_TRUE(summary().isVisible());
    EXPECT_TRUE(summary().text().startsWith(QStringLiteral("Game.nes: PRG 5,216 of 8,192")));
    EXPECT_EQ(list().accessibleDescription(), QString());
    ProgramFacts more = sampleProgram();
    more.areas[2].used = {{0, 20}};
    build(more);
    EXPECT_EQ(told(2), QStringLiteral("Zero page: 20 of 256 bytes used, 236 free, largest gap 236; "
                                      "7 bytes more than in the build before"));
    knowledge.clear();
    EXPECT_EQ(list().model()->rowCount(), 0);
    EXPECT_TRUE(summary().isHidden());
    EXPECT_FALSE(list().accessibleDescription().isEmpty());
}

TEST_F(MemoryViewTest, CopiesTheNumbersOfTheSelectedRowsWithTheirNames) {
    show();
    build(sampleProgram());
    const QString head = QStringLiteral("Area\tUsed\tSize\tFree\tLargest gap\tChange\n");
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    list().clearSelection();
    const QImage plain = picture();
    list().selectionModel()->select(list().model()->index(0, 0), QItemSelectionModel::Select);
    EXPECT_NE(picture(), plain) << "it is seen what would be copied";
    const QString first = QStringLiteral("PRG bank 0\t5216\t8192\t2976\t2976\t\n");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), head + first);
    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              head + first +
                  QStringLiteral("CHR bank 1\t8192\t8192\t0\t0\t\n"
                                 "Zero page\t13\t256\t243\t239\t\n"
                                 "RAM\t0\t1536\t1536\t1536\t\n"));
    ProgramFacts less = sampleProgram();
    less.areas[0].used = {{0, 10}};
    build(std::move(less));
    list().selectionModel()->select(list().model()->index(0, 0),
                                    QItemSelectionModel::ClearAndSelect);
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              head + QStringLiteral("PRG bank 0\t10\t8192\t8182\t8182\t-5206\n"));
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    list().clearSelection();
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
}

TEST_F(MemoryViewTest, ANoteStandsAboveTheNumbers) {
    show();
    build(sampleProgram());
    const auto* note = view.findChild<QLabel*>(QStringLiteral("memoryNote"));
    EXPECT_FALSE(note->isVisible());
    view.setNote(QStringLiteral("Before the changes"));
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(note->text(), QStringLiteral("Before the changes"));
    view.setNote({});
    EXPECT_FALSE(note->isVisible());
}

TEST_F(MemoryViewTest, TakesUpWhatCameWhileItWasHidden) {
    build(sampleProgram());
    EXPECT_EQ(list().model()->rowCount(), 0) << "a hidden window costs nothing";
    show();
    EXPECT_EQ(list().model()->rowCount(), 4);
    view.hide();
    build(largeProgram());
    EXPECT_EQ(list().model()->rowCount(), 4);
    view.show();
    EXPECT_EQ(list().model()->rowCount(), 256);
}

TEST_F(MemoryViewTest, KeepsTheRowAndThePlaceWhenTheSameBanksAreBuiltAgain) {
    show();
    build(largeProgram());
    list().setCurrentIndex(list().model()->index(200, 0));
    QCoreApplication::processEvents();
    const int place = list().verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    ProgramFacts changed = largeProgram();
    changed.areas[200].used = {{0, 301}};
    build(changed);
    QCoreApplication::processEvents();
    EXPECT_EQ(list().currentIndex().row(), 200);
    EXPECT_EQ(list().verticalScrollBar()->value(), place);
    EXPECT_TRUE(told(200).contains(QStringLiteral("100 bytes more")));
}

TEST_F(MemoryViewTest, WalksTheRowsByKeys) {
    show();
    build(sampleProgram());
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(list().currentIndex().row(), 0);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(list().currentIndex().row(), 1);
    const QImage second = picture();
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(list().currentIndex().row(), 3);
    EXPECT_NE(picture(), second) << "the row of the keys is not marked";
    QTest::keyClick(&list(), Qt::Key_Up);
    EXPECT_EQ(list().currentIndex().row(), 2);
}

TEST_F(MemoryViewTest, PaintsOnlyTheRowsInSight) {
    show();
    build(largeProgram());
    auto* counting = new CountingDelegate(*qobject_cast<const MemoryModel*>(list().model()), &view);
    list().setItemDelegate(counting);
    QCoreApplication::processEvents();
    counting->painted = 0;
    picture();
    const int height = list().visualRect(list().model()->index(0, 0)).height();
    ASSERT_GT(height, 0);
    EXPECT_GT(counting->painted, 2);
    EXPECT_LE(counting->painted, list().viewport()->height() / height + 2);
    EXPECT_GT(list().verticalScrollBar()->maximum(), 200 * height);
}

TEST_F(MemoryViewTest, TellsThePlaceUnderThePointer) {
    show();
    build(sampleProgram());
    QCoreApplication::processEvents();
    const QRect bar = MemoryRowDelegate::barRect(list().visualRect(list().model()->index(0, 0)),
                                                 list().fontMetrics());
    EXPECT_EQ(toolTipAt(0, bar.left() + 20), QStringLiteral("$C000-$D459 used, 5,210 bytes"));
    EXPECT_EQ(toolTipAt(0, bar.right() - 20),
              QStringLiteral("$D45A-$DFF9 free, 2,976 bytes: the largest gap"));
    EXPECT_EQ(toolTipAt(0, bar.right() - 1), QStringLiteral("$DFFA-$DFFF used, 6 bytes"));
    EXPECT_EQ(toolTipAt(0, bar.right() - 2), QStringLiteral("$DFFA-$DFFF used, 6 bytes"))
        << "drawn, but wider than it is";
    EXPECT_EQ(toolTipAt(0, bar.right() - 4),
              QStringLiteral("$D45A-$DFF9 free, 2,976 bytes: the largest gap"));
    pointAt(0, bar.left() - 4);
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); })) << "beside the bar";
    EXPECT_EQ(toolTipAt(1, bar.left() + 20), QStringLiteral("$0000-$1FFF used, 8,192 bytes"));
}

TEST_F(MemoryViewTest, GivesTheNumbersMoreLinesInANarrowWindow) {
    show();
    build(sampleProgram());
    QCoreApplication::processEvents();
    const auto height = [this] { return list().visualRect(list().model()->index(0, 0)).height(); };
    const int wide = height();
    view.resize(200, 400);
    QCoreApplication::processEvents();
    EXPECT_GE(height(), wide + list().fontMetrics().height());
    EXPECT_EQ(list().visualRect(list().model()->index(0, 0)).width(), list().viewport()->width());
    view.resize(500, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(height(), wide);
}

TEST_F(MemoryViewTest, ExplainsNamedAddressesOnlyWhereThereAreAny) {
    show();
    const auto isExplained = [this] {
        for (const QLabel* label : view.findChildren<QLabel*>()) {
            if (label->text() == QStringLiteral("Named")) {
                return label->isVisible();
            }
        }
        ADD_FAILURE() << "no such label";
        return false;
    };
    EXPECT_FALSE(isExplained());
    build(sampleProgram());
    EXPECT_TRUE(isExplained());
    build(largeProgram());
    EXPECT_FALSE(isExplained());
}

TEST_F(MemoryViewTest, IsAListForAssistiveTechnology) {
    show();
    build(sampleProgram());
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&list());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::List);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Banks and memory"));
    ASSERT_EQ(accessible->childCount(), 4);
    const QAccessibleInterface* row = accessible->child(1);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name),
              QStringLiteral("CHR bank 1: 8,192 of 8,192 bytes used, 0 free, largest gap 0"));
    EXPECT_EQ(row->text(QAccessible::Description), QStringLiteral("Used: $0000-$1FFF."));
}

TEST_F(MemoryViewTest, OutlivesWhatItWatches) {
    auto gone = std::make_unique<ProgramKnowledge>();
    MemoryView other(*gone);
    gone.reset();
    other.show();
    EXPECT_EQ(other.findChild<MemoryList*>()->model()->rowCount(), 0);
}

} // namespace kestrel
