// SPDX-License-Identifier: MIT
#include "editors/settings/ProjectSettingsFixture.h"
#include "support/ApplicationFolders.h"
#include "widgets/PathField.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QTemporaryDir>
#include <QUrl>

namespace kestrel::test {
namespace {

/// Takes the place of the desktop that opens folders.
class Desktop : public QObject {
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    Q_INVOKABLE void open(const QUrl& url) { opened << url.toLocalFile(); }
    QStringList opened;
};

class ProjectSettingsFields : public ProjectSettingsTest {
protected:
    /// Opens the panel with the button; it goes with the window.
    QFileDialog* openPanel() const {
        press(pane().emulatorField()->chooseButton());
        return window->findChild<QFileDialog*>();
    }

    /// Types a name in the panel and confirms it.
    static void confirm(QFileDialog* panel, const std::filesystem::path& file) {
        auto* name = panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(name, nullptr);
        name->setText(QString::fromStdString(file.string()));
        press(panel->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The names of the files in the panel's list, once there are so many.
    static QStringList offeredBy(const QFileDialog* panel, qsizetype count) {
        const auto* list = panel->findChild<QAbstractItemView*>(QStringLiteral("listView"));
        QStringList offered;
        const auto filled = [&] {
            offered.clear();
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
                offered << list->model()->index(row, 0, list->rootIndex()).data().toString();
            }
            return offered.size() >= count;
        };
        EXPECT_TRUE(QTest::qWaitFor(filled, 60000));
        return offered;
    }

    std::filesystem::path program(const std::string& name) const {
        const auto file = home.write(name, "#!/bin/sh\n");
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return file;
    }

    std::string problem() const {
        return pane().emulatorField()->problemLabel()->text().toStdString();
    }
    std::string emulatorText() const {
        return pane().emulatorField()->textField()->text().toStdString();
    }
    std::optional<std::filesystem::path> savedEmulator() const {
        return NESBuildSettings(demo).pathToEmulator();
    }
};

TEST_F(ProjectSettingsFields, TheChosenEmulatorIsShownAndSaved) {
    EXPECT_EQ(problem(), "No emulator is set for this project yet.");
    const auto emulator = program("my emulator");
    QFileDialog* panel = openPanel();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->windowTitle(), QStringLiteral("Emulator Path"));
    EXPECT_EQ(panel->windowModality(), Qt::WindowModal);
    confirm(panel, emulator);
    EXPECT_EQ(emulatorText(), emulator);
    EXPECT_EQ(problem(), "");
    EXPECT_EQ(savedEmulator(), emulator);
    restart();
    EXPECT_EQ(emulatorText(), emulator);
}

TEST_F(ProjectSettingsFields, CancellingThePanelChangesNothing) {
    const std::string before = content("Kestrel/Demo/.project/Demo-BuildSettings.cfg");
    QTest::keyClick(openPanel(), Qt::Key_Escape);
    EXPECT_EQ(emulatorText(), "");
    EXPECT_EQ(content("Kestrel/Demo/.project/Demo-BuildSettings.cfg"), before);
}

TEST_F(ProjectSettingsFields, ThePanelOffersProgramsAndDesktopEntriesOnly) {
    const TemporaryFolder folder;
    folder.write("readme.txt", "");
    folder.write("game.desktop", "[Desktop Entry]\n");
    folder.write("inner/file", "");
    std::filesystem::permissions(folder.write("emulator", ""), std::filesystem::perms::owner_all);
    pane().buildSettings()->pathToEmulator() = folder.path() / "emulator";
    QFileDialog* panel = openPanel();
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->directory().absolutePath().toStdString(), folder.path());
    EXPECT_EQ(offeredBy(panel, 3), QStringList({QStringLiteral("inner"), QStringLiteral("emulator"),
                                                QStringLiteral("game.desktop")}));
}

TEST_F(ProjectSettingsFields, ThePanelShowsWhatIsForTheConsoleFirst) {
    const ApplicationFolders folders;
    folders.write("entries/a.desktop", "[Desktop Entry]\nType=Application\nName=A\nExec=a\n");
    folders.emulator("entries/z.desktop", "Z");
    folders.emulator("entries/y.desktop", "Y", "NoDisplay=true\n");
    folders.write("entries/inner/file", "");
    pane().buildSettings()->pathToEmulator() = folders.path() / "entries/a.desktop";
    const QStringList shown = offeredBy(openPanel(), 4);
    EXPECT_EQ(shown, QStringList({QStringLiteral("y.desktop"), QStringLiteral("z.desktop"),
                                  QStringLiteral("inner"), QStringLiteral("a.desktop")}));
}

TEST_F(ProjectSettingsFields, TheNameOfAProgramFindsItFromAnyFolder) {
    const ApplicationFolders folders;
    pane().buildSettings()->pathToEmulator() = program("any");
    confirm(openPanel(), "fceux"); // PATH may name the folder of games or not
    EXPECT_EQ(savedEmulator(), "/usr/games/fceux");
    EXPECT_EQ(emulatorText(), "/usr/games/fceux");

    const auto entry = folders.emulator("user/applications/org.example.Emu.desktop", "My Emu");
    confirm(openPanel(), "my emu");
    EXPECT_EQ(savedEmulator(), entry);

    const auto near = program("fceux");
    ASSERT_EQ(near.parent_path(), home.path());
    pane().buildSettings()->pathToEmulator() = near;
    confirm(openPanel(), "fceux");
    EXPECT_EQ(savedEmulator(), near) << "the file in the folder that is shown";
}

TEST_F(ProjectSettingsFields, WhateverIsConfirmedIsSetAndALineSaysWhatIsWrongWithIt) {
    confirm(openPanel(), home.write("notes.txt", ""));
    EXPECT_EQ(savedEmulator(), home.path() / "notes.txt");
    EXPECT_EQ(problem(), "This emulator cannot be started: the file may not be executed.");
    confirm(openPanel(), home.write("broken.desktop", "no entry"));
    EXPECT_EQ(savedEmulator(), home.path() / "broken.desktop");
    EXPECT_EQ(problem(), "This emulator cannot be started: the file describes no application.");
    confirm(openPanel(), home.write("gone.desktop", "[Desktop Entry]\nType=Application\nName=X\n"
                                                    "Exec=/nowhere/emulator %f\n"));
    EXPECT_EQ(problem(), "This emulator cannot be started: its program “/nowhere/emulator” is not "
                         "installed.");
    const auto good = home.write("good.desktop", "[Desktop Entry]\nType=Application\nName=X\n"
                                                 "Exec=" +
                                                     program("emu").string() + " %f\n");
    confirm(openPanel(), good);
    EXPECT_EQ(problem(), "");
    std::filesystem::remove(home.path() / "good.desktop");
    pane().emulatorField()->refresh();
    EXPECT_EQ(problem(), "This emulator cannot be started: there is no such file.");
    pane().emulatorField()->setEmulator(home.path());
    EXPECT_EQ(problem(), "This emulator cannot be started: this is no program.");
    pane().emulatorField()->setEmulator("sh");
    EXPECT_EQ(problem(), "") << "a bare name is found among the system's programs";
    pane().emulatorField()->setEmulator("no-such-emulator-here");
    EXPECT_EQ(problem(), "This emulator cannot be started: there is no such file.");
}

TEST_F(ProjectSettingsFields, AProgramWhereGamesAreNeedNotBeInPath) {
    const QByteArray formerPath = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    pane().emulatorField()->setEmulator("fceux");
    const std::string byName = problem();
    pane().emulatorField()->setEmulator(
        home.write("emu.desktop", "[Desktop Entry]\nType=Application\nName=X\nExec=fceux %f\n"));
    qputenv("PATH", formerPath);
    EXPECT_EQ(byName, "");
    EXPECT_EQ(problem(), "");
}

TEST_F(ProjectSettingsFields, AProjectWithoutEmulatorLeavesTheFieldAsItWasAndSaysSo) {
    const auto emulator = program("emu");
    confirm(openPanel(), emulator);
    const Node other = makeNode("Other", FileType::project, {}, home.path() / "Kestrel" / "Other");
    ASSERT_TRUE(container->addProjectToEditor(other));
    EXPECT_EQ(emulatorText(), emulator);
    EXPECT_EQ(problem(), "No emulator is set for this project yet.");
    EXPECT_FALSE(NESBuildSettings(other).pathToEmulator().has_value());
}

TEST_F(ProjectSettingsFields, TheOutputFolderCanBeSelectedButNotTyped) {
    PathField* field = pane().outputField()->textField();
    const QString folder = QString::fromStdString((demo->itemPath() / "output").string());
    EXPECT_EQ(field->text(), folder);
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("x"));
    EXPECT_EQ(field->text(), folder);
    field->selectAll();
    field->copy();
    EXPECT_EQ(QApplication::clipboard()->text(), folder);
}

TEST_F(ProjectSettingsFields, TheOutputFolderIsOpenedOnceItIsThere) {
    Desktop desktop;
    OutputField* field = pane().outputField();
    EXPECT_FALSE(field->openButton()->isEnabled());
    press(field->openButton());
    EXPECT_TRUE(desktop.opened.isEmpty());
    std::filesystem::create_directory(demo->itemPath() / "output");
    field->refresh();
    EXPECT_TRUE(field->openButton()->isEnabled());
    press(field->openButton());
    EXPECT_EQ(desktop.opened, QStringList{field->textField()->text()});
}

TEST_F(ProjectSettingsFields, ALongPathIsElidedInPaintingOnly) {
    PathField field;
    const QString path = QStringLiteral("/folder").repeated(40) + QStringLiteral("/emulator");
    field.setPath(path);
    field.resize(200, field.sizeHint().height());
    EXPECT_EQ(field.text(), path);
    EXPECT_EQ(field.toolTip(), path);
    EXPECT_TRUE(field.paintedText().contains(QChar(0x2026)));
    EXPECT_TRUE(field.paintedText().endsWith(QStringLiteral("emulator")));
    const QImage elided = field.grab().toImage();
    field.resize(6000, field.height());
    EXPECT_EQ(field.paintedText(), path);
    field.resize(200, field.height());
    EXPECT_EQ(field.grab().toImage(), elided);
}

TEST_F(ProjectSettingsFields, TheTabKeyGoesThroughThePaneInReadingOrder) {
    std::filesystem::create_directory(demo->itemPath() / "output");
    ASSERT_TRUE(pane().updateBuildSettings());
    pane().assemblyList()->table()->selectRow(0);
    pane().assemblyList()->table()->setFocus();
    QStringList visited;
    for (int i = 0; i < 12; ++i) {
        const QWidget* control = window->focusWidget();
        if (!pane().isAncestorOf(control)) {
            break;
        }
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
        visited << control->objectName();
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited.join(QLatin1Char(' ')).toStdString(),
              "codeTableView subtractCodeEntryButton addCodeEntryButton "
              "graphicsTableView addGraphicsEntryButton "
              "paletteTableView addPaletteEntryButton "
              "outputTextField openOutputFolderButton "
              "pathToEmulatorTextField chooseEmulatorButton installedEmulatorsButton");
}

TEST_F(ProjectSettingsFields, ThePaneIsWhiteOnADarkTheme) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    QApplication::processEvents();
    const QImage picture = pane().grab().toImage();
    QApplication::setPalette(before);
    EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(picture.width() - 3, picture.height() - 3), QColor(Qt::white));
}

TEST_F(ProjectSettingsFields, ANarrowPaneStacksItsLists) {
    const auto top = [](const QWidget* widget) { return widget->mapToGlobal(QPoint()).y(); };
    window->resize(1000, 600);
    QApplication::processEvents();
    EXPECT_EQ(top(pane().assemblyList()), top(pane().paletteList()));
    window->resize(560, 600);
    QApplication::processEvents();
    EXPECT_LT(top(pane().assemblyList()), top(pane().graphicsList()));
    EXPECT_LT(top(pane().graphicsList()), top(pane().paletteList()));
}

} // namespace
} // namespace kestrel::test

#include "ProjectSettingsFieldsTest.moc"
