// SPDX-License-Identifier: MIT
#include "model/BuildSettingsFile.h"

#include "model/ModelFixtures.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sys/stat.h>

namespace kestrel {
namespace {

using namespace test;
using Lines = std::vector<std::string>;

class BuildSettingsFileTest : public testing::Test {
protected:
    void writeSettings(std::string_view text) const { m_folder.write(File, text); }
    std::string settings() const { return contentOf(m_folder.path() / File); }
    Lines names() const { return namesIn(m_folder.path() / ".project"); }
    bool understood() const { return understandsBuildSettingsFile(m_folder.path() / File); }

    static constexpr std::string_view File = ".project/demo-BuildSettings.cfg";
    TemporaryFolder m_folder;
    LogCapture m_log;
    std::shared_ptr<ProjectItem> m_project = makeProject("demo", m_folder.path());
};

std::string settingsWith(const std::string& lists) {
    return R"({"Version":"1","output_folder":"/out","emulator":"")" + lists + "}";
}

TEST_F(BuildSettingsFileTest, LiesInTheSettingsFolderOfTheProject) {
    EXPECT_EQ(buildSettingsLocation(*m_project), m_folder.path() / File);
    m_project->setItemName("");
    EXPECT_EQ(buildSettingsLocation(*m_project), m_folder.path() / ".project/-BuildSettings.cfg");
}

TEST_F(BuildSettingsFileTest, FetchesAnObjectOnly) {
    EXPECT_FALSE(fetchBuildSettings(*m_project));
    for (const std::string_view text : {"", "[]", "7", "\"x\"", "{", "null"}) {
        writeSettings(text);
        EXPECT_FALSE(fetchBuildSettings(*m_project)) << text;
    }
    writeSettings(R"({"a":1})");
    EXPECT_EQ(fetchBuildSettings(*m_project), parseJson(R"({"a":1})"));
}

TEST_F(BuildSettingsFileTest, ReadsEverything) {
    const auto contents = readBuildSettings(
        *parseJson(R"({"output_folder":"out/","emulator":"/usr/bin/emu","code_assembly_files":[)" +
                   storedNode("b.asm", "text") + "," + storedNode("a.asm", "text") +
                   R"(],"graphic_files":[)" + storedNode("g.chr", "graphics") +
                   R"(],"palette_files":[)" + storedNode("p.pal", "palette") + "]}"));
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->outputFilePath, std::filesystem::path("out/"));
    EXPECT_EQ(contents->pathToEmulator, std::filesystem::path("/usr/bin/emu"));
    ASSERT_EQ(contents->assemblyFiles.size(), 2U);
    EXPECT_EQ(contents->assemblyFiles[0]->itemName(), "b.asm");
    EXPECT_EQ(contents->assemblyFiles[1]->itemName(), "a.asm");
    EXPECT_EQ(contents->assemblyFiles[1]->parent(), nullptr);
    ASSERT_EQ(contents->graphicFiles.size(), 1U);
    EXPECT_EQ(contents->graphicFiles[0]->itemFileType(), FileType::graphics);
    ASSERT_EQ(contents->paletteFiles.size(), 1U);
    EXPECT_EQ(contents->paletteFiles[0]->itemFileType(), FileType::palette);
}

TEST_F(BuildSettingsFileTest, NothingIsReadWithoutOutputFolderAndEmulator) {
    const std::string list = R"("code_assembly_files":[)" + storedNode("a", "text") + "]";
    for (const std::string& members :
         {std::string(R"("output_folder":7,"emulator":"",)"), std::string(R"("emulator":"",)"),
          std::string(R"("output_folder":"x",)"),
          std::string(R"("output_folder":"x","emulator":null,)")}) {
        EXPECT_FALSE(readBuildSettings(*parseJson("{" + members + list + "}"))) << members;
    }
    EXPECT_FALSE(readBuildSettings(Dictionary(7)));
}

TEST_F(BuildSettingsFileTest, AnEmptyEmulatorIsNoneAndAnEmptyOutputFolderIsTakenAsGiven) {
    const auto contents = readBuildSettings(*parseJson(R"({"output_folder":"","emulator":""})"));
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->pathToEmulator, std::nullopt);
    EXPECT_EQ(contents->outputFilePath, std::filesystem::path());
    EXPECT_TRUE(contents->assemblyFiles.empty());
}

TEST_F(BuildSettingsFileTest, AListThatIsNoListOfObjectsIsEmpty) {
    for (const std::string& list :
         {std::string("7"), std::string("{}"), "[" + storedNode("a", "text") + ",7]"}) {
        const auto contents = readBuildSettings(
            *parseJson(settingsWith(R"(,"code_assembly_files":)" + list + R"(,"palette_files":[)" +
                                    storedNode("p", "palette") + "]")));
        ASSERT_TRUE(contents);
        EXPECT_TRUE(contents->assemblyFiles.empty());
        EXPECT_EQ(contents->paletteFiles.size(), 1U);
    }
}

TEST_F(BuildSettingsFileTest, ListEntriesThatYieldNoNodeAreSkipped) {
    const auto contents = readBuildSettings(*parseJson(
        settingsWith(R"(,"graphic_files":[)" + storedNode("a", "graphics") + R"(,{},)" +
                     storedNode("b", "Graphics") + "," + storedNode("c", "graphics") + "]")));
    ASSERT_TRUE(contents);
    ASSERT_EQ(contents->graphicFiles.size(), 2U);
    EXPECT_EQ(contents->graphicFiles[1]->itemName(), "c");
}

TEST_F(BuildSettingsFileTest, SavesPrettyPrintedAndSaysSo) {
    BuildSettingsContents contents;
    contents.assemblyFiles = {makeText("a.asm", "/a/")};
    contents.pathToEmulator = "/usr/bin/emu/";
    contents.outputFilePath = "/somewhere/else";
    EXPECT_TRUE(writeBuildSettings(*m_project, contents));
    const std::string output = (m_folder.path() / "output").native();
    EXPECT_EQ(settings(), "{\n"
                          "    \"Version\": \"1\",\n"
                          "    \"output_folder\": \"" +
                              output +
                              "\",\n"
                              "    \"emulator\": \"/usr/bin/emu\",\n"
                              "    \"code_assembly_files\": [\n"
                              "        {\n"
                              "            \"name\": \"a.asm\",\n"
                              "            \"path\": \"/a\",\n"
                              "            \"path_type\": \"absolute_path\",\n"
                              "            \"type\": \"text\",\n"
                              "            \"project_type\": \"nes\",\n"
                              "            \"sub_items\": []\n"
                              "        }\n"
                              "    ],\n"
                              "    \"graphic_files\": [],\n"
                              "    \"palette_files\": []\n"
                              "}");
    EXPECT_EQ(m_log.lines(), Lines{"Did save build settings"});
    EXPECT_TRUE(understood());
}

TEST_F(BuildSettingsFileTest, WhatWasSavedIsReadBackButForTheOutputFolder) {
    BuildSettingsContents contents;
    contents.assemblyFiles = {makeText("a.asm", "/a"), makeText("b.asm", "/a")};
    contents.graphicFiles = {makeNode("g.chr", "", FileType::graphics, FilePathType::relative)};
    contents.paletteFiles = {makeNode("p.pal", "", FileType::palette, FilePathType::relative)};
    contents.outputFilePath = "/somewhere/else";
    ASSERT_TRUE(writeBuildSettings(*m_project, contents));
    const auto read = readBuildSettings(*fetchBuildSettings(*m_project));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->assemblyFiles.size(), 2U);
    EXPECT_EQ(read->graphicFiles.size(), 1U);
    EXPECT_EQ(read->paletteFiles.size(), 1U);
    EXPECT_EQ(read->outputFilePath, m_folder.path() / "output");
    EXPECT_EQ(read->pathToEmulator, std::nullopt);
}

TEST_F(BuildSettingsFileTest, WhatCannotBeWrittenIsSaidAndLeavesTheOldFile) {
    writeSettings(settingsWith(""));
    const std::string before = settings();
    BuildSettingsContents contents;
    contents.assemblyFiles = {makeText("\xff", "/a")};
    EXPECT_FALSE(writeBuildSettings(*m_project, contents));
    EXPECT_TRUE(holdsWithFileSizeLimit(
        10, [&] { return !writeBuildSettings(*m_project, BuildSettingsContents{}); }));
    EXPECT_EQ(settings(), before);
    EXPECT_EQ(names(), Lines{"demo-BuildSettings.cfg"});
    std::filesystem::remove(m_folder.path() / File);
    std::filesystem::create_directory(m_folder.path() / File);
    EXPECT_FALSE(writeBuildSettings(*m_project, BuildSettingsContents{}));
    const std::string path = (m_folder.path() / File).string();
    EXPECT_EQ(m_log.lines(),
              (Lines{"Could not save build settings",
                     path + ": a text in it is not UTF-8, or it is nested too deep",
                     "Could not save build settings",
                     path + ": the backup " + path +
                         ".bak could not be made: the original is no regular file"}));
}

TEST_F(BuildSettingsFileTest, AFileThatWasNotUnderstoodIsKeptOnce) {
    writeSettings("not json");
    EXPECT_FALSE(understood());
    EXPECT_TRUE(writeBuildSettings(*m_project, BuildSettingsContents{}));
    EXPECT_TRUE(understood());
    EXPECT_TRUE(writeBuildSettings(*m_project, BuildSettingsContents{}));
    EXPECT_EQ(names(), (Lines{"demo-BuildSettings.cfg", "demo-BuildSettings.cfg.bak"}));
    EXPECT_EQ(contentOf(m_folder.path() / ".project/demo-BuildSettings.cfg.bak"), "not json");
}

TEST_F(BuildSettingsFileTest, AFileThatIsUnderstoodIsNotKept) {
    writeSettings(settingsWith(R"(,"palette_files":[)" + storedNode("p", "palette") + "]"));
    EXPECT_TRUE(understood());
    EXPECT_TRUE(writeBuildSettings(*m_project, BuildSettingsContents{}));
    EXPECT_EQ(names(), Lines{"demo-BuildSettings.cfg"});
}

TEST_F(BuildSettingsFileTest, WhatARewriteWouldLoseIsNotUnderstoodWhole) {
    EXPECT_TRUE(understood()); // there is none
    for (const std::string& text :
         {std::string(), std::string("[]"), std::string("{}"),
          std::string(R"({"output_folder":"x"})"),
          std::string(R"({"output_folder":7,"emulator":""})"),
          std::string(R"({"output_folder":"x","emulator":"","Version":1})"),
          std::string(R"({"output_folder":"x","emulator":"","Version":"2"})"),
          std::string(R"({"output_folder":"x","emulator":"a","emulator":"b"})"),
          settingsWith(R"(,"note":"mine")"), settingsWith(R"(,"graphic_files":7)"),
          settingsWith(R"(,"graphic_files":[7])"), settingsWith(R"(,"graphic_files":[{}])"),
          settingsWith(R"(,"graphic_files":[)" + storedNode("a", "graphics", R"("colour":"red")") +
                       "]")}) {
        writeSettings(text);
        EXPECT_FALSE(understood()) << text;
    }
}

TEST_F(BuildSettingsFileTest, NothingIsReplacedThatCouldNotBeKept) {
    if (isRoot()) {
        EXPECT_TRUE(passesAsOrdinaryUser());
        return;
    }
    writeSettings("not json");
    const auto path = m_folder.path() / File;
    ASSERT_EQ(::chmod(path.c_str(), 0200), 0);
    EXPECT_FALSE(writeBuildSettings(*m_project, BuildSettingsContents{}));
    ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
    EXPECT_EQ(settings(), "not json");
    EXPECT_EQ(names(), Lines{"demo-BuildSettings.cfg"});
    EXPECT_EQ(m_log.lines(), (Lines{"Could not save build settings",
                                    path.string() + ": the backup " + path.string() +
                                        ".bak could not be made: Permission denied"}));
}

TEST_F(BuildSettingsFileTest, AFullDiskIsNamedAsTheReason) {
    EXPECT_TRUE(holdsWithFileSizeLimit(10, [&] {
        writeBuildSettings(*m_project, BuildSettingsContents{});
        return m_log.lines() == Lines{"Could not save build settings",
                                      (m_folder.path() / File).string() + ": File too large"};
    }));
}

TEST_F(BuildSettingsFileTest, TheListOfAFileFollowsFromItsKind) {
    BuildSettingsContents contents;
    EXPECT_EQ(contents.listFor(FileType::text), &contents.assemblyFiles);
    EXPECT_EQ(contents.listFor(FileType::graphics), &contents.graphicFiles);
    EXPECT_EQ(contents.listFor(FileType::palette), &contents.paletteFiles);
    for (const FileType kind :
         {FileType::project, FileType::group, FileType::empty, FileType::unknown}) {
        EXPECT_EQ(contents.listFor(kind), nullptr);
    }
}

TEST_F(BuildSettingsFileTest, EveryPathAndListInTheFileIsNamed) {
    ASSERT_TRUE(writeBuildSettings(*m_project, BuildSettingsContents{}));
    const auto stored = fetchBuildSettings(*m_project);
    ASSERT_TRUE(stored);
    const auto paths = buildSettingMembers(BuildSettingForm::path);
    const auto lists = buildSettingMembers(BuildSettingForm::fileList);
    for (const auto& [key, value] : stored->get_ref<const Dictionary::object_t&>()) {
        const auto& keys = value.is_array() ? lists : paths;
        EXPECT_NE(key == "Version", std::find(keys.begin(), keys.end(), key) != keys.end()) << key;
    }
    EXPECT_EQ(paths.size() + lists.size() + 1, stored->size());
}

} // namespace
} // namespace kestrel
