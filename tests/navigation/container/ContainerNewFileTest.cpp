// SPDX-License-Identifier: MIT
#include "navigation/container/ContainerFixture.h"
#include "navigation/container/NewFileWriter.h"
#include "support/ChildProcess.h"

#include <csignal>
#include <sys/resource.h>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int Assembly = 0;
constexpr int Palette = 1;
constexpr int Graphics = 2;

class ContainerNewFile : public ContainerTest {};

/// While it lives, nothing can be written into a file, as on a full disk; empty files can be made.
class FullDisk {
public:
    FullDisk()
        : m_formerHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit none{0, m_former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerHandler);
    }

private:
    rlimit m_former{};
    void (*m_formerHandler)(int);
};

/// A settings pane that counts how often it was asked to show the settings.
class CountingSettings final : public ProjectSettingsController {
public:
    using ProjectSettingsController::ProjectSettingsController;
    bool updateBuildSettings() override {
        ++updates;
        return true;
    }
    int updates = 0;
};

TEST_F(ContainerNewFile, AnAssemblyFileIsEmptyAndIsAddedToTreeSettingsAndStructure) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    click("Game");
    makeFile(Assembly, "new.asm");
    EXPECT_EQ(content("Kestrel/Game/new.asm"), "");
    EXPECT_THAT(names(root()->subItems()), ElementsAre("new.asm", "a.asm"));
    EXPECT_EQ(find("new.asm")->parent(), root());
    EXPECT_EQ(find("new.asm")->itemPathType(), FilePathType::absolute);
    EXPECT_EQ(savedStructure(root()), "Game\n  new.asm\n  a.asm\n");
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre("new.asm"));
    EXPECT_EQ(sheet(), nullptr);
    start();
    EXPECT_THAT(names(root()->subItems()), ElementsAre("new.asm", "a.asm"));
}

TEST_F(ContainerNewFile, APaletteFileIsExactly32ZeroBytes) {
    makeProject("Game");
    start();
    makeFile(Palette, "new.pal");
    EXPECT_EQ(content("Kestrel/Game/new.pal"), std::string(32, '\0'));
    EXPECT_EQ(find("new.pal")->itemFileType(), FileType::palette);
    EXPECT_THAT(names(NESBuildSettings(root()).paletteFiles()), ElementsAre("new.pal"));
}

TEST_F(ContainerNewFile, AGraphicsFileIsABlankTileSet) {
    makeProject("Game");
    start();
    makeFile(Graphics, "new.chr");
    EXPECT_EQ(content("Kestrel/Game/new.chr"), std::string(8192, '\0'));
    EXPECT_THAT(names(NESBuildSettings(root()).graphicFiles()), ElementsAre("new.chr"));
}

TEST_F(ContainerNewFile, IsWrittenIntoTheProjectFolderAlsoWhenAGroupIsSelected) {
    makeProject("Game", {group("Parts", {group("Deep")})});
    start();
    click("Deep");
    makeFile(Assembly, "new.asm");
    EXPECT_TRUE(exists("Kestrel/Game/new.asm"));
    EXPECT_EQ(find("new.asm")->itemPath(), home.path() / "Kestrel/Game");
    EXPECT_THAT(names(find("Deep")->subItems()), ElementsAre("new.asm"));
    // The node goes into the group; its parent is that of the group.
    EXPECT_EQ(find("new.asm")->parent(), find("Parts"));
    start();
    EXPECT_EQ(find("new.asm")->parent(), find("Deep"));
}

TEST_F(ContainerNewFile, GoesBesideTheSelectedFileAndBelongsToItsParent) {
    makeProject("Game", {group("Parts", {fileOf("Game", "a.asm", FileType::text)})});
    start();
    click("a.asm");
    makeFile(Assembly, "new.asm");
    EXPECT_THAT(names(find("Parts")->subItems()), ElementsAre("a.asm", "new.asm"));
    EXPECT_EQ(find("new.asm")->parent(), find("Parts"));
    EXPECT_EQ(tree().selectedItem(), find("a.asm"));
}

TEST_F(ContainerNewFile, ThePathOfferedIsTheProjectsFolderAndTheSheetStandsOnTheMainWindow) {
    makeProject("Game");
    start();
    QWidget console; // in front of the main window
    console.show();
    console.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&console));
    command(Option::newFile);
    ASSERT_NE(container->newFileController(), nullptr);
    EXPECT_EQ(container->newFileController()->path(), pathText(home.path() / "Kestrel/Game"));
    EXPECT_EQ(container->newFileController()->parentWindow(), window.get());
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->windowModality(), Qt::WindowModal);
}

TEST_F(ContainerNewFile, ACancelledWizardLeavesTreeAndDiskAsTheyWere) {
    makeProject("Game");
    start();
    const std::string before = content("Kestrel/Game/.project/Game-ProjectStructure.cfg");
    command(Option::newFile);
    QTest::keyClick(sheet(), Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_EQ(content("Kestrel/Game/.project/Game-ProjectStructure.cfg"), before);
    EXPECT_THAT(savedAssemblyFiles(root()), IsEmpty());
}

TEST_F(ContainerNewFile, NoSecondSheetOpensWhileOneIsOpen) {
    makeProject("Game");
    start();
    command(Option::newFile);
    const CreateNewFileController* first = container->newFileController();
    const QPointer<Sheet> open = sheet();
    container->addNewFile();
    container->newProject();
    container->importFile();
    EXPECT_EQ(container->newFileController(), first);
    EXPECT_EQ(container->newProjectController(), nullptr);
    EXPECT_EQ(panels, 0);
    EXPECT_EQ(sheets().size(), 1U);
    finishWizard(first, Assembly, "new.asm");
    EXPECT_THAT(names(root()->subItems()), ElementsAre("new.asm"));
    EXPECT_THAT(sheets(), IsEmpty());
}

TEST_F(ContainerNewFile, WithoutASelectedRowNothingIsAskedOrMade) {
    makeProject("Game");
    start();
    deselect();
    ASSERT_EQ(tree().currentlySelectedProject(), root());
    EXPECT_FALSE(tree().menu()->action(Option::newFile)->isEnabled());
    centre.post(ProjectNavigationMenuClicked, std::any(Option::newFile));
    EXPECT_EQ(sheet(), nullptr);
    const Node node = makeNode("new.asm", FileType::text, {}, root()->itemPath());
    container->addItemToBuildSettingsAndNavigationController(node, root());
    EXPECT_FALSE(exists("Kestrel/Game/new.asm"));
}

TEST_F(ContainerNewFile, ARootThatIsNoProjectHasNoPlaceForAFileBesideIt) {
    makeProject("Game");
    const Node stray = makeNode("stray.asm", FileType::text, {}, home.path() / "Kestrel/Game");
    home.write("Kestrel/Game/.project/Game-ProjectStructure.cfg",
               *serialiseJson(stray->toDictionary()));
    start();
    ASSERT_EQ(tree().selectedItem()->itemName(), "stray.asm");
    command(Option::newFile);
    command(Option::importFile);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(panels, 0);
    command(Option::newGroup);
    EXPECT_FALSE(exists("Kestrel/Game/.project/stray.asm-ProjectStructure.cfg"));
}

TEST_F(ContainerNewFile, AnExistingFileIsKeptBesideTheNewOne) {
    makeProject("Game");
    home.write("Kestrel/Game/main.asm", "precious");
    start();
    makeFile(Assembly, "main.asm");
    EXPECT_EQ(content("Kestrel/Game/main.asm"), "");
    EXPECT_EQ(content("Kestrel/Game/main.asm~"), "precious");
    home.write("Kestrel/Game/main.asm", "second");
    makeFile(Palette, "main.asm");
    EXPECT_EQ(content("Kestrel/Game/main.asm"), std::string(32, '\0'));
    EXPECT_EQ(content("Kestrel/Game/main.asm~"), "precious");
    EXPECT_EQ(content("Kestrel/Game/main.asm~~"), "second");
}

TEST_F(ContainerNewFile, AFolderOfTheNameIsNotReplacedAndNoNodeIsMade) {
    makeProject("Game");
    home.write("Kestrel/Game/main.asm/inside", "precious");
    start();
    makeFile(Assembly, "main.asm");
    EXPECT_EQ(content("Kestrel/Game/main.asm/inside"), "precious");
    EXPECT_FALSE(exists("Kestrel/Game/main.asm~"));
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_THAT(savedAssemblyFiles(root()), IsEmpty());
}

TEST_F(ContainerNewFile, OnAFullDiskTheExistingFileStaysAndNoCopyIsLeft) {
    const Node parent = makeNode("Game", FileType::project, {}, home.path());
    const Node tiles = makeNode("a.chr", FileType::graphics, {}, home.path());
    home.write("a.chr", "old");
    EXPECT_TRUE(holdsWithFileSizeLimit(100, [&] { return !writeNewFile(tiles, *parent); }));
    EXPECT_EQ(content("a.chr"), "old");
    EXPECT_FALSE(exists("a.chr~"));
    home.write("a.chr", std::string(200, 'x'));
    EXPECT_TRUE(holdsWithFileSizeLimit(100, [&] {
        const Node empty = makeNode("a.chr", FileType::text, {}, home.path());
        return !writeNewFile(empty, *parent);
    }));
    EXPECT_EQ(content("a.chr"), std::string(200, 'x'));
    EXPECT_FALSE(exists("a.chr~"));
}

TEST_F(ContainerNewFile, OnAFullDiskNeitherNodeNorFileIsMadeAndTheLogSaysWhy) {
    makeProject("Game", {fileOf("Game", "a.asm", FileType::text)});
    start();
    const std::string structure = content("Kestrel/Game/.project/Game-ProjectStructure.cfg");
    {
        const FullDisk full;
        makeFile(Assembly, "new.asm");
    }
    EXPECT_FALSE(exists("Kestrel/Game/new.asm"));
    EXPECT_THAT(names(root()->subItems()), ElementsAre("a.asm"));
    EXPECT_THAT(savedAssemblyFiles(root()), IsEmpty());
    EXPECT_EQ(content("Kestrel/Game/.project/Game-ProjectStructure.cfg"), structure);
    const std::string settings =
        (home.path() / "Kestrel/Game/.project/Game-BuildSettings.cfg").string();
    EXPECT_THAT(log.lines(),
                testing::IsSupersetOf(
                    {std::string("Could not save build settings"), settings + ": File too large",
                     "The new file " + (home.path() / "Kestrel/Game/new.asm").string() +
                         " was taken back, because the build settings could not be saved"}));
    EXPECT_EQ(tree().selectedItem(), root());
    makeFile(Assembly, "new.asm");
    EXPECT_THAT(names(root()->subItems()), ElementsAre("new.asm", "a.asm"));
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre("new.asm"));
}

TEST_F(ContainerNewFile, AFileWhoseNodeCannotBeSavedInTheStructureIsTakenBack) {
    makeProject("Game");
    home.write("Kestrel/Game/main.asm", "precious");
    start();
    const auto file = home.path() / "Kestrel/Game/.project/Game-ProjectStructure.cfg";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    makeFile(Assembly, "main.asm");
    EXPECT_EQ(content("Kestrel/Game/main.asm"), "precious");
    EXPECT_FALSE(exists("Kestrel/Game/main.asm~"));
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_THAT(savedAssemblyFiles(root()), IsEmpty());
    EXPECT_THAT(log.lines(), testing::Contains(HasSubstr(
                                 "was taken back, because the project's structure could not be "
                                 "saved: the backup " +
                                 file.string())));
}

TEST_F(ContainerNewFile, ATakenBackFileLeavesTheOthersOfItsNameAndACollapsedGroupAlone) {
    const Node inside = fileOf("Game", "same.asm", FileType::text);
    home.write("Kestrel/Game/same.asm", ""); // can be copied on a full disk
    const Node group = makeNode("Group", FileType::group, {inside}, home.path() / "Kestrel/Game");
    makeProject("Game", {group});
    start();
    click("Group");
    view().collapse(tree().model()->indexOf(find("Group")));
    {
        const FullDisk full;
        makeFile(Assembly, "same.asm");
    }
    EXPECT_THAT(names(find("Group")->subItems()), ElementsAre("same.asm"));
    EXPECT_TRUE(exists("Kestrel/Game/same.asm"));
    EXPECT_FALSE(exists("Kestrel/Game/same.asm~"));
    EXPECT_EQ(tree().selectedItem(), find("Group"));
    EXPECT_THAT(log.lines(), testing::Contains(HasSubstr("was taken back")));
}

TEST_F(ContainerNewFile, AFileInAFolderWithoutWritePermissionIsNotMade) {
    if (isRoot()) {
        EXPECT_TRUE(passesAsOrdinaryUser());
        return;
    }
    makeProject("Game");
    start();
    const auto folder = home.path() / "Kestrel/Game";
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    makeFile(Assembly, "new.asm");
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
    EXPECT_FALSE(exists("Kestrel/Game/new.asm"));
    EXPECT_THAT(root()->subItems(), IsEmpty());
}

TEST_F(ContainerNewFile, ANameThatIsTooLongMakesNothing) {
    makeProject("Game");
    start();
    makeFile(Assembly, std::string(300, 'n').c_str());
    EXPECT_THAT(root()->subItems(), IsEmpty());
}

TEST_F(ContainerNewFile, AFileWhoseNameHasNoRoomForATildeIsNotReplaced) {
    makeProject("Game");
    const std::string name(255, 'n');
    home.write("Kestrel/Game/" + name, "precious");
    start();
    makeFile(Assembly, name.c_str());
    EXPECT_EQ(content("Kestrel/Game/" + name), "precious");
    EXPECT_THAT(root()->subItems(), IsEmpty());
}

TEST_F(ContainerNewFile, ARelativeNodeLiesBelowTheProjectsFolder) {
    const Node parent = makeNode("Game", FileType::project, {}, home.path() / "Game");
    const Node node = makeNode("a.asm", FileType::text, {}, "/sub/folder/");
    node->setItemPathType(FilePathType::relative);
    start();
    EXPECT_TRUE(container->createNewFile(node, parent));
    EXPECT_TRUE(exists("Game/sub/folder/a.asm"));
}

TEST_F(ContainerNewFile, ANodeWithoutAPathKindHasNoFile) {
    const Node parent = makeNode("Game", FileType::project, {}, home.path());
    const Node node = makeNode("a.asm", FileType::text, {}, home.path());
    node->setItemPathType(FilePathType::noPath);
    start();
    testing::internal::CaptureStdout();
    EXPECT_FALSE(container->createNewFile(node, parent));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_FALSE(exists("a.asm"));
    EXPECT_FALSE(container->createNewFile(nullptr, parent));
    EXPECT_FALSE(container->createNewFile(node, nullptr));
}

TEST_F(ContainerNewFile, KindsWithoutAFileAreSaidOnStandardOutput) {
    const Node parent = makeNode("Game", FileType::project, {}, home.path());
    start();
    for (const FileType type : {FileType::group, FileType::empty, FileType::unknown}) {
        const Node node = makeNode("thing", type, {}, home.path());
        node->setItemPathType(FilePathType::absolute);
        testing::internal::CaptureStdout();
        EXPECT_FALSE(container->createNewFile(node, parent));
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "Failed to save type\n");
        EXPECT_FALSE(exists("thing"));
    }
}

TEST_F(ContainerNewFile, AProjectNodeGetsItsNameAppendedToItsPathAndItsFiles) {
    const Node node = makeNode("Made", FileType::project, {}, home.path() / "Kestrel");
    start();
    EXPECT_TRUE(container->createNewFile(node, node));
    EXPECT_EQ(node->itemPath(), home.path() / "Kestrel/Made");
    EXPECT_TRUE(exists("Kestrel/Made/Made.kst"));
    EXPECT_TRUE(exists("Kestrel/Made/.project/Made-ProjectStructure.cfg"));
}

TEST_F(ContainerNewFile, ClosingTheWindowWithTheWizardOpenEndsItWithoutAFile) {
    makeProject("Game");
    start();
    command(Option::newFile);
    close();
    EXPECT_EQ(savedStructure(makeNode("Game", FileType::project, {}, home.path() / "Kestrel/Game")),
              "Game\n");
}

TEST_F(ContainerNewFile, TheSettingsPaneIsAskedToShowTheNewSettings) {
    makeProject("Game");
    start();
    auto* settings = new CountingSettings(panes());
    panes()->projectSettings = settings;
    makeFile(Assembly, "new.asm");
    EXPECT_EQ(settings->updates, 1);
    delete settings;
    makeFile(Assembly, "other.asm"); // also without the pane
    EXPECT_EQ(savedStructure(root()), "Game\n  other.asm\n  new.asm\n");
}

} // namespace
} // namespace kestrel::test
