// SPDX-License-Identifier: MIT
#include "model/ProjectNavigationSettingItem.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationModel.h"
#include "newitem/AddNewItemFromProjectController.h"
#include "widgets/Sheet.h"

#include <gtest/gtest.h>
#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QTest>

#include <memory>
#include <string>

namespace kestrel {
namespace {

using Node = std::shared_ptr<ProjectItem>;

Node node(const char* name, FileType type, const ProjectItems& children = {}) {
    auto made =
        std::make_shared<ProjectNavigationSettingItem>(name, "/nowhere", type, ProjectType::nes);
    made->setItemPathType(type == FileType::group ? FilePathType::noPath : FilePathType::absolute);
    made->subItems() = children;
    for (const Node& child : children) {
        child->setParent(made);
    }
    return made;
}

class PickerOverTheProject : public ::testing::Test {
public:
    ~PickerOverTheProject() override {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

protected:
    PickerOverTheProject() {
        window->resize(800, 600);
        window->show();
        open();
    }

    void open() {
        picker = AddNewItemFromProjectController::openSheet(project, window.get(),
                                                            [this](const ProjectItems& files) {
                                                                ++calls;
                                                                given = files;
                                                            });
        ASSERT_FALSE(picker.isNull());
        ASSERT_TRUE(QTest::qWaitForWindowActive(picker->currentWindow()));
    }

    void clickRow(const Node& item) const {
        const QRect row = view()->visualRect(picker->model()->indexOf(item));
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, row.center());
    }

    void press(Qt::Key key) const { QTest::keyClick(picker->currentWindow()->focusWidget(), key); }

    void filter(const char* text) const {
        picker->filterTextField()->clear();
        QTest::keyClicks(picker->filterTextField(), QString::fromLatin1(text));
    }

    QStringList shownRows() const {
        QStringList names;
        for (QModelIndex at = picker->model()->index(0, 0); at.isValid();
             at = view()->indexBelow(at)) {
            names << at.data().toString();
        }
        return names;
    }

    static QStringList list(std::initializer_list<const char*> names) {
        QStringList result;
        for (const char* name : names) {
            result << QString::fromLatin1(name);
        }
        return result;
    }

    OutlineView* view() const { return picker->outlineView(); }
    bool canAdd() const { return picker->addButton()->isEnabled(); }

    Node main = node("main.asm", FileType::text);
    Node deep = node("sprites.chr", FileType::graphics);
    Node unknown = node("Sprites.txt", FileType::unknown);
    Node inner = node("inner", FileType::group, {deep});
    Node group = node("assets", FileType::group, {inner, unknown});
    Node empty = node("empty", FileType::group);
    Node project = node("demo", FileType::project, {group, empty, main});
    std::unique_ptr<QMainWindow> window = std::make_unique<QMainWindow>();
    QPointer<AddNewItemFromProjectController> picker;
    int calls = 0;
    ProjectItems given;
};

TEST_F(PickerOverTheProject, ShowsTheProjectsOwnNodesExpandedWhole) {
    EXPECT_EQ(shownRows(),
              list({"demo", "assets", "inner", "sprites.chr", "Sprites.txt", "empty", "main.asm"}));
    EXPECT_EQ(picker->allItems(), ProjectItems{project});
    EXPECT_EQ(picker->model()->item(picker->model()->indexOf(deep)), deep);
    EXPECT_EQ(picker->currentWindow()->windowModality(), Qt::WindowModal);
    EXPECT_EQ(picker->parentWindow(), window.get());
    EXPECT_TRUE(picker->selectedFiles().empty());
}

TEST_F(PickerOverTheProject, ItsModelKeepsTheRulesOfAModel) {
    const QAbstractItemModelTester tester(picker->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    filter("sprites");
    picker->setProject(node("other", FileType::project, {node("a", FileType::text)}));
    EXPECT_EQ(shownRows(), list({"other", "a"}));
}

TEST_F(PickerOverTheProject, AddPicksTheSelectedFileAndEndsTheSheet) {
    int response = -1;
    QObject::connect(picker->currentWindow(), &QDialog::finished, window.get(),
                     [&](int code) { response = code; });
    clickRow(deep);
    ASSERT_TRUE(canAdd());
    QTest::mouseClick(picker->addButton(), Qt::LeftButton);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, ProjectItems{deep});
    EXPECT_EQ(response, Sheet::EndResponse);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(picker.isNull());
    EXPECT_EQ(calls, 1);
}

TEST_F(PickerOverTheProject, CancelEndsTheSheetAndPicksNothing) {
    clickRow(main);
    QTest::mouseClick(picker->cancelButton(), Qt::LeftButton);
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(given.empty());
}

TEST_F(PickerOverTheProject, EscapePicksNothing) {
    clickRow(main);
    press(Qt::Key_Escape);
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(given.empty());
}

TEST_F(PickerOverTheProject, TheWindowsCloseButtonPicksNothing) {
    clickRow(main);
    picker->currentWindow()->close();
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(given.empty());
}

TEST_F(PickerOverTheProject, TheParentWindowsDestructionPicksNothing) {
    clickRow(main);
    window.reset();
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(given.empty());
}

TEST_F(PickerOverTheProject, AddIsEnabledOnlyWithAFileSelected) {
    EXPECT_FALSE(canAdd());
    for (const Node& item : {project, group, empty}) {
        clickRow(item);
        EXPECT_FALSE(canAdd()) << item->itemName();
        picker->addNewItem();
        EXPECT_EQ(calls, 0);
    }
    for (const Node& item : {main, deep, unknown}) {
        clickRow(item);
        EXPECT_TRUE(canAdd()) << item->itemName();
    }
}

TEST_F(PickerOverTheProject, ReturnDoesNothingWithoutAFile) {
    clickRow(empty);
    press(Qt::Key_Return);
    EXPECT_EQ(calls, 0);
    clickRow(main);
    press(Qt::Key_Return);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, ProjectItems{main});
}

TEST_F(PickerOverTheProject, ADoubleClickOnAFilePicksIt) {
    clickRow(unknown);
    const QPoint at = view()->visualRect(picker->model()->indexOf(unknown)).center();
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, ProjectItems{unknown});
}

TEST_F(PickerOverTheProject, OneFileIsSelectedAtATime) {
    clickRow(main);
    const QPoint at = view()->visualRect(picker->model()->indexOf(deep)).center();
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::ShiftModifier, at);
    QTest::keyClick(view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(view()->selectionModel()->selectedRows().size(), 1);
}

TEST_F(PickerOverTheProject, HasNoDeleteAndNoContextMenu) {
    clickRow(main);
    view()->setFocus();
    press(Qt::Key_Delete);
    press(Qt::Key_Backspace);
    EXPECT_EQ(project->subItems().size(), 3U);
    press(Qt::Key_Menu);
    const QPoint at(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, view()->viewport()->mapToGlobal(at));
    QApplication::sendEvent(view()->viewport(), &event);
    EXPECT_EQ(picker->menu(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(picker->findChildren<QMenu*>().isEmpty());
}

TEST_F(PickerOverTheProject, TheFilterKeepsMatchingFilesAndTheirContainers) {
    filter("SPRI");
    EXPECT_EQ(shownRows(), list({"demo", "assets", "inner", "sprites.chr", "Sprites.txt"}));
    filter("asm");
    EXPECT_EQ(shownRows(), list({"demo", "main.asm"}));
    filter("inner");
    EXPECT_EQ(shownRows(), list({"demo"}));
    filter("");
    EXPECT_EQ(shownRows().size(), 7);
}

TEST_F(PickerOverTheProject, TheFilterSelectsTheTopmostMatchSoThatReturnAddsIt) {
    EXPECT_EQ(picker->currentWindow()->focusWidget(), picker->filterTextField());
    filter("sprites");
    EXPECT_EQ(picker->selectedItem(), deep);
    press(Qt::Key_Down);
    EXPECT_EQ(picker->selectedItem(), unknown);
    filter("sprites.t");
    EXPECT_EQ(picker->selectedItem(), unknown);
    press(Qt::Key_Return);
    EXPECT_EQ(given, ProjectItems{unknown});
}

TEST_F(PickerOverTheProject, AFilterThatNothingMatchesLeavesNothingToAdd) {
    clickRow(main);
    filter("nowhere to be found");
    EXPECT_EQ(picker->selectedItem(), nullptr);
    EXPECT_FALSE(canAdd());
    press(Qt::Key_Return);
    EXPECT_EQ(calls, 0);
}

TEST_F(PickerOverTheProject, TheFilterOpensCollapsedGroups) {
    view()->collapseAll();
    EXPECT_EQ(shownRows(), list({"demo"}));
    filter("sprites.chr");
    EXPECT_EQ(shownRows(), list({"demo", "assets", "inner", "sprites.chr"}));
}

TEST_F(PickerOverTheProject, EachOneIsFresh) {
    filter("asm");
    QTest::mouseClick(picker->cancelButton(), Qt::LeftButton);
    const AddNewItemFromProjectController* former = picker;
    open();
    EXPECT_NE(picker.data(), former);
    EXPECT_TRUE(picker->filterTextField()->text().isEmpty());
    EXPECT_FALSE(canAdd());
}

TEST_F(PickerOverTheProject, WhileASheetIsOpenASecondIsNotShown) {
    int others = 0;
    const auto count = [&](const ProjectItems& files) {
        ++others;
        EXPECT_TRUE(files.empty());
    };
    EXPECT_EQ(AddNewItemFromProjectController::openSheet(project, window.get(), count), nullptr);
    EXPECT_EQ(AddNewItemFromProjectController::openSheet(project, nullptr, count), nullptr);
    EXPECT_EQ(others, 2);
    EXPECT_EQ(calls, 0);
}

TEST_F(PickerOverTheProject, TheProjectIsUnchanged) {
    const Dictionary before = project->toDictionary();
    filter("s");
    clickRow(deep);
    QTest::mouseClick(picker->addButton(), Qt::LeftButton);
    EXPECT_EQ(project->toDictionary(), before);
    EXPECT_EQ(deep->parent(), inner);
}

TEST_F(PickerOverTheProject, TheTabKeyGoesThroughTheControlsInReadingOrder) {
    clickRow(main);
    picker->filterTextField()->setFocus();
    QStringList visited;
    for (int i = 0; i < 5; ++i) {
        const QWidget* control = picker->currentWindow()->focusWidget();
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
        visited << control->objectName();
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(visited, list({"filterTextField", "outlineView", "cancelButton", "addButton",
                             "filterTextField"}));
}

TEST_F(PickerOverTheProject, AFocusedButtonGetsReturnAndEnter) {
    const auto tabTo = [this](const QWidget* widget) {
        for (int i = 0; i < 10 && picker->currentWindow()->focusWidget() != widget; ++i) {
            press(Qt::Key_Tab);
        }
        ASSERT_EQ(picker->currentWindow()->focusWidget(), widget);
    };
    int expected = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        filter("sprites.chr");
        ASSERT_TRUE(canAdd());
        tabTo(picker->cancelButton());
        press(key);
        EXPECT_EQ(calls, ++expected);
        EXPECT_TRUE(given.empty());
        open();
        filter("sprites.chr");
        tabTo(picker->addButton());
        press(key);
        EXPECT_EQ(calls, ++expected);
        EXPECT_EQ(given, ProjectItems{deep});
        open();
    }
}

TEST_F(PickerOverTheProject, ElsewhereReturnAndEnterAdd) {
    int expected = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        for (const bool inTheField : {true, false}) {
            filter("sprites.chr");
            picker->cancelButton()->setFocus();
            if (inTheField) {
                picker->filterTextField()->setFocus();
            } else {
                view()->setFocus();
            }
            press(key);
            EXPECT_EQ(calls, ++expected);
            EXPECT_EQ(given, ProjectItems{deep});
            open();
        }
    }
}

TEST(AddNewItemFromProjectController, WithoutASheetItOnlyPicks) {
    AddNewItemFromProjectController picker;
    const Node file = node("a", FileType::text);
    picker.setProject(node("demo", FileType::project, {file}));
    picker.addNewItem();
    EXPECT_TRUE(picker.selectedFiles().empty());
    EXPECT_TRUE(picker.select(file));
    picker.addNewItem();
    EXPECT_EQ(picker.selectedFiles(), ProjectItems{file});
    picker.cancel();
    EXPECT_EQ(picker.selectedFiles(), ProjectItems{file});
}

} // namespace
} // namespace kestrel
