// SPDX-License-Identifier: MIT
#include "app/WindowFixture.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/tree/Menu.h"
#include "widgets/EditorPane.h"
#include "widgets/EditTarget.h"
#include "widgets/Sheet.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTextBrowser>

#include <map>
#include <set>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A pane that remembers what it was asked for.
class RecordingPane final : public QWidget, public EditorPane, public EditTarget {
public:
    RecordingPane()
        : field(new QLineEdit(this))
        , canvas(new QWidget(this))
        , command(tr("Flip"), this)
        , zoom(tr("Zoom"), this) {
        canvas->setFocusPolicy(Qt::StrongFocus);
        canvas->setGeometry(0, 40, 40, 40);
        command.setShortcut(Qt::CTRL | Qt::Key_M);
        connect(&command, &QAction::triggered, [this] { ++commands; });
    }

    void savePane() override { ++saves; }
    QList<QAction*> editActions() const override { return {const_cast<QAction*>(&command)}; }
    QList<QAction*> viewActions() const override { return {const_cast<QAction*>(&zoom)}; }
    bool canPerform(EditCommand which) const override { return which != EditCommand::cut; }
    void perform(EditCommand which) override { performed.push_back(which); }

    QLineEdit* field;
    QWidget* canvas;
    QAction command;
    QAction zoom;
    int saves = 0;
    int commands = 0;
    std::vector<EditCommand> performed;
};

class MainWindow : public WindowTest {
protected:
    RecordingPane* addPane() const {
        auto* pane = new RecordingPane;
        panes().addWidget(pane);
        return pane;
    }

    CommonEditorControllers& panes() const { return *editor().commonController(); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused != nullptr ? focused : &window(), key, modifiers);
    }

    /// The texts of a menu's entries, without marks for keys; "-" for a separator.
    std::vector<std::string> entries(const char* name) const {
        std::vector<std::string> texts;
        for (const QAction* entry : menu(name)->actions()) {
            texts.push_back(
                entry->isSeparator() ? "-" : entry->text().remove(QLatin1Char('&')).toStdString());
        }
        return texts;
    }
};

TEST_F(MainWindow, AFirstStartShowsAnEmptyTreeAndTheMessage) {
    start();
    EXPECT_TRUE(projects().empty());
    EXPECT_EQ(panes().emptyController->message(),
              QStringLiteral("Please select a file or project"));
    EXPECT_EQ(panes().currentWidget(), panes().emptyController);
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Kestrel"));
}

TEST_F(MainWindow, IsNamedAfterTheProjectInWhichTheSelectionLies) {
    registerProject("Ga[*]me");
    start();
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Ga[*][*]me - Kestrel"));
    QTest::keyClick(tree().outlineView(), Qt::Key_Right);
    QTest::keyClick(tree().outlineView(), Qt::Key_Down);
    ASSERT_EQ(tree().selectedItem()->itemName(), "main.asm");
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Ga[*][*]me - Kestrel"));
    QTest::keyClick(tree().outlineView(), Qt::Key_Up);
    QTest::keyClick(tree().outlineView(), Qt::Key_Delete);
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Kestrel"));
}

TEST_F(MainWindow, TheMenuBarHoldsEveryEntryOfItsTableInOrder) {
    start();
    EXPECT_THAT(entries("fileMenu"),
                ElementsAre("New Project...", "Open Project...", "-", "New File...", "New Group",
                            "Import File...", "-", "Save", "-", "Delete", "-", "Quit"));
    EXPECT_THAT(entries("editMenu"), ElementsAre("Undo", "Redo", "Bring Back Unsaved Changes", "-",
                                                 "Cut", "Copy", "Paste", "-", "Select All"));
    EXPECT_THAT(entries("buildMenu"), ElementsAre("Build", "Run", "Save and Build", "Stop", "-",
                                                  "Next Problem", "Previous Problem"));
    EXPECT_THAT(entries("viewMenu"), ElementsAre("Console", "Memory", "Next Part of the Window"));
    EXPECT_THAT(entries("helpMenu"), ElementsAre("User Guide", "-", "About Kestrel"));
    EXPECT_EQ(menu("fileMenu")->actions().front(),
              tree().menu()->action(ProjectNavigationMenuClickedOptions::newProject));
}

TEST_F(MainWindow, WhatNeedsASelectedRowIsDisabledWithoutOne) {
    start();
    for (const char* name :
         {"newFileAction", "newGroupAction", "importFileAction", "deleteAction"}) {
        EXPECT_FALSE(action(name)->isEnabled()) << name;
    }
    EXPECT_TRUE(action("newProjectAction")->isEnabled());
    press(Qt::Key_N);
    EXPECT_EQ(window().findChild<Sheet*>(), nullptr);
}

TEST_F(MainWindow, TheShortcutOfNewProjectOpensTheWizardOnTheWindow) {
    start();
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    const auto* sheet = window().findChild<Sheet*>();
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(sheet->parentWidget(), &window());
}

TEST_F(MainWindow, DeleteActsOnlyWhileTheTreeHasTheFocus) {
    registerProject("Game");
    start();
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    pane->canvas->setFocus();
    press(Qt::Key_Delete, Qt::NoModifier);
    EXPECT_THAT(projects(), ElementsAre("Game"));
    tree().outlineView()->setFocus();
    press(Qt::Key_Delete, Qt::NoModifier);
    EXPECT_THAT(projects(), IsEmpty());
}

TEST_F(MainWindow, UndoInTheTreeBringsBackWhatWasDeleted) {
    registerProject("Game");
    start();
    tree().outlineView()->setFocus();
    press(Qt::Key_Delete, Qt::NoModifier);
    ASSERT_THAT(projects(), IsEmpty());
    press(Qt::Key_Z);
    EXPECT_THAT(projects(), ElementsAre("Game"));
    EXPECT_THAT(names(FileProcessor::loadRecentlyConfiguredProjects()), ElementsAre("Game"));
}

TEST_F(MainWindow, EditCommandsGoToTheFocusedLineEdit) {
    start();
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    pane->field->setText(QStringLiteral("abc"));
    pane->field->setFocus();
    action("selectAllAction")->trigger();
    action("copyAction")->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("abc"));
    action("cutAction")->trigger();
    EXPECT_EQ(pane->field->text(), QString());
    action("undoAction")->trigger();
    EXPECT_EQ(pane->field->text(), QStringLiteral("abc"));
    action("redoAction")->trigger();
    action("pasteAction")->trigger();
    EXPECT_EQ(pane->field->text(), QStringLiteral("abc"));
    EXPECT_THAT(pane->performed, IsEmpty());
}

TEST_F(MainWindow, EditCommandsGoToTheNearestTargetAroundAnyOtherFocusedWidget) {
    start();
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    pane->canvas->setFocus();
    press(Qt::Key_Z);
    press(Qt::Key_C);
    press(Qt::Key_X); // cannot act there
    press(Qt::Key_A);
    EXPECT_THAT(pane->performed,
                ElementsAre(EditCommand::undo, EditCommand::copy, EditCommand::selectAll));
}

TEST_F(MainWindow, TheOpenEditMenuGreysWhatCannotActAndKeysWorkAgainAfterwards) {
    start();
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    pane->canvas->setFocus();
    Q_EMIT menu("editMenu")->aboutToShow();
    EXPECT_FALSE(action("cutAction")->isEnabled());
    EXPECT_TRUE(action("copyAction")->isEnabled());
    Q_EMIT menu("editMenu")->aboutToHide();
    EXPECT_TRUE(action("cutAction")->isEnabled());
}

TEST_F(MainWindow, EditCommandsActOnWhatHadTheFocusBeforeTheMenuBarTookIt) {
    start();
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    pane->canvas->setFocus();
    window().menuBar()->setFocus(Qt::MenuBarFocusReason);
    action("copyAction")->trigger();
    EXPECT_THAT(pane->performed, ElementsAre(EditCommand::copy));
}

TEST_F(MainWindow, SaveGoesToTheVisiblePaneAtOnceAndNowhereWithTheMessagePane) {
    start();
    RecordingPane* pane = addPane();
    EXPECT_FALSE(action("saveAction")->isEnabled());
    press(Qt::Key_S);
    EXPECT_EQ(pane->saves, 0);
    panes().setCurrentWidget(pane);
    press(Qt::Key_S);
    EXPECT_EQ(pane->saves, 1);
    panes().setCurrentWidget(panes().emptyController);
    press(Qt::Key_S);
    EXPECT_EQ(pane->saves, 1);
}

TEST_F(MainWindow, APanesCommandsStandInTheMenusAndActByKeyOnlyWhileItIsShown) {
    start();
    const auto edit = entries("editMenu");
    const auto view = entries("viewMenu");
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    EXPECT_EQ(entries("editMenu").back(), "Flip");
    EXPECT_EQ(entries("viewMenu").back(), "Zoom");
    press(Qt::Key_M);
    EXPECT_EQ(pane->commands, 1);
    panes().setCurrentWidget(panes().emptyController);
    press(Qt::Key_M);
    EXPECT_EQ(pane->commands, 1);
    EXPECT_EQ(entries("editMenu"), edit);
    EXPECT_EQ(entries("viewMenu"), view);
}

TEST_F(MainWindow, F6MovesBetweenTheTreeAndThePane) {
    start();
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    tree().outlineView()->setFocus();
    press(Qt::Key_F6, Qt::NoModifier);
    EXPECT_TRUE(pane->isAncestorOf(QApplication::focusWidget()));
    press(Qt::Key_F6, Qt::NoModifier);
    EXPECT_EQ(QApplication::focusWidget(), tree().outlineView());
}

TEST_F(MainWindow, F6GoesToWhereAPaneWantsTheFocus) {
    start();
    RecordingPane* pane = addPane();
    panes().setCurrentWidget(pane);
    pane->setFocusProxy(pane->canvas); // the field is the first for the Tab key
    tree().outlineView()->setFocus();
    press(Qt::Key_F6, Qt::NoModifier);
    EXPECT_EQ(QApplication::focusWidget(), pane->canvas);
}

TEST_F(MainWindow, NoTwoCommandsShareAShortcutWhicheverPaneIsShown) {
    start();
    for (int i = 0; i < panes().count(); ++i) {
        panes().setCurrentIndex(i);
        std::map<QKeySequence, QString> taken;
        std::set<const QAction*> seen;
        for (const QMenu* each : window().findChildren<QMenu*>()) {
            for (const QAction* entry : each->actions()) {
                if (!seen.insert(entry).second || entry->isSeparator()) {
                    continue;
                }
                for (const QKeySequence& key : entry->shortcuts()) {
                    EXPECT_TRUE(taken.emplace(key, entry->text()).second)
                        << key.toString().toStdString() << ": " << entry->text().toStdString()
                        << " and " << taken[key].toStdString();
                }
            }
        }
        EXPECT_GT(taken.size(), 10U);
    }
}

TEST_F(MainWindow, CodeAndConsoleHaveCharactersOfOneWidth) {
    start();
    controller->console(QStringLiteral("text"));
    const QPlainTextEdit* views[] = {controller->consoleOutputController()->console(),
                                     panes().textEditor->findChild<QPlainTextEdit*>()};
    for (const QPlainTextEdit* view : views) {
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->fontMetrics().horizontalAdvance(QLatin1Char('i')),
                  view->fontMetrics().horizontalAdvance(QLatin1Char('W')));
    }
}

TEST_F(MainWindow, ViewConsoleShowsTheConsoleWithoutWritingToIt) {
    start();
    action("consoleAction")->trigger();
    ASSERT_NE(controller->windowController(), nullptr);
    EXPECT_TRUE(controller->windowController()->isVisible());
    EXPECT_EQ(consoleText(), "");
}

TEST_F(MainWindow, OpenProjectAddsTheProjectChosen) {
    start();
    const auto game = layOut("Game");
    action("openProjectAction")->trigger();
    auto* panel = window().findChild<QFileDialog*>();
    ASSERT_NE(panel, nullptr);
    Q_EMIT panel->fileSelected(QString::fromStdString(game.string()));
    EXPECT_THAT(projects(), ElementsAre("Game"));
    EXPECT_EQ(window().findChild<QMessageBox*>(), nullptr);
}

TEST_F(MainWindow, OpenProjectSaysWhenTheFileChosenIsNoProject) {
    start();
    action("openProjectAction")->trigger();
    auto* panel = window().findChild<QFileDialog*>();
    ASSERT_NE(panel, nullptr);
    Q_EMIT panel->fileSelected(QString::fromStdString(home.write("<b>.kst", "{}").string()));
    EXPECT_THAT(consoleText(), testing::HasSubstr("<b>.kst” could not be opened as a project."));
    EXPECT_EQ(window().findChild<QMessageBox*>(), nullptr) << "nothing to be clicked away";
    EXPECT_TRUE(projects().empty());
}

TEST_F(MainWindow, TheUserGuideOpensInOneWindowAndHasText) {
    start();
    const auto guides = [] {
        std::vector<QWidget*> found;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String("userGuideWindow")) {
                found.push_back(widget);
            }
        }
        return found;
    };
    action("userGuideAction")->trigger();
    action("userGuideAction")->trigger();
    ASSERT_EQ(guides().size(), 1U);
    EXPECT_TRUE(guides().front()->isVisible());
    EXPECT_TRUE(guides().front()->findChild<QTextBrowser*>()->toPlainText().contains(
        QStringLiteral("Build and run")));
}

TEST_F(MainWindow, AboutTellsTheVersionInASheet) {
    start();
    action("aboutAction")->trigger();
    const auto* box = window().findChild<QMessageBox*>(QStringLiteral("aboutBox"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowModality(), Qt::WindowModal);
}

TEST_F(MainWindow, ClosingItAsksForTheEndOfTheProgramConsoleIncluded) {
    start();
    controller->console(QStringLiteral("text"));
    int closed = 0;
    QObject::connect(controller.get(), &MainWindowController::windowClosed,
                     [&closed] { ++closed; });
    window().close();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(controller->windowController()->isVisible());
}

/// Whether a person can reach this widget by mouse or keyboard, and it is not an inner part of
/// another control.
bool isControl(const QWidget& widget) {
    for (const QWidget* above = widget.parentWidget(); above != nullptr;
         above = above->parentWidget()) {
        if (qobject_cast<const QComboBox*>(above) != nullptr ||
            qobject_cast<const QAbstractSpinBox*>(above) != nullptr ||
            qobject_cast<const QLineEdit*>(above) != nullptr ||
            qobject_cast<const QMenuBar*>(above) != nullptr ||
            qobject_cast<const QFileDialog*>(above) != nullptr ||
            qobject_cast<const QMessageBox*>(above) != nullptr) {
            return false;
        }
        // Qt's menu of the tools for which a narrow tool row has no room.
        if (above->objectName() == QLatin1String("qt_toolbar_ext_button")) {
            return false;
        }
        const auto* area = qobject_cast<const QAbstractScrollArea*>(above);
        if (area != nullptr &&
            (area->viewport() == &widget || widget.objectName().startsWith(QLatin1String("qt_")))) {
            return false;
        }
    }
    return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QMenu*>(&widget) != nullptr ||
           qobject_cast<const QMenuBar*>(&widget) != nullptr ||
           qobject_cast<const QAbstractButton*>(&widget) != nullptr || widget.isWindow();
}

void expectNamed(const QWidget& root) {
    QList<const QWidget*> widgets = root.findChildren<const QWidget*>();
    widgets.append(&root);
    int controls = 0;
    for (const QWidget* widget : widgets) {
        if (!isControl(*widget)) {
            continue;
        }
        ++controls;
        const std::string what =
            std::string(widget->metaObject()->className()) + " \"" +
            widget->objectName().toStdString() + "\" in " +
            (widget->parentWidget() != nullptr ? widget->parentWidget()->objectName().toStdString()
                                               : "no parent");
        EXPECT_FALSE(widget->objectName().isEmpty()) << what << " has no object name";
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        // A button's or a label's text is its name.
        const bool named = !widget->accessibleName().isEmpty() ||
                           (button != nullptr && !button->text().isEmpty()) ||
                           qobject_cast<const QLabel*>(widget) != nullptr;
        EXPECT_TRUE(named) << what << " has no accessible name";
    }
    EXPECT_GT(controls, 0);
    for (const QAction* each : root.findChildren<const QAction*>()) {
        if (!each->isSeparator() && !each->text().isEmpty() && each->menu() == nullptr &&
            !each->objectName().startsWith(QLatin1String("_q_"))) {
            EXPECT_FALSE(each->objectName().isEmpty()) << each->text().toStdString();
        }
    }
}

TEST_F(MainWindow, EveryControlHasAnObjectNameAndAnAccessibleName) {
    registerProject("Game");
    start();
    controller->console(QStringLiteral("text"));
    expectNamed(*controller->windowController());
    window().activateWindow();
    expectNamed(window());
    action("newProjectAction")->trigger();
    const auto* sheet = window().findChild<Sheet*>();
    ASSERT_NE(sheet, nullptr);
    expectNamed(*sheet);
}

} // namespace
} // namespace kestrel
