// SPDX-License-Identifier: MIT
#include "model/FileProcessor.h"

#include "model/ModelFixtures.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace kestrel {
namespace {

using namespace test;
using Names = std::vector<std::string>;

/// A home folder in which projects are registered.
class FileProcessorTest : public testing::Test {
protected:
    std::string folderOf(const std::string& name) const {
        return (m_home.path() / "Kestrel" / name).native();
    }

    /// Puts a project on disk and, with the others so far, into the registry.
    void registerProject(const std::string& name, const std::string& projectFile,
                         const std::string& structure) {
        const std::string base = "Kestrel/" + name + "/";
        m_home.write(base + name + ".kst", projectFile);
        m_home.write(base + ".project/" + name + "-ProjectStructure.cfg", structure);
        listProject(name);
    }

    void listProject(const std::string& name) {
        m_registry += m_registry.empty() ? "{" : ",";
        m_registry += "\"" + std::to_string(m_count++) + R"(":{"ProjectName":")" + name +
                      R"(","Path":")" + folderOf(name) + "\"}";
        m_home.write(".Kestrel/AllProjects.cfg", m_registry + "}");
    }

    static std::string projectFile(const std::string& name, const std::string& more = "") {
        return R"({"BuildSettings":".project/)" + name +
               R"(-BuildSettings.cfg","ProjectStructure":".project/)" + name +
               R"(-ProjectStructure.cfg")" + more + "}";
    }

    std::string content(const std::string& relative) const {
        return contentOf(m_home.path() / relative);
    }

    TemporaryHome m_home;
    LogCapture m_log;
    std::string m_registry;
    int m_count = 0;
};

void expectPlaceholder(const std::shared_ptr<ProjectItem>& project, const std::string& name,
                       const std::string& folder) {
    ASSERT_TRUE(project);
    EXPECT_EQ(project->itemName(), name);
    EXPECT_EQ(project->itemPath().native(), folder);
    EXPECT_EQ(project->itemFileType(), FileType::project);
    EXPECT_EQ(project->itemPathType(), FilePathType::absolute);
    EXPECT_TRUE(project->subItems().empty());
    EXPECT_EQ(project->parent(), nullptr);
}

TEST_F(FileProcessorTest, ListsTheTreesOfTheRegisteredProjectsInOrder) {
    registerProject(
        "b", projectFile("b"),
        storedNode("b tree", "project", R"("sub_items":[)" + storedNode("x.asm", "text") + "]"));
    registerProject("a", projectFile("a"), storedNode("a tree", "project"));
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 2U);
    EXPECT_EQ(projects[0]->itemName(), "b tree");
    ASSERT_EQ(projects[0]->subItems().size(), 1U);
    EXPECT_EQ(projects[0]->subItems()[0]->parent(), projects[0]);
    EXPECT_EQ(projects[1]->itemName(), "a tree");
    EXPECT_TRUE(m_log.lines().empty());
}

TEST_F(FileProcessorTest, AProjectWithoutProjectFileIsNotListed) {
    listProject("gone");
    registerProject("there", projectFile("there"), storedNode("there", "project"));
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0]->itemName(), "there");
}

TEST_F(FileProcessorTest, AProjectWithoutStructureFileIsListedEmpty) {
    m_home.write("Kestrel/demo/demo.kst", projectFile("demo"));
    listProject("demo");
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    expectPlaceholder(projects[0], "demo", folderOf("demo"));
    EXPECT_TRUE(m_log.lines().empty());
}

TEST_F(FileProcessorTest, AStructureWhoseRootLacksItsPathIsListedEmptyWithALogLine) {
    registerProject("demo", projectFile("demo"),
                    R"({"name":"demo","path_type":"absolute_path","type":"project"})");
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    expectPlaceholder(projects[0], "demo", folderOf("demo"));
    EXPECT_EQ(m_log.lines(),
              (Names{"FAILLLEED", "The stored node \"demo\": its member \"path\" is missing"}));
}

TEST_F(FileProcessorTest, AStructureThatCannotBeReadIsListedEmpty) {
    const std::string deep(100'000, '[');
    const std::string invalid = "{\"name\":\"\xff\"}";
    int number = 0;
    for (const std::string& text :
         {std::string(), std::string("{"), std::string("[]"), std::string("7"), deep, invalid,
          storedTree(1001), storedTree(100'000)}) {
        const std::string name = "p" + std::to_string(number++);
        registerProject(name, projectFile(name), text);
        const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
        ASSERT_EQ(projects.size(), static_cast<std::size_t>(number));
        expectPlaceholder(projects.back(), name, folderOf(name));
    }
}

TEST_F(FileProcessorTest, AStructureThatIsNoRegularFileOrHugeIsListedEmpty) {
    for (const std::string name : {"folder", "fifo", "huge", "dangling"}) {
        m_home.write("Kestrel/" + name + "/" + name + ".kst", projectFile(name));
        listProject(name);
        const std::string settings = folderOf(name) + "/.project";
        std::filesystem::create_directory(settings);
        const std::string path = settings + "/" + name + "-ProjectStructure.cfg";
        if (name == "folder") {
            std::filesystem::create_directory(path);
        } else if (name == "fifo") {
            ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
        } else if (name == "huge") {
            m_home.write("Kestrel/huge/.project/huge-ProjectStructure.cfg", "{}");
            ASSERT_EQ(::truncate(path.c_str(), 200LL * 1024 * 1024), 0);
        } else {
            std::filesystem::create_symlink("nowhere", path);
        }
    }
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 4U);
    expectPlaceholder(projects[0], "folder", folderOf("folder"));
    expectPlaceholder(projects[1], "fifo", folderOf("fifo"));
    expectPlaceholder(projects[2], "huge", folderOf("huge"));
    expectPlaceholder(projects[3], "dangling", folderOf("dangling"));
}

TEST_F(FileProcessorTest, AStructureOfAThousandLevelsIsLoadedAndSaved) {
    registerProject("deep", projectFile("deep"), storedTree(1000));
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(depthOf(projects[0]), 1000);
    const auto text = serialiseJson(projects[0]->toDictionary());
    ASSERT_TRUE(text);
    EXPECT_TRUE(FileProcessor::saveDataFile(
        folderOf("deep") + "/.project/deep-ProjectStructure.cfg", *text));
    EXPECT_EQ(depthOf(FileProcessor::loadRecentlyConfiguredProjects().at(0)), 1000);
}

TEST_F(FileProcessorTest, ProjectFilesThatCannotBeUnderstoodAreNotListed) {
    int number = 0;
    for (const std::string text :
         {"", "{", "[]", "\"x\"", "{}", R"({"BuildSettings":"x"})", R"({"ProjectStructure":7})"}) {
        const std::string name = "p" + std::to_string(number++);
        registerProject(name, text, storedNode(name, "project"));
    }
    EXPECT_TRUE(FileProcessor::loadRecentlyConfiguredProjects().empty());
}

TEST_F(FileProcessorTest, AnExtraNumberInTheProjectFileMattersToTheListButNotToOpening) {
    registerProject("demo", projectFile("demo", R"(,"Version":1)"), storedNode("demo", "project"));
    EXPECT_TRUE(FileProcessor::loadRecentlyConfiguredProjects().empty());
    const auto opened = FileProcessor::retrieveConfiguration(folderOf("demo") + "/demo.kst");
    ASSERT_TRUE(opened);
    EXPECT_EQ(stringMember(*opened, "name"), "demo");
}

TEST_F(FileProcessorTest, AnExtraStringInTheProjectFileDisturbsNeither) {
    registerProject("demo", projectFile("demo", R"(,"Version":"1")"), storedNode("x", "project"));
    EXPECT_EQ(FileProcessor::loadRecentlyConfiguredProjects().size(), 1U);
    EXPECT_TRUE(FileProcessor::retrieveConfiguration(folderOf("demo") + "/demo.kst"));
}

TEST_F(FileProcessorTest, TheStructureLiesWhereTheProjectFileSays) {
    registerProject("demo", R"({"ProjectStructure":"/other/tree.cfg"})", "");
    m_home.write("Kestrel/demo/other/tree.cfg", storedNode("other tree", "project"));
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0]->itemName(), "other tree");
    const auto opened = FileProcessor::retrieveConfiguration(folderOf("demo") + "/demo.kst");
    ASSERT_TRUE(opened);
    EXPECT_EQ(stringMember(*opened, "name"), "other tree");
}

/// One folder spelled in a way of its own for each number: "/." for a bit that is set, "/" for one
/// that is not.
std::string spelling(std::string folder, int number) {
    for (int bit = 0; bit < 14; ++bit) {
        folder += (number >> bit & 1) != 0 ? "/." : "/";
    }
    return folder + "/x/..";
}

TEST_F(FileProcessorTest, TenThousandProjectsAreListedInOrder) {
    constexpr int Count = 10'000;
    const std::string folder = (m_home.path() / "p").native();
    m_home.write("p/demo.kst", R"({"ProjectStructure":"none.cfg"})");
    m_home.write("p/x/file", "");
    std::string registry = R"({"version":"1")";
    for (int i = 0; i < Count; ++i) {
        registry += ",\"" + std::to_string(i) + R"(":{"ProjectName":"demo","Path":")" +
                    spelling(folder, i) + "\"}";
    }
    m_home.write(".Kestrel/AllProjects.cfg", registry + "}");
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), static_cast<std::size_t>(Count));
    for (int i = 0; i < Count; ++i) {
        ASSERT_EQ(projects[static_cast<std::size_t>(i)]->itemPath().native(), spelling(folder, i));
    }
    EXPECT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(projects.front()));
    EXPECT_TRUE(FileProcessor::saveRecentlyConfiguredProjects(projects));
    EXPECT_EQ(FileProcessor::loadRecentlyConfiguredProjects().size(), projects.size());
    EXPECT_EQ(namesIn(m_home.path() / ".Kestrel"), Names{"AllProjects.cfg"});
}

TEST_F(FileProcessorTest, ANewProjectGetsSettingsProjectFileAndStructure) {
    const auto project = makeProject("demo", folderOf("demo"));
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(project));
    EXPECT_EQ(content("Kestrel/demo/demo.kst"), projectFile("demo"));
    EXPECT_EQ(content("Kestrel/demo/.project/demo-ProjectStructure.cfg"),
              project->toDictionary().dump());
    EXPECT_EQ(parseJson(content("Kestrel/demo/.project/demo-BuildSettings.cfg")),
              parseJson(R"({"Version":"1","output_folder":")" + folderOf("demo") +
                        R"(/output","emulator":"","code_assembly_files":[],"graphic_files":[],)"
                        R"("palette_files":[]})"));
    EXPECT_EQ(m_log.lines(), Names{"Did save build settings"});
    EXPECT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(project));
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0]->toDictionary(), project->toDictionary());
}

TEST_F(FileProcessorTest, CreatingAProjectTwiceLeavesItsProjectAndStructureFiles) {
    const auto project = makeProject("demo", folderOf("demo"));
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(project));
    const std::string structure = content("Kestrel/demo/.project/demo-ProjectStructure.cfg");
    m_home.write("Kestrel/demo/demo.kst", "mine");
    addChild(project, makeText("a.asm", "/a"));
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(project));
    EXPECT_EQ(content("Kestrel/demo/demo.kst"), "mine");
    EXPECT_EQ(content("Kestrel/demo/.project/demo-ProjectStructure.cfg"), structure);
}

TEST_F(FileProcessorTest, CreatingAProjectOverExistingSettingsKeepsThem) {
    m_home.write("Kestrel/demo/.project/demo-BuildSettings.cfg",
                 R"({"output_folder":"/o","emulator":"/usr/bin/emu","code_assembly_files":[)" +
                     storedNode("a.asm", "text") + "]}");
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(makeProject("demo", folderOf("demo"))));
    const auto settings = parseJson(content("Kestrel/demo/.project/demo-BuildSettings.cfg"));
    ASSERT_TRUE(settings);
    EXPECT_EQ(stringMember(*settings, "emulator"), "/usr/bin/emu");
    EXPECT_EQ(stringMember(*settings, "output_folder"), folderOf("demo") + "/output");
    EXPECT_EQ(member(*settings, "code_assembly_files")->size(), 1U);
}

TEST_F(FileProcessorTest, CreatingAProjectOverSettingsThatAreNotUnderstoodKeepsACopy) {
    m_home.write("Kestrel/demo/.project/demo-BuildSettings.cfg", "no json");
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(makeProject("demo", folderOf("demo"))));
    EXPECT_EQ(content("Kestrel/demo/.project/demo-BuildSettings.cfg.bak"), "no json");
    EXPECT_TRUE(parseJson(content("Kestrel/demo/.project/demo-BuildSettings.cfg")));
}

TEST_F(FileProcessorTest, TheProjectFileLiesBelowTheHomeAndTheStructureInTheProjectsOwnFolder) {
    const auto elsewhere = m_home.path() / "elsewhere";
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(makeProject("demo", elsewhere)));
    EXPECT_EQ(content("Kestrel/demo/demo.kst"), projectFile("demo"));
    EXPECT_EQ(namesIn(folderOf("demo")), Names{"demo.kst"});
    EXPECT_EQ(namesIn(elsewhere / ".project"),
              (Names{"demo-BuildSettings.cfg", "demo-ProjectStructure.cfg"}));
}

TEST_F(FileProcessorTest, AProjectWhoseNameIsNotUtf8IsNotCreated) {
    EXPECT_FALSE(FileProcessor::createFilesForNewProject(makeProject("\xff", folderOf("\xff"))));
    EXPECT_FALSE(FileProcessor::createFilesForNewProject(nullptr));
    ASSERT_EQ(m_log.lines().size(), 2U);
    EXPECT_EQ(m_log.lines()[0], "Could not save build settings");
    EXPECT_TRUE(
        m_log.lines()[1].ends_with(": a text in it is not UTF-8, or it is nested too deep"));
    EXPECT_TRUE(namesIn(m_home.path()).empty());
}

TEST_F(FileProcessorTest, AProjectWhoseTreeIsTooDeepIsNotCreated) {
    const auto project = makeProject("demo", folderOf("demo"));
    auto node = project;
    for (int i = 0; i < 1000; ++i) {
        node = addChild(node, makeGroup("g"));
    }
    EXPECT_FALSE(FileProcessor::createFilesForNewProject(project));
    EXPECT_FALSE(std::filesystem::exists(folderOf("demo") + "/demo.kst"));
    EXPECT_FALSE(std::filesystem::exists(folderOf("demo") + "/.project/demo-ProjectStructure.cfg"));
}

TEST_F(FileProcessorTest, AProjectIsNotCreatedWhereItsFolderCannotBeMade) {
    m_home.write("Kestrel", "a file");
    EXPECT_FALSE(
        FileProcessor::createFilesForNewProject(makeProject("demo", m_home.path() / "other")));
    EXPECT_EQ(content("Kestrel"), "a file");
}

TEST_F(FileProcessorTest, FilesOfANewProjectThatCannotBeWrittenAreNotReported) {
    // 255 bytes are a folder's name still, but leave no room for the endings.
    const std::string name(255, 'n');
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(makeProject(name, folderOf(name))));
    EXPECT_EQ(namesIn(folderOf(name)), Names{".project"});
    EXPECT_TRUE(namesIn(folderOf(name) + "/.project").empty());
    ASSERT_EQ(m_log.lines().size(), 2U);
    EXPECT_EQ(m_log.lines()[0], "Could not save build settings");
    EXPECT_TRUE(m_log.lines()[1].ends_with("-BuildSettings.cfg: File name too long"));
    EXPECT_FALSE(
        FileProcessor::createFilesForNewProject(makeProject(name + "n", m_home.path() / "other")));
}

TEST_F(FileProcessorTest, TheLongestNameWhoseFilesFitWorks) {
    const std::string name(255 - ProjectStructureConfigurationExtension.size(), 'n');
    const auto project = makeProject(name, folderOf(name));
    EXPECT_TRUE(FileProcessor::createFilesForNewProject(project));
    EXPECT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(project));
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0]->toDictionary(), project->toDictionary());
}

TEST_F(FileProcessorTest, OpeningGivesTheObjectInTheStructureFile) {
    registerProject("demo", projectFile("demo"), R"({"anything":[1]})");
    EXPECT_EQ(FileProcessor::retrieveConfiguration(folderOf("demo") + "/demo.kst"),
              parseJson(R"({"anything":[1]})"));
}

TEST_F(FileProcessorTest, OpeningByABareFileNameLooksInTheWorkingFolder) {
    registerProject("demo", projectFile("demo"), R"({"a":1})");
    const auto former = std::filesystem::current_path();
    std::filesystem::current_path(folderOf("demo"));
    const auto opened = FileProcessor::retrieveConfiguration("demo.kst");
    std::filesystem::current_path(former);
    EXPECT_EQ(opened, parseJson(R"({"a":1})"));
}

TEST_F(FileProcessorTest, OpeningWhatCannotBeUnderstoodGivesNothing) {
    const std::string path = folderOf("demo") + "/demo.kst";
    EXPECT_FALSE(FileProcessor::retrieveConfiguration(path));
    EXPECT_FALSE(FileProcessor::retrieveConfiguration(""));
    EXPECT_FALSE(FileProcessor::retrieveConfiguration(m_home.path()));
    for (const std::string text :
         {"", "[]", "{}", R"({"ProjectStructure":7})", "\"x\"", R"({"ProjectStructure":""})",
          R"({"ProjectStructure":"none"})"}) {
        m_home.write("Kestrel/demo/demo.kst", text);
        EXPECT_FALSE(FileProcessor::retrieveConfiguration(path)) << text;
    }
    for (const std::string structure : {"", "[]", "7", "{"}) {
        registerProject("demo", projectFile("demo"), structure);
        EXPECT_FALSE(FileProcessor::retrieveConfiguration(path)) << structure;
    }
}

TEST_F(FileProcessorTest, ProjectsWithUnreadableFilesAreLeftOutOrListedEmpty) {
    if (isRoot()) {
        EXPECT_TRUE(passesAsOrdinaryUser());
        return;
    }
    registerProject("closed", projectFile("closed"), storedNode("closed", "project"));
    registerProject("lost", projectFile("lost"), storedNode("lost tree", "project"));
    ASSERT_EQ(::chmod((folderOf("closed") + "/closed.kst").c_str(), 0), 0);
    ASSERT_EQ(::chmod((folderOf("lost") + "/.project/lost-ProjectStructure.cfg").c_str(), 0), 0);
    const auto projects = FileProcessor::loadRecentlyConfiguredProjects();
    ASSERT_EQ(projects.size(), 1U);
    expectPlaceholder(projects[0], "lost", folderOf("lost"));
    EXPECT_FALSE(FileProcessor::retrieveConfiguration(folderOf("closed") + "/closed.kst"));
    EXPECT_FALSE(FileProcessor::retrieveConfiguration(folderOf("lost") + "/lost.kst"));
}

TEST_F(FileProcessorTest, AnAbsoluteFileIsLookedForByFolderAndName) {
    m_home.write("data/a.asm", "");
    const auto project = makeProject("demo", "/nowhere");
    const auto file = makeText("a.asm", m_home.path() / "data");
    EXPECT_TRUE(FileProcessor::isFilePresent(file, project));
    EXPECT_TRUE(FileProcessor::isFilePresent(file, nullptr));
    file->setItemName("b.asm");
    EXPECT_FALSE(FileProcessor::isFilePresent(file, project));
}

TEST_F(FileProcessorTest, ARelativeFileIsLookedForByProjectFolderAndPathWithoutItsName) {
    m_home.write("demo/data/a.asm", "");
    const auto project = makeProject("demo", m_home.path() / "demo");
    for (const FilePathType kind : {FilePathType::relative, FilePathType::noPath}) {
        EXPECT_TRUE(FileProcessor::isFilePresent(
            makeNode("other name", "data", FileType::text, kind), project));
        EXPECT_TRUE(FileProcessor::isFilePresent(makeNode("x", "data/a.asm/", FileType::text, kind),
                                                 project));
        EXPECT_TRUE(
            FileProcessor::isFilePresent(makeNode("x", "/data", FileType::text, kind), project));
        EXPECT_TRUE(FileProcessor::isFilePresent(makeNode("x", "", FileType::text, kind), project));
        EXPECT_FALSE(
            FileProcessor::isFilePresent(makeNode("a.asm", "none", FileType::text, kind), project));
        EXPECT_FALSE(
            FileProcessor::isFilePresent(makeNode("x", "data", FileType::text, kind), nullptr));
    }
    EXPECT_FALSE(FileProcessor::isFilePresent(nullptr, project));
}

TEST_F(FileProcessorTest, SavingTextMakesTheFoldersFirst) {
    const auto path = m_home.path() / "a/b/c.asm";
    EXPECT_TRUE(FileProcessor::saveTextFile(path, "; caf\xc3\xa9\r\n"));
    EXPECT_EQ(contentOf(path), "; caf\xc3\xa9\r\n");
    EXPECT_TRUE(FileProcessor::saveTextFile(path, "x"));
    EXPECT_EQ(contentOf(path), "x");
}

TEST_F(FileProcessorTest, SavingNoTextGivesAnEmptyFile) {
    const auto path = m_home.write("a.asm", "old");
    EXPECT_TRUE(FileProcessor::saveTextFile(path, std::nullopt));
    EXPECT_EQ(contentOf(path), "");
}

TEST_F(FileProcessorTest, SavingDataKeepsEveryByte) {
    const std::string data("\0\xff\r\n\0", 5);
    EXPECT_TRUE(FileProcessor::saveDataFile(m_home.path() / "new/a.chr", data));
    EXPECT_EQ(content("new/a.chr"), data);
}

TEST_F(FileProcessorTest, SavingWhereNoFolderCanBeFails) {
    m_home.write("file", "x");
    EXPECT_FALSE(FileProcessor::saveTextFile(m_home.path() / "file/a.asm", "y"));
    EXPECT_FALSE(FileProcessor::saveDataFile(m_home.path() / "file/a.chr", "y"));
    EXPECT_FALSE(FileProcessor::saveDataFile(m_home.path(), "y"));
    EXPECT_FALSE(FileProcessor::saveDataFile("", "y"));
    EXPECT_EQ(content("file"), "x");
}

} // namespace
} // namespace kestrel
