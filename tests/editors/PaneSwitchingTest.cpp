// SPDX-License-Identifier: MIT
#include "editors/CommonEditorControllers.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QLabel>

namespace kestrel {

namespace {

using test::LogCapture;
using test::TemporaryFolder;

class RecordingTextEditor : public TextEditorController {
public:
    std::vector<std::filesystem::path> loaded;
    void loadFile(const std::filesystem::path& path) override { loaded.push_back(path); }
};

class RecordingPaletteEditor : public PaletteEditorController {
public:
    std::vector<std::string> calls;
    void update() override {
        calls.push_back(filePathForPalette()->string() + (isHidden() ? " hidden" : " shown"));
    }
};

class RecordingGraphicsEditor : public GraphicsEditorController {
public:
    std::optional<ErrorValue> answer;
    std::vector<std::string> loaded;
    void loadFile(const std::shared_ptr<ProjectItem>& file,
                  const std::shared_ptr<ProjectItem>& project,
                  const CompletionHandler& completionHandler) override {
        loaded.push_back(file->itemName() + " of " + project->itemName());
        if (answer) {
            completionHandler(answer);
        }
    }
};

class RecordingSettings : public ProjectSettingsController {
public:
    bool answer = true;
    int updates = 0;
    bool updateBuildSettings() override {
        ++updates;
        return answer;
    }
};

std::shared_ptr<ProjectItem> node(const std::string& name, const std::filesystem::path& path,
                                  FileType type, FilePathType pathType) {
    auto item = std::make_shared<ProjectNavigationSettingItem>(name, path, type, ProjectType::nes);
    item->setItemPathType(pathType);
    return item;
}

class PaneSwitching : public ::testing::Test {
protected:
    void SetUp() override {
        for (QWidget* pane :
             std::initializer_list<QWidget*>{graphics, text, settings, empty, palettes}) {
            container.addWidget(pane);
        }
        container.viewDidLoad();
        folder.write("Demo.kst", "{}");
        container.show();
    }

    QString message() const { return empty->message(); }
    QWidget* shown() const { return container.currentWidget(); }

    TemporaryFolder folder;
    LogCapture log;
    CommonEditorControllers container;
    RecordingGraphicsEditor* graphics = new RecordingGraphicsEditor;
    RecordingTextEditor* text = new RecordingTextEditor;
    RecordingSettings* settings = new RecordingSettings;
    EmptyController* empty = new EmptyController;
    RecordingPaletteEditor* palettes = new RecordingPaletteEditor;
    std::shared_ptr<ProjectItem> project =
        node("Demo", folder.path(), FileType::project, FilePathType::absolute);
};

TEST_F(PaneSwitching, AsksForASelectionBeforeThereIsOne) {
    EXPECT_EQ(shown(), empty);
    EXPECT_EQ(message(), QStringLiteral("Please select a file or project"));
    EXPECT_EQ(settings->datasource(), &container);
}

TEST_F(PaneSwitching, FindsEachPaneByItsClassWhateverTheOrderOfTheTabs) {
    EXPECT_EQ(container.textEditor, text);
    EXPECT_EQ(container.paletteEditor, palettes);
    EXPECT_EQ(container.graphicsEditor, graphics);
    EXPECT_EQ(container.projectSettings, settings);
    EXPECT_EQ(container.emptyController, empty);
    EXPECT_EQ(container.tabItemsIndex.value(settings), 2);
    EXPECT_EQ(container.tabItemsIndex.size(), 5);
}

TEST_F(PaneSwitching, AnUnexpectedChildIsLoggedAndTheOtherPanesStillWork) {
    CommonEditorControllers other;
    auto* stranger = new QWidget;
    stranger->setObjectName(QStringLiteral("stranger"));
    auto* messages = new EmptyController;
    other.addWidget(stranger);
    other.addWidget(messages);
    other.viewDidLoad();
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(log.lines().front(), "Failed for QWidget stranger");
    EXPECT_EQ(other.currentWidget(), messages);
    other.displayError(QStringLiteral("Folder selected"));
    EXPECT_EQ(messages->message(), QStringLiteral("Folder selected"));
}

TEST_F(PaneSwitching, AMissingPaneIsSilentlyLeftAlone) {
    CommonEditorControllers other;
    auto* messages = new EmptyController;
    other.addWidget(messages);
    other.viewDidLoad();
    folder.write("a.asm", "");
    const auto file = node("a.asm", folder.path(), FileType::text, FilePathType::absolute);
    other.displayEditorController(file, project);
    other.displayPaletteEditor(file, project);
    other.displayGraphicsEditor(file, project);
    other.displayProjectSettings(project);
    EXPECT_EQ(other.currentWidget(), messages);
    EXPECT_EQ(messages->message(), QStringLiteral("Please select a file or project"));
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(PaneSwitching, WithoutAMessagePaneAMissingFileOnlyLogs) {
    CommonEditorControllers other;
    auto* editor = new RecordingTextEditor;
    other.addWidget(editor);
    other.viewDidLoad();
    other.displayEditorController(
        node("none.asm", folder.path(), FileType::text, FilePathType::absolute), project);
    EXPECT_TRUE(editor->loaded.empty());
    EXPECT_EQ(log.lines(), std::vector<std::string>{"File could not be found for code editor"});
}

TEST_F(PaneSwitching, AnAbsoluteTextFileIsItsFolderAndItsName) {
    const auto file = node("a.asm", folder.path() / "src", FileType::text, FilePathType::absolute);
    folder.write("src/a.asm", "");
    container.displayEditorController(file, project);
    EXPECT_EQ(shown(), text);
    EXPECT_EQ(text->loaded, std::vector{folder.path() / "src/a.asm"});
}

TEST_F(PaneSwitching, ARelativeTextFileIsLoadedFromItsSubPath) {
    // The check looks in the project folder itself, the load goes below it: both files are needed.
    folder.write("a.asm", "");
    folder.write("src/a.asm", "");
    container.displayEditorController(node("a.asm", "src", FileType::text, FilePathType::relative),
                                      project);
    EXPECT_EQ(text->loaded, std::vector{folder.path() / "src/a.asm"});
}

TEST_F(PaneSwitching, ARelativeFileOnlyBelowASubFolderIsRejectedByTheCheck) {
    folder.write("src/a.asm", "");
    container.displayEditorController(node("a.asm", "src", FileType::text, FilePathType::relative),
                                      project);
    EXPECT_TRUE(text->loaded.empty());
    EXPECT_EQ(shown(), empty);
    EXPECT_EQ(message(), QStringLiteral("File does not exist at path"));
    EXPECT_EQ(log.lines(), std::vector<std::string>{"File could not be found for code editor"});
}

TEST_F(PaneSwitching, ATextNodeWithoutAPathKindIsLoadedFromItsOwnFolder) {
    folder.write("a.asm", "");
    folder.write("elsewhere/a.asm", "");
    container.displayEditorController(
        node("a.asm", folder.path() / "elsewhere", FileType::text, FilePathType::noPath), project);
    EXPECT_EQ(text->loaded, std::vector{folder.path() / "elsewhere/a.asm"});
}

TEST_F(PaneSwitching, AFileIsShownInThePaneForItsKind) {
    folder.write("a.asm", "");
    folder.write("a.pal", "");
    folder.write("a.chr", "");
    container.displayFile(node("a.asm", folder.path(), FileType::text, FilePathType::absolute),
                          project);
    EXPECT_EQ(shown(), text);
    container.displayFile(node("a.pal", folder.path(), FileType::palette, FilePathType::absolute),
                          project);
    EXPECT_EQ(shown(), palettes);
    container.displayFile(node("a.chr", folder.path(), FileType::graphics, FilePathType::absolute),
                          project);
    EXPECT_EQ(shown(), graphics);
}

TEST_F(PaneSwitching, AFileOfAKindWithoutAPaneChangesNothing) {
    folder.write("a", "");
    for (const FileType kind : {FileType::group, FileType::empty, FileType::unknown}) {
        container.displayFile(node("a", folder.path(), kind, FilePathType::absolute), project);
        EXPECT_EQ(shown(), empty);
        EXPECT_EQ(message(), QStringLiteral("Please select a file or project"));
    }
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(PaneSwitching, ThePanesAreAddedInTheOrderOfTheirTabsAndFound) {
    CommonEditorControllers own;
    own.addPanes();
    own.viewDidLoad();
    EXPECT_TRUE(log.lines().empty());
    ASSERT_EQ(own.count(), 5);
    EXPECT_EQ(own.widget(0), own.textEditor);
    EXPECT_EQ(own.widget(1), own.paletteEditor);
    EXPECT_EQ(own.widget(2), own.graphicsEditor);
    EXPECT_EQ(own.widget(3), own.projectSettings);
    EXPECT_EQ(own.widget(4), own.emptyController);
    EXPECT_EQ(own.editorPanes().size(), 3U);
    EXPECT_EQ(own.shownEditorPane(), nullptr);
    own.setCurrentWidget(own.textEditor);
    EXPECT_EQ(own.shownEditorPane(), own.textEditor.data());
}

TEST_F(PaneSwitching, AMissingPaletteFileLogsTheCodeEditorsText) {
    container.displayPaletteEditor(
        node("a.pal", folder.path(), FileType::palette, FilePathType::absolute), project);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"File could not be found for code editor"});
    EXPECT_TRUE(palettes->calls.empty());
    EXPECT_EQ(shown(), empty);
}

TEST_F(PaneSwitching, APaletteFileIsSetThenShownThenUpdated) {
    folder.write("a.pal", "");
    container.displayPaletteEditor(
        node("a.pal", folder.path(), FileType::palette, FilePathType::absolute), project);
    // Once because it is shown, once because it is asked to.
    EXPECT_EQ(palettes->calls,
              std::vector<std::string>(2, (folder.path() / "a.pal").string() + " shown"));
}

TEST_F(PaneSwitching, APaletteNodeWithoutAPathKindIsLookedForBelowTheProject) {
    folder.write("a.pal", "");
    container.displayPaletteEditor(
        node("a.pal", "colours", FileType::palette, FilePathType::noPath), project);
    EXPECT_EQ(palettes->filePathForPalette(), folder.path() / "colours/a.pal");
}

TEST_F(PaneSwitching, AGraphicsFileThatFailsShowsTheErrorsText) {
    folder.write("a.chr", "");
    const auto file = node("a.chr", folder.path(), FileType::graphics, FilePathType::absolute);
    container.displayGraphicsEditor(file, project);
    EXPECT_EQ(shown(), graphics);
    graphics->answer = ErrorValue{{}, 0, "Data type is incorrect or file is corrupt at path"};
    container.displayGraphicsEditor(file, project);
    EXPECT_EQ(graphics->loaded, (std::vector<std::string>{"a.chr of Demo", "a.chr of Demo"}));
    EXPECT_EQ(shown(), empty);
    EXPECT_EQ(message(), QStringLiteral("Data type is incorrect or file is corrupt at path"));
}

TEST_F(PaneSwitching, AMissingGraphicsFileIsLoggedAndNotShown) {
    container.displayGraphicsEditor(
        node("a.chr", folder.path(), FileType::graphics, FilePathType::absolute), project);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"File could not be found for graphics editor"});
    EXPECT_EQ(message(), QStringLiteral("File does not exist at path"));
    EXPECT_TRUE(graphics->loaded.empty());
}

TEST_F(PaneSwitching, AProjectShowsItsSettings) {
    container.displayProjectSettings(project);
    EXPECT_EQ(shown(), settings);
    EXPECT_EQ(settings->currentProject(), project);
    EXPECT_EQ(settings->updates, 1);
}

TEST_F(PaneSwitching, SettingsThatCannotBeShownGiveWayToTheMessage) {
    settings->answer = false;
    container.displayProjectSettings(project);
    EXPECT_EQ(shown(), empty);
    EXPECT_EQ(message(),
              QStringLiteral("Build Project settings is misconfigured and could not display"));
    EXPECT_EQ(settings->currentProject(), project);
}

TEST_F(PaneSwitching, AProjectWithoutItsProjectFileIsNotShownAndTheSettingsKeepTheirProject) {
    settings->setCurrentProject(project);
    std::filesystem::remove(folder.path() / "Demo.kst");
    container.displayProjectSettings(project);
    EXPECT_EQ(message(), QStringLiteral("File does not exist at path"));
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{"File could not be found for project settings"});
    EXPECT_EQ(settings->currentProject(), project);
    EXPECT_EQ(settings->updates, 0);
}

TEST_F(PaneSwitching, AProjectWithoutANameIsTheBareExtension) {
    folder.write(".kst", "{}");
    const auto nameless = node("", folder.path(), FileType::project, FilePathType::absolute);
    EXPECT_TRUE(container.checkFileExistsAndDisplayErrorWhenFalse(nameless, nullptr));
}

TEST_F(PaneSwitching, TheCheckTakesAParentProjectsFolderForAProjectNodeToo) {
    const auto moved = node("Demo", "/nowhere", FileType::project, FilePathType::absolute);
    EXPECT_FALSE(container.checkFileExistsAndDisplayErrorWhenFalse(moved, nullptr));
    EXPECT_TRUE(container.checkFileExistsAndDisplayErrorWhenFalse(moved, project));
}

TEST_F(PaneSwitching, AFolderOfTheFilesNameCountsAsPresent) {
    std::filesystem::create_directory(folder.path() / "a.asm");
    EXPECT_TRUE(container.checkFileExistsAndDisplayErrorWhenFalse(
        node("a.asm", folder.path(), FileType::text, FilePathType::absolute), project));
}

TEST_F(PaneSwitching, ChangedFileKindsArePassedOnWhenSomebodyWantsThem) {
    struct Recorder final : ProjectSettingsDataSource {
        int calls = 0;
        void updatedFileType() override { ++calls; }
    } recorder;
    container.updatedFileType();
    container.projectSettingsDatasource = &recorder;
    container.updatedFileType();
    EXPECT_EQ(recorder.calls, 1);
}

TEST_F(PaneSwitching, TheMessagePaneStaysWhiteAndReadableOnADarkTheme) {
    const QPalette former = qApp->palette();
    QPalette dark(QColor(0x20, 0x20, 0x20), QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::WindowText, Qt::white);
    qApp->setPalette(dark);
    EXPECT_EQ(empty->palette().color(QPalette::Window), QColor(Qt::white));
    EXPECT_LT(empty->messageLabel()->palette().color(QPalette::WindowText).lightness(), 64);
    EXPECT_EQ(empty->grab().toImage().pixelColor(1, 1), QColor(Qt::white));
    qApp->setPalette(former);
}

TEST_F(PaneSwitching, AMessagePaneWithoutItsLabelHasNoMessage) {
    delete empty->messageLabel();
    empty->setMessage(QStringLiteral("lost"));
    EXPECT_EQ(empty->message(), QString());
    text->hide();
    container.displayError(QStringLiteral("lost"));
    EXPECT_EQ(shown(), empty);
}

} // namespace

} // namespace kestrel
