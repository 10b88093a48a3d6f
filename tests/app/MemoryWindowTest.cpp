// SPDX-License-Identifier: MIT
#include "app/WindowFixture.h"
#include "facts/ProgramKnowledge.h"
#include "memory/SampleProgram.h"

#include <gtest/gtest.h>
#include <QAbstractItemView>
#include <QApplication>
#include <QTest>

namespace kestrel {

namespace {

class MemoryWindow : public test::WindowTest {
protected:
    static std::vector<QWidget*> memoryWindows() {
        std::vector<QWidget*> found;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String("memoryWindow")) {
                found.push_back(widget);
            }
        }
        return found;
    }

    /// The sentences of the window's rows.
    static QStringList told() {
        const auto* list = memoryWindows().at(0)->findChild<QAbstractItemView*>();
        QStringList sentences;
        for (int i = 0; i < list->model()->rowCount(); ++i) {
            sentences += list->model()->index(i, 0).data(Qt::AccessibleTextRole).toString();
        }
        return sentences;
    }
};

} // namespace

TEST_F(MemoryWindow, OpensOnceFromTheViewMenuAndByItsKey) {
    start();
    EXPECT_TRUE(menu("viewMenu")->actions().contains(action("memoryAction")));
    EXPECT_EQ(memoryWindows().size(), 0U);
    QTest::keyClick(&window(), Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(memoryWindows().size(), 1U);
    EXPECT_TRUE(memoryWindows().front()->isVisible());
    EXPECT_EQ(memoryWindows().front()->windowTitle(), QStringLiteral("Memory"));
    action("memoryAction")->trigger();
    EXPECT_EQ(memoryWindows().size(), 1U);
}

TEST_F(MemoryWindow, ClosesByTheKeysOfTheConsoleAndComesBack) {
    start();
    for (const QKeySequence& keys :
         {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)}) {
        action("memoryAction")->trigger();
        QWidget* memory = memoryWindows().at(0);
        ASSERT_TRUE(QTest::qWaitForWindowActive(memory));
        EXPECT_TRUE(memory->findChild<QAbstractItemView*>()->hasFocus());
        QTest::keySequence(QApplication::focusWidget(), keys);
        EXPECT_FALSE(memory->isVisible()) << keys.toString().toStdString();
        EXPECT_TRUE(window().isVisible());
    }
}

TEST_F(MemoryWindow, ShowsWhatIsKnownOfTheProgramWheneverThatComes) {
    start();
    action("memoryAction")->trigger();
    EXPECT_EQ(told(), QStringList());
    controller->knowledge().set("/p/Game.nes",
                                std::make_shared<const ProgramFacts>(test::sampleProgram()));
    ASSERT_EQ(told().size(), 4);
    EXPECT_EQ(told()[1],
              QStringLiteral("CHR bank 1: 8,192 of 8,192 bytes used, 0 free, largest gap 0"));
    QTest::keyClick(memoryWindows().at(0), Qt::Key_Escape);
    controller->knowledge().clear();
    action("memoryAction")->trigger();
    EXPECT_EQ(told(), QStringList());
}

TEST_F(MemoryWindow, BuildsByTheKeyOfTheMainWindow) {
    start();
    action("memoryAction")->trigger();
    ASSERT_TRUE(QTest::qWaitForWindowActive(memoryWindows().at(0)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_TRUE(consoleEndsWith("Please select a project to build"));
}

TEST_F(MemoryWindow, DoesNotKeepTheProgramRunning) {
    start();
    action("memoryAction")->trigger();
    EXPECT_FALSE(memoryWindows().at(0)->testAttribute(Qt::WA_QuitOnClose));
}

} // namespace kestrel
