// SPDX-License-Identifier: MIT
#include "build/NESProjectBuilder.h"
#include "navigation/container/ContainerFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// What the wizard says of a name, and whether that comes true.
class ContainerNames : public ContainerTest {
protected:
    /// Types a name, returns what the wizard says of it, and lets it make the file or project.
    static std::string noteAndMake(const NewItemController* request, const char* name) {
        AddNewItemController& wizard = *request->newItemController();
        QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
        const auto* page = wizard.pageController()->createNewItemPathController();
        QTest::keyClicks(page->fileNameTextField(), QString::fromUtf8(name));
        const std::string note = page->existingItemLabel()->text().toStdString();
        QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
        QApplication::processEvents();
        return note;
    }

    std::string makeFileNamed(const char* name) const {
        command(Option::newFile);
        return noteAndMake(container->newFileController(), name);
    }

    std::string makeProjectNamed(const char* name) const {
        command(Option::newProject);
        return noteAndMake(container->newProjectController(), name);
    }

    /// Whether the first project gets as far as to the search for its main file.
    bool isBuilt() const {
        std::string error;
        const auto builder =
            std::make_shared<NESProjectBuilder>(std::make_shared<NESBuildSettings>(root()),
                                                [] { return std::filesystem::path("/bin/true"); });
        builder->build([&](const auto& /*image*/, const std::optional<BuildError>& problem) {
            error = problem ? problem->description.value_or("") : "";
        });
        EXPECT_THAT(error, testing::StartsWith("Could not "));
        return error == "Could not find main entry point for assembly file(s)";
    }
};

TEST_F(ContainerNames, AProjectWhoseFileIsReplacedIsNotFoundAgain) {
    makeProject("Game");
    start();
    const std::string note = makeFileNamed("Game.kst");
    EXPECT_THAT(note, HasSubstr("This is a project file."));
    EXPECT_THAT(note, HasSubstr("will not be found again"));
    EXPECT_THAT(note, HasSubstr("the old file is kept beside it, with \"~\""));
    start();
    EXPECT_THAT(tree().allItems(), IsEmpty());
    std::filesystem::rename(home.path() / "Kestrel/Game/Game.kst~",
                            home.path() / "Kestrel/Game/Game.kst");
    start();
    EXPECT_THAT(names(tree().allItems()), ElementsAre("Game"));
}

TEST_F(ContainerNames, BuildSettingsThatAreReplacedAreLost) {
    const Node game = makeProject("Game");
    NESBuildSettings(game).addNewFile(fileOf("Game", "a.asm", FileType::text));
    start();
    const std::string before = content("Kestrel/Game/.project/Game-BuildSettings.cfg");
    EXPECT_THAT(makeFileNamed(".project/Game-BuildSettings.cfg"), HasSubstr("so they are lost"));
    EXPECT_THAT(savedAssemblyFiles(root()), ElementsAre(".project/Game-BuildSettings.cfg"));
    EXPECT_EQ(content("Kestrel/Game/.project/Game-BuildSettings.cfg~"), before);
}

TEST_F(ContainerNames, TheNameOfAFolderMakesNoFileAndLeavesNoFolder) {
    makeProject("Game");
    home.write("Kestrel/Game/sub/inside", "");
    start();
    EXPECT_THAT(makeFileNamed("new/"), HasSubstr("name of a folder, so the file cannot be made"));
    EXPECT_THAT(makeFileNamed("new/deep/"), HasSubstr("name of a folder"));
    EXPECT_THAT(makeFileNamed("new/.."), HasSubstr("name of a folder"));
    EXPECT_THAT(makeFileNamed("sub/"), HasSubstr("A folder of this name is there already"));
    EXPECT_FALSE(exists("Kestrel/Game/new"));
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_THAT(savedAssemblyFiles(root()), IsEmpty());
    EXPECT_EQ(makeFileNamed("new/a.asm"), "");
    EXPECT_TRUE(exists("Kestrel/Game/new/a.asm"));
}

TEST_F(ContainerNames, BelowAFileNoFileIsMade) {
    makeProject("Game");
    home.write("Kestrel/Game/main.asm", "precious");
    start();
    EXPECT_EQ(makeFileNamed("main.asm/new"),
              "\"main.asm\" is a file and no folder, so the file cannot be made.");
    EXPECT_THAT(makeFileNamed("main.asm/"), HasSubstr("so the file cannot be made"));
    EXPECT_THAT(root()->subItems(), IsEmpty());
    EXPECT_EQ(content("Kestrel/Game/main.asm"), "precious");
}

TEST_F(ContainerNames, WhereTheFolderOfProjectsIsAFileNoProjectIsMade) {
    home.write("Kestrel", "a file in the way");
    start();
    EXPECT_EQ(makeProjectNamed("Fresh"),
              "\"Kestrel\" is a file and no folder, so the project's folder cannot be made.");
    EXPECT_THAT(tree().allItems(), IsEmpty());
    EXPECT_THAT(registered(), IsEmpty());
    EXPECT_EQ(content("Kestrel"), "a file in the way");
}

TEST_F(ContainerNames, AProjectWithASeparatorInItsNameIsOpenedAgainButNotBuilt) {
    for (const char* const name : {"/lead", "../up", "../Kestrel2/../beside"}) {
        SCOPED_TRACE(name);
        start();
        const std::string note = makeProjectNamed(name);
        start();
        const bool found = !tree().allItems().empty();
        EXPECT_EQ(note.find("can be opened again, but not be built") != std::string::npos, found);
        EXPECT_EQ(note.find("will not be found again") != std::string::npos, !found);
        if (found) {
            EXPECT_EQ(root()->itemName(), name);
            EXPECT_FALSE(isBuilt());
        }
        std::filesystem::remove(home.path() / ".Kestrel/AllProjects.cfg");
    }
}

TEST_F(ContainerNames, AProjectWithoutAFolderForItsFileIsNotFoundAgain) {
    for (const char* const name : {"a/b", "trail/", "../Kestrel/x"}) {
        SCOPED_TRACE(name);
        start();
        EXPECT_THAT(makeProjectNamed(name), HasSubstr("will not be found again"));
        EXPECT_THAT(names(tree().allItems()), ElementsAre(name));
        start();
        EXPECT_THAT(tree().allItems(), IsEmpty());
    }
}

TEST_F(ContainerNames, APlainNameIsSaidNothingOfAndCanBeBuilt) {
    start();
    EXPECT_EQ(makeProjectNamed("plain"), "");
    start();
    EXPECT_THAT(names(tree().allItems()), ElementsAre("plain"));
    EXPECT_TRUE(isBuilt());
}

} // namespace
} // namespace kestrel::test
