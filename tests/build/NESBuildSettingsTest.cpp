// SPDX-License-Identifier: MIT
#include "build/NESBuildSettings.h"

#include "model/FileReader.h"
#include "model/Paths.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel {
namespace {

using test::contentOf;
using test::LogCapture;
using test::TemporaryHome;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::shared_ptr<ProjectItem> node(const std::string& name, FileType type,
                                  const std::filesystem::path& path = "/src") {
    auto item = std::make_shared<ProjectNavigationSettingItem>(name, path, type, ProjectType::nes);
    if (type != FileType::group) {
        item->setItemPathType(FilePathType::absolute);
    }
    return item;
}

std::vector<std::string> namesOf(const ProjectItems& items) {
    std::vector<std::string> names;
    for (const auto& item : items) {
        names.push_back(item->itemName());
    }
    return names;
}

std::string entry(const std::string& name, const std::string& type) {
    return R"({"name":")" + name + R"(","type":")" + type +
           R"(","path":"/src","path_type":"absolute_path","project_type":"nes","sub_items":[]})";
}

class NESBuildSettingsTest : public ::testing::Test {
protected:
    std::filesystem::path file() const {
        return m_home.path() / "Game/.project/Game-BuildSettings.cfg";
    }
    void writeFile(const std::string& text) const {
        m_home.write("Game/.project/Game-BuildSettings.cfg", text);
    }
    Dictionary stored() const { return readJsonFile(file()).value_or(Dictionary()); }

    TemporaryHome m_home;
    LogCapture m_log;
    std::shared_ptr<ProjectItem> m_project =
        node("Game", FileType::project, m_home.path() / "Game");
};

TEST_F(NESBuildSettingsTest, AnEmptyRecordHasAPlaceholderProjectAndNothingElse) {
    NESBuildSettings settings;
    EXPECT_THAT(settings.assemblyFiles(), IsEmpty());
    EXPECT_THAT(settings.graphicFiles(), IsEmpty());
    EXPECT_THAT(settings.paletteFiles(), IsEmpty());
    EXPECT_FALSE(settings.pathToEmulator());
    EXPECT_FALSE(settings.outputFilePath());
    EXPECT_FALSE(settings.projectPath());
    const auto& placeholder = settings.projectToBuild();
    EXPECT_EQ(placeholder->itemName(), "Empty");
    EXPECT_EQ(placeholder->itemFileType(), FileType::unknown);
    EXPECT_EQ(placeholder->itemPathType(), FilePathType::noPath);
    EXPECT_EQ(placeholder->itemPath(), m_home.path() / "Kestrel");
    EXPECT_EQ(placeholder->parent(), nullptr);
    EXPECT_THAT(placeholder->subItems(), IsEmpty());
}

TEST_F(NESBuildSettingsTest, ThePlaceholderIsNeverSaved) {
    NESBuildSettings().saveBuildSettings();
    EXPECT_FALSE(existsAt(m_home.path() / "Kestrel"));
    EXPECT_THAT(m_log.lines(),
                ElementsAre("Could not save build settings", "Empty: no project was set"));
}

TEST_F(NESBuildSettingsTest, AProjectOfAnOddKindIsSavedLikeAnyOther) {
    const auto odd = std::make_shared<ProjectNavigationSettingItem>(
        "Game", m_home.path() / "Game", FileType::unknown, ProjectType::nes);
    NESBuildSettings(odd).saveBuildSettings();
    EXPECT_TRUE(existsAt(file()));
    EXPECT_THAT(m_log.lines(), ElementsAre("Did save build settings"));
}

TEST_F(NESBuildSettingsTest, WithoutAFileOnlyTheProjectIsSet) {
    NESBuildSettings settings(m_project);
    EXPECT_EQ(settings.projectToBuild(), m_project);
    EXPECT_EQ(settings.projectPath(), m_home.path() / "Game");
    EXPECT_FALSE(settings.outputFilePath());
    EXPECT_FALSE(settings.pathToEmulator());
    EXPECT_THAT(settings.assemblyFiles(), IsEmpty());
    EXPECT_FALSE(existsAt(m_home.path() / "Game/.project"));
}

TEST_F(NESBuildSettingsTest, LoadsEverythingThatTheFileHolds) {
    writeFile(R"({"Version":"1","output_folder":"/elsewhere","emulator":"/usr/bin/emu",)"
              R"("code_assembly_files":[)" +
              entry("a.asm", "text") + "," + entry("b.asm", "text") + R"(],"graphic_files":[)" +
              entry("t.chr", "graphics") + R"(],"palette_files":[)" + entry("p.pal", "palette") +
              "]}");
    NESBuildSettings settings(m_project);
    EXPECT_EQ(settings.outputFilePath(), "/elsewhere");
    EXPECT_EQ(settings.pathToEmulator(), "/usr/bin/emu");
    EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("a.asm", "b.asm"));
    EXPECT_THAT(namesOf(settings.graphicFiles()), ElementsAre("t.chr"));
    EXPECT_THAT(namesOf(settings.paletteFiles()), ElementsAre("p.pal"));
}

TEST_F(NESBuildSettingsTest, AnOutputFolderThatIsANumberLoadsNothingAtAll) {
    writeFile(R"({"output_folder":5,"emulator":"/usr/bin/emu","code_assembly_files":[)" +
              entry("a.asm", "text") + R"(],"graphic_files":[)" + entry("t.chr", "graphics") +
              R"(],"palette_files":[)" + entry("p.pal", "palette") + "]}");
    NESBuildSettings settings(m_project);
    EXPECT_FALSE(settings.outputFilePath());
    EXPECT_FALSE(settings.pathToEmulator());
    EXPECT_THAT(settings.assemblyFiles(), IsEmpty());
    EXPECT_THAT(settings.graphicFiles(), IsEmpty());
    EXPECT_THAT(settings.paletteFiles(), IsEmpty());
    EXPECT_EQ(settings.projectPath(), m_home.path() / "Game");
}

TEST_F(NESBuildSettingsTest, AMissingEmulatorLoadsNothingAtAll) {
    writeFile(R"({"output_folder":"/o","code_assembly_files":[)" + entry("a.asm", "text") + "]}");
    NESBuildSettings settings(m_project);
    EXPECT_FALSE(settings.outputFilePath());
    EXPECT_THAT(settings.assemblyFiles(), IsEmpty());
}

TEST_F(NESBuildSettingsTest, AnEmptyEmulatorIsNoneAndNoneIsWrittenAsEmpty) {
    writeFile(R"({"output_folder":"/o","emulator":""})");
    NESBuildSettings settings(m_project);
    EXPECT_FALSE(settings.pathToEmulator());
    settings.saveBuildSettings();
    EXPECT_EQ(stored()["emulator"], "");
}

TEST_F(NESBuildSettingsTest, AnEmptyOutputFolderIsTakenAsItIs) {
    writeFile(R"({"output_folder":"","emulator":""})");
    NESBuildSettings settings(m_project);
    ASSERT_TRUE(settings.outputFilePath());
    EXPECT_EQ(settings.outputFilePath()->string(), "");
}

TEST_F(NESBuildSettingsTest, AListThatIsNoListOfObjectsIsEmptyAndTheOthersLoad) {
    writeFile(R"({"output_folder":"/o","emulator":"","code_assembly_files":[)" +
              entry("a.asm", "text") + R"(,7],"graphic_files":"none","palette_files":[)" +
              entry("p.pal", "palette") + "]}");
    NESBuildSettings settings(m_project);
    EXPECT_THAT(settings.assemblyFiles(), IsEmpty());
    EXPECT_THAT(settings.graphicFiles(), IsEmpty());
    EXPECT_THAT(namesOf(settings.paletteFiles()), ElementsAre("p.pal"));
}

TEST_F(NESBuildSettingsTest, AnEntryThatIsNoNodeIsSkippedAndTheOrderKept) {
    writeFile(R"({"output_folder":"/o","emulator":"","code_assembly_files":[)" +
              entry("a.asm", "text") + R"(,{"name":"x"},)" + entry("b.asm", "text") + "]}");
    NESBuildSettings settings(m_project);
    EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("a.asm", "b.asm"));
    settings.saveBuildSettings();
    EXPECT_EQ(stored()["code_assembly_files"].size(), 2U) << "it goes at the next save";
    EXPECT_TRUE(existsAt(file().string() + ".bak"));
}

TEST_F(NESBuildSettingsTest, AFileThatCannotBeParsedLeavesWhatTheRecordHolds) {
    NESBuildSettings settings(m_project);
    settings.assemblyFiles().push_back(node("kept.asm", FileType::text));
    for (const char* text : {"", "[]", "5", "{\"output_folder\":", "\xff\xfe"}) {
        writeFile(text);
        settings.populateProperties(*m_project);
        EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("kept.asm")) << text;
    }
}

TEST_F(NESBuildSettingsTest, ANewProjectGetsItsOutputFolderAndEmptyLists) {
    NESBuildSettings(m_project).saveBuildSettings();
    const auto written = stored();
    EXPECT_EQ(written["Version"], "1");
    EXPECT_EQ(written["output_folder"], (m_home.path() / "Game/output").string());
    EXPECT_EQ(written["emulator"], "");
    for (const char* list : {"code_assembly_files", "graphic_files", "palette_files"}) {
        EXPECT_EQ(written[list], Dictionary::array()) << list;
    }
    EXPECT_EQ(written.size(), 6U);
    EXPECT_THAT(m_log.lines(), ElementsAre("Did save build settings"));
    EXPECT_NE(contentOf(file()).find('\n'), std::string::npos) << "written on one line";
}

TEST_F(NESBuildSettingsTest, SavingAlwaysWritesTheProjectsOwnOutputFolder) {
    writeFile(R"({"output_folder":"/elsewhere","emulator":""})");
    NESBuildSettings settings(m_project);
    settings.saveBuildSettings();
    EXPECT_EQ(stored()["output_folder"], (m_home.path() / "Game/output").string());
    EXPECT_EQ(settings.outputFilePath(), "/elsewhere");
}

TEST_F(NESBuildSettingsTest, WhatIsSavedIsLoadedAgain) {
    NESBuildSettings settings(m_project);
    settings.pathToEmulator() = "/usr/bin/emu";
    settings.assemblyFiles() = {node("a.asm", FileType::text), node("b.asm", FileType::text)};
    settings.graphicFiles() = {node("t.chr", FileType::graphics)};
    settings.paletteFiles() = {node("p.pal", FileType::palette)};
    settings.saveBuildSettings();
    NESBuildSettings again(m_project);
    EXPECT_EQ(again.pathToEmulator(), "/usr/bin/emu");
    ASSERT_THAT(namesOf(again.assemblyFiles()), ElementsAre("a.asm", "b.asm"));
    EXPECT_THAT(namesOf(again.graphicFiles()), ElementsAre("t.chr"));
    EXPECT_THAT(namesOf(again.paletteFiles()), ElementsAre("p.pal"));
    EXPECT_EQ(again.assemblyFiles()[0]->itemPathType(), FilePathType::absolute);
    EXPECT_EQ(again.assemblyFiles()[0]->itemPath(), "/src");
}

TEST_F(NESBuildSettingsTest, ANameThatIsNotTextMakesTheSaveFail) {
    NESBuildSettings settings(m_project);
    settings.assemblyFiles() = {node("\xff.asm", FileType::text)};
    settings.saveBuildSettings();
    EXPECT_FALSE(existsAt(file()));
    EXPECT_THAT(
        m_log.lines(),
        ElementsAre("Could not save build settings",
                    file().string() + ": a text in it is not UTF-8, or it is nested too deep"));
}

TEST_F(NESBuildSettingsTest, ASaveThatFailsIsLogged) {
    m_home.write("Game/.project", "a file where the folder should be");
    NESBuildSettings(m_project).saveBuildSettings();
    EXPECT_THAT(m_log.lines(), ElementsAre("Could not save build settings",
                                           file().string() + ": Not a directory"));
}

TEST_F(NESBuildSettingsTest, WhyExistingSettingsCannotBeReadIsLogged) {
    const std::string before = "The build settings " + file().string() + " could not be read: ";
    NESBuildSettings missing(m_project);
    EXPECT_THAT(m_log.lines(), IsEmpty());
    m_home.write("Game/.project/Game-BuildSettings.cfg", "{\"emulator\":\"\",\n  output}");
    NESBuildSettings cut(m_project);
    m_home.write("Game/.project/Game-BuildSettings.cfg", "[]");
    NESBuildSettings list(m_project);
    m_home.write("Game/.project/Game-BuildSettings.cfg", R"({"emulator":"","output_folder":7})");
    NESBuildSettings wrong(m_project);
    m_home.write("Game/.project/Game-BuildSettings.cfg", R"({"output_folder":""})");
    NESBuildSettings without(m_project);
    EXPECT_THAT(m_log.lines(), ElementsAre(StartsWith(before + "parse error at line 2, column 3: "),
                                           before + "it is no JSON object",
                                           before + "its member \"output_folder\" is no text",
                                           before + "its member \"emulator\" is missing"));
}

TEST_F(NESBuildSettingsTest, ANewFileGoesToTheListOfItsKindAndIsSaved) {
    NESBuildSettings settings(m_project);
    settings.addNewFile(node("a.asm", FileType::text));
    settings.addNewFile(node("t.chr", FileType::graphics));
    settings.addNewFile(node("p.pal", FileType::palette));
    NESBuildSettings again(m_project);
    EXPECT_THAT(namesOf(again.assemblyFiles()), ElementsAre("a.asm"));
    EXPECT_THAT(namesOf(again.graphicFiles()), ElementsAre("t.chr"));
    EXPECT_THAT(namesOf(again.paletteFiles()), ElementsAre("p.pal"));
    EXPECT_EQ(m_log.lines().size(), 3U);
}

TEST_F(NESBuildSettingsTest, AddingAGroupToARecordRewritesTheFileUnchanged) {
    NESBuildSettings settings(m_project);
    settings.addNewFile(node("a.asm", FileType::text));
    const auto before = contentOf(file());
    std::filesystem::remove(file());
    settings.addNewFile(node("group", FileType::group));
    EXPECT_EQ(contentOf(file()), before);
    EXPECT_THAT(m_log.lines(), ElementsAre("Did save build settings", "Did save build settings"));
}

TEST_F(NESBuildSettingsTest, AddingToAProjectLoadsAppendsAndSaves) {
    NESBuildSettings::add(node("a.asm", FileType::text), m_project);
    NESBuildSettings::add(node("b.asm", FileType::text), m_project);
    NESBuildSettings settings(m_project);
    EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("a.asm", "b.asm"));
}

TEST_F(NESBuildSettingsTest, AddingAGroupToAProjectIsLoggedAndLeavesTheFileUntouched) {
    for (const auto type : {FileType::group, FileType::unknown, FileType::empty}) {
        NESBuildSettings::add(node("x", type), m_project);
    }
    EXPECT_FALSE(existsAt(file()));
    const std::string text = R"({"output_folder":"/elsewhere","emulator":""})";
    writeFile(text);
    NESBuildSettings::add(node("x", FileType::group), m_project);
    EXPECT_EQ(contentOf(file()), text);
    EXPECT_EQ(m_log.lines(), std::vector<std::string>(4, "Cannot add file to build settings"));
}

TEST_F(NESBuildSettingsTest, OfTwoEntriesWithOneNameOnlyTheFirstIsRemoved) {
    NESBuildSettings settings(m_project);
    settings.assemblyFiles() = {node("a.asm", FileType::text, "/one"),
                                node("b.asm", FileType::text),
                                node("a.asm", FileType::text, "/two")};
    settings.removeFile(node("a.asm", FileType::text, "/anywhere"));
    ASSERT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("b.asm", "a.asm"));
    EXPECT_EQ(settings.assemblyFiles()[1]->itemPath(), "/two");
    EXPECT_EQ(stored()["code_assembly_files"].size(), 2U);
}

TEST_F(NESBuildSettingsTest, AFileIsRemovedFromTheListOfItsKindOnly) {
    NESBuildSettings settings(m_project);
    settings.assemblyFiles() = {node("same", FileType::text)};
    settings.graphicFiles() = {node("same", FileType::graphics)};
    settings.removeFile(node("same", FileType::graphics));
    EXPECT_THAT(settings.graphicFiles(), IsEmpty());
    EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("same"));
}

TEST_F(NESBuildSettingsTest, RemovingWhatIsInNoListStillRewritesTheFile) {
    NESBuildSettings settings(m_project);
    settings.assemblyFiles() = {node("a.asm", FileType::text)};
    settings.removeFile(node("b.asm", FileType::text));
    EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("a.asm"));
    EXPECT_EQ(stored()["code_assembly_files"].size(), 1U);
}

TEST_F(NESBuildSettingsTest, RemovingAGroupChangesNothingButStillRewritesTheFile) {
    NESBuildSettings settings(m_project);
    settings.assemblyFiles() = {node("a.asm", FileType::text)};
    settings.removeFile(node("a.asm", FileType::group));
    EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("a.asm"));
    EXPECT_EQ(stored()["code_assembly_files"].size(), 1U);
}

TEST_F(NESBuildSettingsTest, AProjectWithAnEmptyNameHasAFileOfTheBareEnding) {
    const auto unnamed = node("", FileType::project, m_home.path() / "Game");
    NESBuildSettings::add(node("a.asm", FileType::text), unnamed);
    EXPECT_TRUE(existsAt(m_home.path() / "Game/.project/-BuildSettings.cfg"));
    NESBuildSettings settings(unnamed);
    EXPECT_THAT(namesOf(settings.assemblyFiles()), ElementsAre("a.asm"));
}

TEST_F(NESBuildSettingsTest, TheProjectsStructureIsReadFromBesideTheSettings) {
    m_home.write("Game/.project/Game-ProjectStructure.cfg", entry("Game", "project"));
    NESBuildSettings settings(m_project);
    const auto root = settings.fetchProjectFileStructure();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->itemName(), "Game");
    EXPECT_EQ(root->parent(), nullptr);
}

TEST_F(NESBuildSettingsTest, AStructureThatCannotBeReadIsNothing) {
    NESBuildSettings settings(m_project);
    EXPECT_EQ(settings.fetchProjectFileStructure(), nullptr);
    m_home.write("Game/.project/Game-ProjectStructure.cfg", "[]");
    EXPECT_EQ(settings.fetchProjectFileStructure(), nullptr);
    m_home.write("Game/.project/Game-ProjectStructure.cfg", "{}");
    EXPECT_EQ(settings.fetchProjectFileStructure(), nullptr) << "an object, but no node";
    m_home.write("Game/.project/Game-ProjectStructure.cfg", "[]");
    EXPECT_FALSE(NESBuildSettings::fetchProjectFileStructureConfigurationFile(*m_project));
}

TEST_F(NESBuildSettingsTest, TheListOfAbsolutePathsIsAlwaysEmpty) {
    auto group = node("group", FileType::group);
    group->subItems() = {node("in.asm", FileType::text)};
    m_project->subItems() = {node("direct.asm", FileType::text), group};
    NESBuildSettings settings(m_project);
    EXPECT_THAT(settings.assemblyFilesWithAbsolutePaths(), IsEmpty());
}

} // namespace
} // namespace kestrel
