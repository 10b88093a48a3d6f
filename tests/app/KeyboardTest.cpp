// SPDX-License-Identifier: MIT
#include "app/WindowFixture.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/CommonEditorControllers.h"
#include "editors/settings/BuildFileTable.h"
#include "widgets/Sheet.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>

#include <string>
#include <utility>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;

/// The window with a project of several files, worked by keys.
class Keyboard : public WindowTest {
protected:
    void SetUp() override {
        ProjectItems files;
        for (const auto& [name, type] :
             {std::pair{"main.asm", FileType::text}, std::pair{"other.asm", FileType::text},
              std::pair{"third.asm", FileType::text}, std::pair{"tiles.chr", FileType::graphics},
              std::pair{"colours.pal", FileType::palette}}) {
            files.push_back(makeNode(name, type, {}, folder("Game")));
        }
        std::filesystem::create_directories(folder("Game"));
        home.write("Kestrel/Game/main.asm", "main\n");
        home.write("Kestrel/Game/other.asm", "other\n");
        home.write("Kestrel/Game/third.asm", "third\n");
        home.write("Kestrel/Game/tiles.chr", std::string(8192, '\0'));
        home.write("Kestrel/Game/colours.pal", std::string(32, '\0'));
        const auto game = makeNode("Game", FileType::project, files, folder("Game"));
        ASSERT_TRUE(FileProcessor::createFilesForNewProject(game));
        for (const std::size_t source : {0U, 1U, 2U}) {
            NESBuildSettings::add(files[source], game);
        }
        ASSERT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(game));
        start();
    }

    /// Selects a file of the project, so that its pane is shown.
    void open(const std::string& name) const {
        for (const Node& file : tree().allItems().front()->subItems()) {
            if (file->itemName() == name) {
                tree().select(file);
            }
        }
        ASSERT_EQ(tree().selectedItem()->itemName(), name);
    }

    CommonEditorControllers& panes() const { return *editor().commonController(); }
    CodeEditorTextView& code() const { return *panes().textEditor->codeEditor; }

    /// The widget of this name in the pane that is shown.
    QWidget& widget(const char* name) const {
        auto* found = panes().currentWidget()->findChild<QWidget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void focus(const char* name) const {
        widget(name).setFocus(Qt::TabFocusReason);
        ASSERT_EQ(focused(), name);
    }
    QPushButton& saveButton() const { return dynamic_cast<QPushButton&>(widget("saveButton")); }

    /// Waits until the keys go to this window or dialog, which nobody brings to the front here.
    static bool getsKeys(QWidget* which) {
        which->activateWindow();
        return QTest::qWaitFor([which] { return QApplication::activeWindow() == which; });
    }

    /// A key for whatever has the focus.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    /// Presses Tab until the widget of this name has the focus.
    static void tabTo(const std::string& name) {
        for (int i = 0; i < 20 && focused() != name; ++i) {
            press(Qt::Key_Tab);
        }
        ASSERT_EQ(focused(), name);
    }

    static std::string focused() {
        const QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? "nothing" : widget->objectName().toStdString();
    }

    /// What has the focus after each of so many keys.
    static std::vector<std::string> visited(int keys, Qt::Key key,
                                            Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        std::vector<std::string> names;
        for (int i = 0; i < keys; ++i) {
            press(key, modifiers);
            names.push_back(focused());
        }
        return names;
    }
};

TEST_F(Keyboard, NoTabLeavesTheCodeEditor) {
    open("main.asm");
    code().moveCursor(QTextCursor::End);
    for (const auto& [key, modifiers] :
         {std::pair{Qt::Key_Backtab, Qt::KeyboardModifiers(Qt::ShiftModifier)},
          std::pair{Qt::Key_Backtab, Qt::KeyboardModifiers()},
          std::pair{Qt::Key_Backtab, Qt::ShiftModifier | Qt::MetaModifier},
          std::pair{Qt::Key_Backtab, Qt::ShiftModifier | Qt::ControlModifier},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::ShiftModifier)},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::MetaModifier)},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::ControlModifier)}}) {
        code().setFocus();
        press(key, modifiers);
        EXPECT_EQ(focused(), "codeEditor") << key << " " << modifiers.toInt();
        press(Qt::Key_O); // in the tree it would select other.asm
        press(Qt::Key_Delete);
        press(Qt::Key_Backspace);
    }
    EXPECT_EQ(code().toPlainText(), QStringLiteral("main\n"));
    EXPECT_EQ(tree().selectedItem()->itemName(), "main.asm");
    EXPECT_EQ(tree().allItems().front()->subItems().size(), 5U);
}

TEST_F(Keyboard, TabAndShiftTabMoveBetweenTheFieldsOfTheFindBar) {
    open("main.asm");
    code().setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(focused(), "findTerm");
    EXPECT_THAT(visited(5, Qt::Key_Tab),
                ElementsAre("findPreviousButton", "findNextButton", "findMatchCase",
                            "findWholeWords", "findCloseButton"));
    EXPECT_THAT(visited(5, Qt::Key_Backtab, Qt::ShiftModifier),
                ElementsAre("findWholeWords", "findMatchCase", "findNextButton",
                            "findPreviousButton", "findTerm"));
}

TEST_F(Keyboard, F6LeavesTheTextAndComesBackToIt) {
    open("main.asm");
    code().setFocus();
    EXPECT_THAT(visited(2, Qt::Key_F6), ElementsAre("outlineView", "codeEditor"));
}

/// A press of Return or Enter, and of nothing else, on each of these.
const std::pair<Qt::Key, Qt::KeyboardModifiers> ReturnKeys[] = {
    {Qt::Key_Return, Qt::NoModifier}, {Qt::Key_Enter, Qt::KeypadModifier}};

TEST_F(Keyboard, ReturnPressesTheFocusedButtonOfTheFindBar) {
    home.write("Kestrel/Game/main.asm", "a b a b a");
    open("main.asm");
    code().setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("a"));
    const auto place = [this] { return code().textCursor().selectionStart(); };
    ASSERT_EQ(place(), 0);
    for (const auto& [key, modifiers] : ReturnKeys) {
        focus("findTerm");
        press(key, modifiers);
        EXPECT_EQ(place(), 4);
        focus("findPreviousButton");
        press(key, modifiers);
        EXPECT_EQ(place(), 0);
        focus("findNextButton");
        press(key, modifiers);
        EXPECT_EQ(place(), 4) << "once";
        focus("findMatchCase"); // no button that acts: there it is still the bar's own key
        press(key, modifiers);
        EXPECT_EQ(place(), 8);
        press(key, modifiers);
        EXPECT_EQ(place(), 0);
    }
    focus("findCloseButton");
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), "codeEditor");
    EXPECT_FALSE(widget("findBar").isVisible());
    EXPECT_EQ(place(), 0);
    EXPECT_EQ(code().toPlainText(), QStringLiteral("a b a b a"));
}

TEST_F(Keyboard, ReturnPressesTheButtonOfTheGoToLineBar) {
    home.write("Kestrel/Game/main.asm", "1\n2\n3\n");
    open("main.asm");
    for (const auto& [key, modifiers] : ReturnKeys) {
        code().moveCursor(QTextCursor::Start);
        code().setFocus();
        press(Qt::Key_L, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3"));
        press(Qt::Key_Tab);
        ASSERT_EQ(focused(), "goToLineButton");
        press(key, modifiers);
        EXPECT_EQ(code().textCursor().blockNumber(), 2);
        EXPECT_EQ(focused(), "codeEditor");
    }
}

TEST_F(Keyboard, ReturnPressesSaveInEveryPane) {
    for (const char* name : {"main.asm", "tiles.chr", "colours.pal"}) {
        for (const auto& [key, modifiers] : ReturnKeys) {
            open(name);
            const auto file = folder("Game") / name;
            const std::string before = contentOf(file);
            std::filesystem::remove(file);
            saveButton().setFocus();
            press(key, modifiers);
            EXPECT_TRUE(std::filesystem::exists(file)) << name;
            EXPECT_EQ(focused(), "saveButton") << name;
            home.write("Kestrel/Game/" + std::string(name), before);
        }
    }
}

TEST_F(Keyboard, ReturnPressesAToolOfTheTileEditor) {
    open("tiles.chr");
    for (const auto& [key, modifiers] : ReturnKeys) {
        focus("fillAreaActionButton");
        press(key, modifiers);
        EXPECT_TRUE(action("fillAreaAction")->isChecked());
        focus("pencilActionButton");
        press(key, modifiers);
        EXPECT_TRUE(action("pencilAction")->isChecked());
    }
}

TEST_F(Keyboard, ReturnPressesTheFocusedButtonOfTheSettingsAndOfTheirSheets) {
    tree().select(tree().allItems().front());
    auto* const list =
        panes().projectSettings->findChild<BuildFileTable*>(QStringLiteral("codeTableView"));
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->model()->rowCount(), 3);
    list->selectRow(0);
    for (int rows = 2; rows > 0; --rows) {
        focus("subtractCodeEntryButton");
        press(Qt::Key_Return);
        EXPECT_EQ(list->model()->rowCount(), rows);
    }
    for (const auto& [key, modifiers] : ReturnKeys) {
        focus("addCodeEntryButton");
        press(key, modifiers);
        const QPointer<Sheet> sheet = window().findChild<Sheet*>();
        ASSERT_FALSE(sheet.isNull());
        ASSERT_TRUE(getsKeys(sheet));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("other"));
        tabTo("cancelButton");
        press(key, modifiers);
        EXPECT_FALSE(Sheet::isOpenOn(&window()));
        EXPECT_EQ(list->model()->rowCount(), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_TRUE(getsKeys(&window()));
    }
    focus("addCodeEntryButton");
    press(Qt::Key_Return);
    ASSERT_TRUE(getsKeys(window().findChild<Sheet*>()));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("other"));
    tabTo("addButton");
    press(Qt::Key_Return);
    EXPECT_FALSE(Sheet::isOpenOn(&window()));
    EXPECT_EQ(list->model()->rowCount(), 2);
}

TEST_F(Keyboard, ReturnPressesTheFocusedButtonOfAFilePanel) {
    const auto projectFile = layOut("Other");
    for (const auto& [key, modifiers] : ReturnKeys) {
        action("openProjectAction")->trigger();
        const QPointer<QFileDialog> panel = window().findChild<QFileDialog*>();
        ASSERT_FALSE(panel.isNull());
        ASSERT_TRUE(getsKeys(panel));
        panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QString::fromStdString(projectFile.string()));
        const QString folderBefore = panel->directory().absolutePath();
        auto* const up = panel->findChild<QToolButton*>(QStringLiteral("toParentButton"));
        up->setFocus();
        ASSERT_EQ(focused(), "toParentButton");
        press(key, modifiers);
        ASSERT_FALSE(panel.isNull());
        ASSERT_TRUE(panel->isVisible()) << "it took the file";
        EXPECT_NE(panel->directory().absolutePath(), folderBefore);
        panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QString::fromStdString(projectFile.string()));
        panel->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->setFocus();
        press(key, modifiers);
        EXPECT_FALSE(Sheet::isOpenOn(&window()));
        EXPECT_THAT(projects(), ElementsAre("Game"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_TRUE(getsKeys(&window()));
    }
}

TEST_F(Keyboard, ReturnPressesTheButtonOfAnAlert) {
    action("aboutAction")->trigger();
    const QPointer<QMessageBox> box = window().findChild<QMessageBox*>();
    ASSERT_FALSE(box.isNull());
    ASSERT_TRUE(getsKeys(box));
    box->button(QMessageBox::Close)->setFocus();
    press(Qt::Key_Return);
    EXPECT_FALSE(Sheet::isOpenOn(&window()));
}

TEST_F(Keyboard, HeldDownReturnPressesAButtonOnce) {
    open("main.asm");
    int clicks = 0;
    QObject::connect(&saveButton(), &QAbstractButton::clicked, &window(), [&] { ++clicks; });
    saveButton().setFocus();
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QApplication::sendEvent(&saveButton(), &first);
    EXPECT_TRUE(saveButton().isDown()) << "nothing shows that the key is taken";
    for (int i = 0; i < 3; ++i) {
        for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent again(type, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
            QApplication::sendEvent(&saveButton(), &again);
        }
    }
    QKeyEvent last(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QApplication::sendEvent(&saveButton(), &last);
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(saveButton().isDown());
}

TEST_F(Keyboard, HeldDownReturnPressesNoButtonOfADialogAgain) {
    const auto repeat = [](QWidget* widget) {
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"),
                        true);
        QApplication::sendEvent(widget, &again);
    };
    action("aboutAction")->trigger();
    const QPointer<QMessageBox> box = window().findChild<QMessageBox*>();
    ASSERT_FALSE(box.isNull());
    ASSERT_TRUE(getsKeys(box));
    box->button(QMessageBox::Close)->setFocus();
    repeat(box->button(QMessageBox::Close));
    repeat(box); // its default button
    EXPECT_TRUE(Sheet::isOpenOn(&window()));
    press(Qt::Key_Return);
    EXPECT_FALSE(Sheet::isOpenOn(&window()));
}

TEST_F(Keyboard, AClickOnSaveLeavesTheFocusWhereItWas) {
    for (const auto& [name, view] :
         {std::pair{"main.asm", "codeEditor"}, std::pair{"tiles.chr", "pixelEditor"},
          std::pair{"colours.pal", "paletteSelector"}}) {
        open(name);
        const auto file = folder("Game") / name;
        focus(view);
        std::filesystem::remove(file);
        QTest::mouseClick(&saveButton(), Qt::LeftButton);
        EXPECT_TRUE(std::filesystem::exists(file)) << name;
        EXPECT_EQ(focused(), view);
        tree().outlineView()->setFocus();
        QTest::mouseClick(&saveButton(), Qt::LeftButton);
        EXPECT_EQ(focused(), "outlineView") << name;
    }
}

TEST_F(Keyboard, F6GoesFromTheTreeToWhereThePaneIsWorkedIn) {
    for (const auto& [name, place] :
         {std::pair{"main.asm", "codeEditor"}, std::pair{"tiles.chr", "pixelEditor"},
          std::pair{"colours.pal", "paletteSelector"}}) {
        open(name);
        tree().outlineView()->setFocus();
        EXPECT_THAT(visited(1, Qt::Key_F6), ElementsAre(place));
    }
}

TEST_F(Keyboard, TabGoesFromTheTreeToSaveAndOnIntoThePane) {
    for (const auto& [name, next] :
         {std::pair{"main.asm", "codeEditor"}, std::pair{"tiles.chr", "pencilActionButton"},
          std::pair{"colours.pal", "paletteSelector"}}) {
        open(name);
        tree().outlineView()->setFocus();
        EXPECT_THAT(visited(2, Qt::Key_Tab), ElementsAre("saveButton", next));
        focus("saveButton");
        EXPECT_THAT(visited(1, Qt::Key_Backtab, Qt::ShiftModifier), ElementsAre("outlineView"));
    }
}

} // namespace
} // namespace kestrel
