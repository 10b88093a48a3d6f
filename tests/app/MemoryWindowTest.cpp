// SPDX-License-Identifier: MIT
#include "app/WindowFixture.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/TextEditorController.h"
#include "editors/CommonEditorControllers.h"
#include "facts/ProgramKnowledge.h"
#include "memory/SampleProgram.h"
#include "model/Fingerprint.h"

#include <gtest/gtest.h>
#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
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

    static QString note() {
        return memoryWindows().at(0)->findChild<QLabel*>(QStringLiteral("memoryNote"))->text();
    }

    static bool waitForNote(const char* text) {
        const bool came = QTest::qWaitFor([&] { return note() == QLatin1String(text); }, 30000);
        EXPECT_EQ(note().toStdString(), text);
        return came;
    }

    /// As after a build of the project from the main file as it is now.
    void know(const std::string& project) const {
        ProgramFacts facts = test::sampleProgram();
        const std::string content = test::contentOf(folder(project) / "main.asm");
        const Fingerprint fingerprint = fingerprintOf(content);
        facts.files.at(0).path = (folder(project) / "tmp/main.asm").string();
        facts.files.at(0).size = fingerprint.size;
        facts.files.at(0).hash = fingerprint.hash;
        controller->knowledge().set(folder(project) / "output/Game.nes",
                                    std::make_shared<const ProgramFacts>(std::move(facts)));
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

TEST_F(MemoryWindow, SaysWhenTheSourceOnTheScreenOrOnTheDiskIsNewer) {
    constexpr const char* Older =
        "From before the changes in main.asm: build to see the new numbers.";
    registerProject("Game");
    start();
    action("memoryAction")->trigger();
    know("Game");
    ASSERT_TRUE(waitForNote(""));
    tree().select(tree().allItems().at(0)->subItems().at(0));
    auto* code = editor().commonController()->textEditor->codeEditor.data();
    code->insertPlainText(QStringLiteral("; edited\n"));
    EXPECT_EQ(note(), QLatin1String(Older));
    code->undo();
    EXPECT_EQ(note(), QString());
    code->insertPlainText(QStringLiteral("; edited\n"));
    action("saveAction")->trigger();
    ASSERT_TRUE(waitForNote(Older));
    know("Game"); // a build
    ASSERT_TRUE(waitForNote(""));
    // Another program changes the file, and the window is gone to.
    home.write("Kestrel/Game/main.asm", "; other\n");
    memoryWindows().at(0)->hide();
    action("memoryAction")->trigger();
    ASSERT_TRUE(waitForNote(Older));
    controller->knowledge().clear();
    ASSERT_TRUE(waitForNote(""));
}

TEST_F(MemoryWindow, SaysWhenTheLastBuildCouldNotBeLookedAt) {
    registerProject("Game");
    start();
    action("memoryAction")->trigger();
    controller->knowledge().giveUp("/p/Game.nes");
    EXPECT_EQ(note(), QStringLiteral("Looking at the last build took too long."));
    know("Game");
    ASSERT_TRUE(waitForNote(""));
    controller->knowledge().giveUp(folder("Game") / "output/Game.nes");
    EXPECT_EQ(note(),
              QStringLiteral("Of an earlier build: looking at the last one took too long."));
    EXPECT_EQ(told().size(), 4);
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
