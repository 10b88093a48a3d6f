// SPDX-License-Identifier: MIT
#include "app/HeldKeys.h"

#include "editors/settings/BuildFileTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcutEvent>
#include <QStringListModel>
#include <QTest>
#include <QWindow>

#include <string>
#include <vector>

namespace kestrel {
namespace {

using ::testing::ElementsAre;

/// Remembers of each press whether it was marked as a repeat.
class RecordingField : public QLineEdit {
public:
    std::vector<bool> repeats;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        repeats.push_back(event->isAutoRepeat());
        QLineEdit::keyPressEvent(event);
    }
};

/// Sends a window what the platform sends: no event is marked as a repeat.
class HeldKeysTest : public testing::Test {
protected:
    enum Key : quint32 { a = 38, d = 40 }; // by their places on the keyboard

    HeldKeysTest() {
        once.setShortcut(Qt::CTRL | Qt::Key_D);
        once.setAutoRepeat(false);
        repeated.setShortcut(Qt::CTRL | Qt::Key_D);
        QObject::connect(&once, &QAction::triggered, [this] { ++timesOnce; });
        QObject::connect(&repeated, &QAction::triggered, [this] { ++timesRepeated; });
        qApp->installEventFilter(&held);
    }

    void show(QWidget* widget) {
        widget->setParent(&window);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        widget->show();
        widget->setFocus();
        ASSERT_TRUE(widget->hasFocus());
    }

    void send(QEvent::Type type, Key place, quint64 time, int key = Qt::Key_A) {
        window.winId(); // so that there is a window for the platform
        const QString text = key == Qt::Key_A ? QStringLiteral("a") : QString();
        QKeyEvent event(type, key, Qt::NoModifier, place, 0, 0, text);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
    }

    /// A press that is a command's shortcut.
    void pressShortcut(Key place, quint64 time) {
        send(QEvent::ShortcutOverride, place, time);
        for (QAction* action : {&once, &repeated}) {
            QShortcutEvent event(action->shortcut(), 0);
            QCoreApplication::sendEvent(action, &event);
        }
    }

    void release(Key place, quint64 time) { send(QEvent::KeyRelease, place, time); }

    /// A press that goes to the widget with the focus.
    void press(quint64 time, int key = Qt::Key_A) {
        send(QEvent::ShortcutOverride, Key::a, time, key);
        send(QEvent::KeyPress, Key::a, time, key);
    }

    QWidget window;
    QAction once;
    QAction repeated;
    int timesOnce = 0;
    int timesRepeated = 0;
    HeldKeys held;
};

TEST_F(HeldKeysTest, AHeldKeyTriggersACommandOnceThatIsNotToBeRepeated) {
    pressShortcut(Key::d, 1000);
    for (quint64 time = 1660; time < 2000; time += 40) {
        release(Key::d, time);
        pressShortcut(Key::d, time);
    }
    release(Key::d, 2010);
    EXPECT_EQ(timesOnce, 1);
    EXPECT_EQ(timesRepeated, 10);
}

TEST_F(HeldKeysTest, EachPressOfItsOwnTriggersTheCommand) {
    pressShortcut(Key::d, 1000);
    release(Key::d, 1050);
    pressShortcut(Key::d, 1051);
    release(Key::d, 1100);
    pressShortcut(Key::a, 1100); // another key at the time of the release
    EXPECT_EQ(timesOnce, 3);
}

TEST_F(HeldKeysTest, ARepeatDoesNotKeepTheNextPressFromActing) {
    pressShortcut(Key::d, 1000);
    release(Key::d, 1660);
    pressShortcut(Key::d, 1660);
    release(Key::d, 1700);
    pressShortcut(Key::d, 1800);
    EXPECT_EQ(timesOnce, 2);
}

TEST_F(HeldKeysTest, EventsWithoutATimeAreNoRepeats) {
    for (int i = 0; i < 3; ++i) {
        pressShortcut(Key::d, 0);
        release(Key::d, 0);
    }
    EXPECT_EQ(timesOnce, 3);
}

TEST_F(HeldKeysTest, TheFocusedWidgetGetsRepeatsMarkedAndTypesThem) {
    auto* field = new RecordingField;
    show(field);
    press(1000);
    for (const quint64 time : {1660U, 1700U}) {
        release(Key::a, time);
        press(time);
    }
    release(Key::a, 1710);
    press(1800);
    EXPECT_THAT(field->repeats, ElementsAre(false, true, true, false));
    EXPECT_EQ(field->text(), QStringLiteral("aaaa"));
}

TEST_F(HeldKeysTest, AHeldDeleteKeyTakesOneFileOffAList) {
    auto* table = new BuildFileTable(&window);
    QStringListModel files({QStringLiteral("a.asm"), QStringLiteral("b.asm")});
    table->setModel(&files);
    table->selectRow(0);
    int deletes = 0;
    QObject::connect(table, &BuildFileTable::deletePressed, [&deletes] { ++deletes; });
    show(table);
    press(1000, Qt::Key_Delete);
    for (const quint64 time : {1660U, 1700U}) {
        release(Key::a, time);
        press(time, Qt::Key_Delete);
    }
    EXPECT_EQ(deletes, 1);
}

TEST_F(HeldKeysTest, WhereStampsTellNothingItDoesNotWatch) {
    ASSERT_NE(QGuiApplication::platformName(), QStringLiteral("xcb"));
    qApp->removeEventFilter(&held);
    held.watchApplication();
    for (int i = 0; i < 3; ++i) {
        pressShortcut(Key::d, 1000);
        release(Key::d, 1000);
    }
    EXPECT_EQ(timesOnce, 3);
}

} // namespace
} // namespace kestrel
