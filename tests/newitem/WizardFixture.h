// SPDX-License-Identifier: MIT
#pragma once

#include "model/Paths.h"
#include "model/ProjectItem.h"
#include "newitem/AddNewItemController.h"
#include "newitem/CreateNewFileController.h"
#include "newitem/CreateNewItemAtPathController.h"
#include "newitem/CreateNewItemController.h"
#include "newitem/CreateNewItemPageController.h"
#include "newitem/CreateNewProjectController.h"
#include "support/TemporaryFolder.h"
#include "widgets/Sheet.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QMainWindow>
#include <QTest>

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {

/// A request's sheet on a window, worked by clicks and keys, and what its handler was given.
class WizardFixture : public ::testing::Test {
public:
    ~WizardFixture() override {
        request.reset();
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

protected:
    WizardFixture() {
        window->resize(800, 500);
        window->show();
    }

    void askForFile() { ask(std::make_unique<CreateNewFileController>(folder.path().string())); }

    void askForProject() {
        ask(std::make_unique<CreateNewProjectController>(folder.path().string() + "/Kestrel/"));
    }

    void ask(std::unique_ptr<NewItemController> newRequest) {
        request = std::move(newRequest);
        request->prompt(window.get(), handler());
        ASSERT_NE(sheet(), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(sheet()));
    }

    NewItemController::CompletionHandler handler() {
        return [this](std::shared_ptr<ProjectItem> item, std::optional<ErrorValue> error) {
            ++calls;
            given = std::move(item);
            EXPECT_FALSE(error.has_value());
        };
    }

    Sheet* sheet() const { return request->windowController(); }
    AddNewItemController* wizard() const { return request->newItemController(); }
    CreateNewItemPageController* pages() const { return wizard()->pageController(); }
    QListView* grid() const { return pages()->createNewItemController()->collectionView(); }
    CreateNewItemAtPathController* namePage() const {
        return pages()->createNewItemPathController();
    }
    QLineEdit* name() const { return namePage()->fileNameTextField(); }
    QLineEdit* location() const { return namePage()->filePathTextField(); }
    QString note() const { return namePage()->existingItemLabel()->text(); }
    int page() const { return pages()->selectedIndex(); }

    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    void clickNext() const { click(wizard()->nextButton()); }
    void clickBack() const { click(wizard()->backButton()); }
    void clickCancel() const { click(wizard()->cancelButton()); }

    /// A click on the cell of the kind with this number.
    void clickCell(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        const QRect cell = grid()->visualRect(grid()->model()->index(row, 0));
        QTest::mouseClick(grid()->viewport(), Qt::LeftButton, modifiers, cell.center());
    }

    /// A key for whatever has the focus in the sheet.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QWidget* focused = sheet()->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : sheet(), key, modifiers);
    }

    /// Types into whatever has the focus in the sheet.
    void type(const char* text) const {
        for (const QChar letter : QString::fromUtf8(text)) {
            const Qt::Key key =
                letter.unicode() < 0x80 ? Qt::Key(letter.toUpper().unicode()) : Qt::Key_unknown;
            QTest::sendKeyEvent(QTest::Click, sheet()->focusWidget(), key, QString(letter),
                                Qt::NoModifier);
        }
    }

    /// The numbers of the cells that show a check mark.
    std::vector<int> checkedCells() const {
        std::vector<int> checked;
        for (int row = 0; row < grid()->model()->rowCount(); ++row) {
            if (grid()->model()->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked) {
                checked.push_back(row);
            }
        }
        return checked;
    }

    std::string pathOf(const std::string& below) const {
        return pathText(joined(folder.path(), below));
    }

    TemporaryFolder folder;
    std::unique_ptr<QMainWindow> window = std::make_unique<QMainWindow>();
    std::unique_ptr<NewItemController> request;
    int calls = 0;
    std::shared_ptr<ProjectItem> given;
};

} // namespace kestrel::test
