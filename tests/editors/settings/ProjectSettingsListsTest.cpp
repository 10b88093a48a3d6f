// SPDX-License-Identifier: MIT
#include "editors/settings/EmulatorPanel.h"
#include "editors/settings/ProjectSettingsFixture.h"
#include "widgets/Contrast.h"
#include "widgets/PathField.h"

#include <QImage>
#include <QLabel>

#include <algorithm>

namespace kestrel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ProjectSettingsLists : public ProjectSettingsTest {
protected:
    static constexpr const char* SettingsFile = "Kestrel/Demo/.project/Demo-BuildSettings.cfg";

    /// A row as it is painted.
    static QImage painted(const BuildFileList* list, int row) {
        BuildFileTable& table = *list->table();
        const QRect place = table.visualRect(list->model()->index(row));
        return table.viewport()->grab(place).toImage();
    }

    static int redPixels(const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                count += colour.red() > 100 + std::max(colour.green(), colour.blue()) ? 1 : 0;
            }
        }
        return count;
    }

    /// The most pixels of this colour beside one another.
    static int longestRun(const QImage& image, const QColor& colour) {
        int longest = 0;
        for (int y = 0; y < image.height(); ++y) {
            int run = 0;
            for (int x = 0; x < image.width(); ++x) {
                run = image.pixelColor(x, y) == colour ? run + 1 : 0;
                longest = std::max(longest, run);
            }
        }
        return longest;
    }

    std::string outputText() const {
        return pane().outputField()->textField()->text().toStdString();
    }
    std::string emulatorText() const {
        return pane().emulatorField()->textField()->text().toStdString();
    }
};

TEST_F(ProjectSettingsLists, AFileWhoseSettingsCannotBeSavedIsListedAndTheNextSaveHasIt) {
    const auto file = home.path() / SettingsFile;
    const auto away = home.path() / "away";
    std::filesystem::rename(file, away);
    std::filesystem::create_directories(file / "in the way");
    addTo(pane().graphicsList(), "tiles.bin");
    EXPECT_THAT(log.lines(), Contains("Could not save build settings"));
    EXPECT_THAT(rows(pane().graphicsList()), ElementsAre("tiles.bin"));
    EXPECT_EQ(find("tiles.bin")->itemFileType(), FileType::graphics);
    EXPECT_TRUE(std::filesystem::is_directory(file));
    std::filesystem::remove_all(file);
    std::filesystem::rename(away, file);
    EXPECT_THAT(names(NESBuildSettings(demo).graphicFiles()), IsEmpty());
    addTo(pane().assemblyList(), "more.asm");
    EXPECT_THAT(names(NESBuildSettings(demo).graphicFiles()), ElementsAre("tiles.bin"));
    EXPECT_THAT(savedAssemblyFiles(demo), ElementsAre("main.asm", "more.asm"));
}

TEST_F(ProjectSettingsLists, AFileRemovedFromTheGraphicsLeavesListAndSettingsAndStaysInTheTree) {
    addTo(pane().graphicsList(), "tiles.bin");
    addTo(pane().graphicsList(), "more.asm");
    clickRow(pane().graphicsList(), 0);
    press(pane().graphicsList()->subtractButton());
    EXPECT_THAT(rows(pane().graphicsList()), ElementsAre("more.asm"));
    EXPECT_EQ(pane().currentlySelectedForForGraphics(), 0);
    EXPECT_THAT(names(NESBuildSettings(demo).graphicFiles()), ElementsAre("more.asm"));
    EXPECT_EQ(find("tiles.bin")->itemFileType(), FileType::graphics);
    EXPECT_TRUE(exists("Kestrel/Demo/tiles.bin"));
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
    restart();
    EXPECT_THAT(rows(pane().graphicsList()), ElementsAre("more.asm"));
}

TEST_F(ProjectSettingsLists, ASenderThatIsNotTheButtonInQuestionDoesNothing) {
    clickRow(pane().assemblyList(), 0);
    const std::string before = content(SettingsFile);
    const std::size_t lines = log.lines().size();
    const QWidget other;
    for (const QObject* sender :
         {static_cast<const QObject*>(nullptr), static_cast<const QObject*>(&other),
          static_cast<const QObject*>(pane().assemblyList()->table()),
          static_cast<const QObject*>(pane().emulatorField()->chooseButton())}) {
        pane().addEntry(sender);
        pane().subtractEntry(sender);
    }
    pane().addEntry(pane().assemblyList()->subtractButton());
    pane().subtractEntry(pane().assemblyList()->addButton());
    pane().entrySelectedForTableView(&view());
    pane().entrySelectedForTableView(nullptr);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(pane().addNewItemFromProjectController(), nullptr);
    EXPECT_EQ(log.lines().size(), lines); // a save would be logged
    EXPECT_EQ(content(SettingsFile), before);
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), 0);
}

TEST_F(ProjectSettingsLists, ASelectedRowIsForgottenWhenTheListWasChangedFromOutside) {
    addTo(pane().assemblyList(), "more.asm");
    clickRow(pane().assemblyList(), 1);
    ASSERT_EQ(pane().currentlySelectedForForAssembly(), 1);
    NESBuildSettings outside(demo);
    outside.removeFile(find("more.asm"));
    ASSERT_TRUE(pane().updateBuildSettings());
    EXPECT_EQ(pane().currentlySelectedForForAssembly(), -1);
    const std::string before = content(SettingsFile);
    pane().subtractEntry(pane().assemblyList()->subtractButton());
    EXPECT_EQ(content(SettingsFile), before);
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
}

TEST_F(ProjectSettingsLists, SettingsThatAreNotShownLeaveOutputAndEmulatorAsTheyWere) {
    pane().buildSettings()->pathToEmulator() = "/usr/bin/emulator";
    pane().buildSettings()->saveBuildSettings();
    ASSERT_TRUE(pane().updateBuildSettings());
    const std::string output = outputText();
    const QString problem = pane().emulatorField()->problemLabel()->text();
    ASSERT_EQ(output, (demo->itemPath() / "output").string());
    ASSERT_EQ(emulatorText(), "/usr/bin/emulator");
    home.write("Kestrel/Other/.project/Other-BuildSettings.cfg", R"({"emulator": "/x"})");
    pane().setCurrentProject(
        makeNode("Other", FileType::project, {}, home.path() / "Kestrel" / "Other"));
    EXPECT_FALSE(pane().updateBuildSettings());
    EXPECT_EQ(outputText(), output);
    EXPECT_EQ(emulatorText(), "/usr/bin/emulator");
    EXPECT_EQ(pane().emulatorField()->problemLabel()->text(), problem);
    EXPECT_THAT(rows(pane().assemblyList()), ElementsAre("main.asm"));
    pane().setCurrentProject(nullptr);
    EXPECT_FALSE(pane().updateBuildSettings());
    EXPECT_EQ(outputText(), output);
    EXPECT_EQ(emulatorText(), "/usr/bin/emulator");
}

TEST_F(ProjectSettingsLists, AMissingFilesNameIsPaintedRedAlsoWhileItIsSelected) {
    const BuildFileList* list = pane().assemblyList();
    addTo(list, "more.asm");
    clickRow(list, 1);
    EXPECT_EQ(redPixels(painted(list, 0)), 0);
    const QImage presentSelected = painted(list, 1);
    for (const char* name : {"Kestrel/Demo/main.asm", "Kestrel/Demo/more.asm"}) {
        std::filesystem::remove(home.path() / name);
    }
    list->model()->forgetPresence();
    const QImage missing = painted(list, 0);
    EXPECT_GT(redPixels(missing), 10);
    const QImage missingSelected = painted(list, 1);
    EXPECT_NE(missingSelected, presentSelected);
    const QColor base = list->table()->palette().color(QPalette::Base);
    for (const QImage& image : {missing, missingSelected}) {
        EXPECT_GT(longestRun(image, readableRed(base)), 40) << "the name is struck out";
    }
    EXPECT_LT(longestRun(presentSelected, Qt::white), 40);
    home.write("Kestrel/Demo/main.asm", "");
    list->model()->forgetPresence();
    EXPECT_EQ(redPixels(painted(list, 0)), 0);
}

TEST_F(ProjectSettingsLists, TheEmulatorPanelStartsBesideThePresentEmulatorOrWhereProgramsAre) {
    const auto emulator = home.write("programs/emulator", "");
    EXPECT_EQ(emulatorStartFolder(emulator), home.path() / "programs");
    const auto usual = emulatorStartFolder(std::nullopt);
    EXPECT_TRUE(std::filesystem::is_directory(usual)) << usual;
    if (std::filesystem::is_directory("/usr/share/applications")) {
        EXPECT_EQ(usual, "/usr/share/applications");
    }
    EXPECT_EQ(emulatorStartFolder(home.path() / "gone/emulator"), usual);
    EXPECT_EQ(emulatorStartFolder("emulator"), usual); // a name without a folder
    EXPECT_EQ(emulatorStartFolder(std::filesystem::path()), usual);
}

} // namespace
} // namespace kestrel::test
