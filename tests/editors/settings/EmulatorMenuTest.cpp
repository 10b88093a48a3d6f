// SPDX-License-Identifier: MIT
#include "editors/settings/EmulatorMenu.h"

#include "editors/settings/ProjectSettingsFixture.h"
#include "support/ApplicationFolders.h"
#include "widgets/PathField.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QTimer>

namespace kestrel::test {
namespace {

using testing::ElementsAre;

constexpr const char* OtherProgram = "Choose Another Program...";

class EmulatorMenuTest : public ProjectSettingsTest {
protected:
    EmulatorField& field() const { return *pane().emulatorField(); }

    /// Opens the menu with its button and does this while it is open.
    void inMenu(const std::function<void(EmulatorMenu&)>& action) const {
        EmulatorMenu& menu = *field().menu();
        bool opened = false;
        QTimer::singleShot(0, &menu, [&] {
            opened = menu.isVisible();
            action(menu);
            menu.close();
        });
        press(*field().installedButton());
        EXPECT_TRUE(opened);
    }
    static void press(QWidget& button) { QTest::mouseClick(&button, Qt::LeftButton); }
    using ProjectSettingsTest::press;

    static std::vector<std::string> texts(const EmulatorMenu& menu) {
        std::vector<std::string> result;
        for (const QAction* entry : menu.actions()) {
            result.push_back(entry->isSeparator() ? "-" : entry->text().toStdString());
        }
        return result;
    }
    std::vector<std::string> offered() const {
        std::vector<std::string> result;
        inMenu([&](const EmulatorMenu& menu) { result = texts(menu); });
        return result;
    }

    static void clickEntry(EmulatorMenu& menu, const std::string& text) {
        for (QAction* entry : menu.actions()) {
            if (entry->text().toStdString() == text) {
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(entry).center());
                return;
            }
        }
        ADD_FAILURE() << "there is no entry " << text;
    }
    void choose(const std::string& text) const {
        inMenu([&](EmulatorMenu& menu) { clickEntry(menu, text); });
    }

    QFileDialog* panel() const { return window->findChild<QFileDialog*>(); }
    static void confirm(QFileDialog* panel, const std::filesystem::path& file) {
        panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QString::fromStdString(file.string()));
        press(*panel->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::string settingsText() const {
        return content("Kestrel/Demo/.project/Demo-BuildSettings.cfg");
    }
    std::string shownPath() const { return field().textField()->text().toStdString(); }

    ApplicationFolders folders;
};

TEST_F(EmulatorMenuTest, ListsTheInstalledEmulatorsByNameAndIcon) {
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const auto icon = folders.path() / "icon.png";
    ASSERT_TRUE(picture.save(QString::fromStdString(icon.string())));
    folders.emulator("system/applications/two.desktop", "Second", "Icon=" + icon.string() + "\n");
    folders.emulator("user/applications/one.desktop", "First");
    inMenu([](const EmulatorMenu& menu) {
        ASSERT_THAT(texts(menu), ElementsAre("First", "Second", "-", OtherProgram));
        EXPECT_TRUE(menu.actions()[0]->isEnabled());
        EXPECT_TRUE(menu.actions()[0]->icon().isNull());
        EXPECT_TRUE(menu.actions()[1]->isIconVisibleInMenu());
        EXPECT_EQ(menu.actions()[1]->icon().pixmap(16, 16).toImage().pixelColor(8, 8),
                  QColor(Qt::red));
    });
}

TEST_F(EmulatorMenuTest, WithoutAnInstalledEmulatorItSaysSoAndOffersThePanel) {
    inMenu([](EmulatorMenu& menu) {
        ASSERT_THAT(texts(menu),
                    ElementsAre("No emulator for the NES is installed", "-", OtherProgram));
        EXPECT_FALSE(menu.actions()[0]->isEnabled());
        EXPECT_TRUE(menu.actions()[2]->isEnabled());
    });
    choose(OtherProgram);
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(panel()->windowTitle(), QStringLiteral("Emulator Path"));
    const auto program = folders.program("emulator");
    confirm(panel(), program);
    EXPECT_EQ(NESBuildSettings(demo).pathToEmulator(), program);
}

TEST_F(EmulatorMenuTest, ChoosingAnEntryIsChoosingItsFileInThePanel) {
    const auto chosen = folders.emulator("system/applications/emu.desktop", "Emulator");
    const std::string before = settingsText();
    press(field().chooseButton());
    confirm(panel(), chosen);
    const std::string byPanel = settingsText();
    ASSERT_NE(byPanel, before);

    pane().buildSettings()->pathToEmulator().reset();
    pane().buildSettings()->saveBuildSettings();
    restart();
    ASSERT_EQ(settingsText(), before);
    ASSERT_EQ(field().problemLabel()->text(),
              QStringLiteral("No emulator is set for this project yet."));
    choose("Emulator");
    EXPECT_EQ(settingsText(), byPanel);
    EXPECT_EQ(shownPath(), chosen);
    EXPECT_EQ(field().problemLabel()->text(), QString());
    EXPECT_EQ(pane().buildSettings()->pathToEmulator(), chosen);
    restart();
    EXPECT_EQ(shownPath(), chosen);
}

TEST_F(EmulatorMenuTest, ClosingTheMenuChangesNothing) {
    folders.emulator("system/applications/emu.desktop", "Emulator");
    const std::string before = settingsText();
    inMenu([](EmulatorMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    EXPECT_EQ(settingsText(), before);
    EXPECT_EQ(shownPath(), "");
}

TEST_F(EmulatorMenuTest, IsReadAfreshEachTimeItOpens) {
    const auto first = folders.emulator("system/applications/one.desktop", "First");
    EXPECT_THAT(texts(*field().menu()), testing::IsEmpty()) << "before anybody asked";
    EXPECT_THAT(offered(), ElementsAre("First", "-", OtherProgram));
    folders.emulator("system/applications/two.desktop", "Second");
    std::filesystem::remove(first);
    EXPECT_THAT(offered(), ElementsAre("Second", "-", OtherProgram));
}

TEST_F(EmulatorMenuTest, IsWorkedByKeysAlone) {
    folders.emulator("system/applications/one.desktop", "First");
    const auto second = folders.emulator("system/applications/two.desktop", "Second");
    field().chooseButton()->setFocus();
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(window->focusWidget(), field().installedButton());
    EXPECT_FALSE(field().installedButton()->accessibleName().isEmpty());
    EmulatorMenu& menu = *field().menu();
    QTimer::singleShot(0, &menu, [&] {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
        menu.close();
    });
    QTest::keyClick(window->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(NESBuildSettings(demo).pathToEmulator(), second);
    EXPECT_EQ(window->focusWidget(), field().installedButton());
}

TEST_F(EmulatorMenuTest, ItsKeyBringsItsButtonIntoSight) {
    window->resize(560, 300);
    QApplication::processEvents();
    QToolButton& button = *field().installedButton();
    ASSERT_TRUE(button.visibleRegion().isEmpty());
    EmulatorMenu& menu = *field().menu();
    bool inSight = false;
    QTimer::singleShot(0, &menu, [&] {
        inSight = menu.isVisible() && button.visibleRegion().contains(button.rect().center());
        menu.close();
    });
    button.click(); // as its key does
    EXPECT_TRUE(inSight);
}

TEST_F(EmulatorMenuTest, OnlyThePresentEmulatorIsMarked) {
    folders.emulator("system/applications/one.desktop", "First");
    folders.emulator("system/applications/two.desktop", "Second");
    const auto marked = [&] {
        std::vector<std::string> result;
        inMenu([&](const EmulatorMenu& menu) {
            for (const QAction* entry : menu.actions()) {
                if (entry->isChecked()) {
                    result.push_back(entry->text().toStdString());
                }
            }
        });
        return result;
    };
    EXPECT_THAT(marked(), testing::IsEmpty());
    choose("Second");
    EXPECT_THAT(marked(), ElementsAre("Second"));
    choose("First");
    EXPECT_THAT(marked(), ElementsAre("First"));
}

TEST_F(EmulatorMenuTest, NamesAreShownAsTheyAreAndKeptApart) {
    folders.emulator("system/applications/a.desktop", "Same");
    folders.emulator("system/applications/b.desktop", "Same");
    folders.emulator("system/applications/c.desktop", "Tom & Co");
    folders.emulator("system/applications/d.desktop", "W" + std::string(5000, 'w'));
    const auto names = offered();
    ASSERT_EQ(names.size(), 6U);
    EXPECT_EQ(names[0], "Same (a.desktop)");
    EXPECT_EQ(names[1], "Same (b.desktop)");
    EXPECT_EQ(names[2], "Tom && Co") << "a single one would mark a key";
    EXPECT_LT(names[3].size(), 100U);
    choose("Same (b.desktop)");
    EXPECT_EQ(shownPath(), folders.path() / "system/applications/b.desktop");
}

} // namespace
} // namespace kestrel::test
