// SPDX-License-Identifier: MIT
#include "widgets/FilePanel.h"

#include "support/TemporaryFolder.h"
#include "widgets/Sheet.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

namespace kestrel::test {
namespace {

class FilePanelSheet : public testing::Test {
protected:
    ~FilePanelSheet() override {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void open() {
        window->show();
        openFilePanel(window.get(), QStringLiteral("Select path"), folder.path(),
                      [this](const std::optional<std::filesystem::path>& file) {
                          ++calls;
                          chosen = file;
                      });
        panel = window->findChild<QFileDialog*>();
        ASSERT_NE(panel, nullptr);
    }

    TemporaryHome home;
    TemporaryFolder folder;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPointer<QFileDialog> panel;
    int calls = 0;
    std::optional<std::filesystem::path> chosen;
};

TEST_F(FilePanelSheet, IsAWindowModalSheetThatAsksForOneExistingFileInTheFolder) {
    open();
    EXPECT_EQ(panel->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(Sheet::isOpenOn(window.get()));
    EXPECT_EQ(panel->fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(panel->labelText(QFileDialog::Accept), QStringLiteral("Select path"));
    EXPECT_EQ(panel->directory().path().toStdString(), folder.path());
    EXPECT_EQ(calls, 0);
}

TEST_F(FilePanelSheet, GivesTheChosenFileOnce) {
    const auto file = folder.write("a b.asm", "");
    open();
    auto* name = panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(name, nullptr);
    name->setText(QStringLiteral("a b.asm"));
    auto* buttons = panel->findChild<QDialogButtonBox*>();
    ASSERT_NE(buttons, nullptr);
    QTest::mouseClick(buttons->button(QDialogButtonBox::Open), Qt::LeftButton);
    EXPECT_EQ(chosen, file);
    EXPECT_EQ(calls, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(panel.isNull());
    EXPECT_EQ(calls, 1);
}

TEST_F(FilePanelSheet, GivesNothingOnceWhenItIsCancelled) {
    open();
    QTest::keyClick(panel, Qt::Key_Escape);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(chosen.has_value());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(panel.isNull());
    EXPECT_EQ(calls, 1);
}

TEST_F(FilePanelSheet, GivesNothingOnceWhenItsWindowGoes) {
    open();
    window.reset();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(chosen.has_value());
}

} // namespace
} // namespace kestrel::test
