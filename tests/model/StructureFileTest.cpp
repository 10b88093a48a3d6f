// SPDX-License-Identifier: MIT
#include "model/StructureFile.h"

#include "model/FileProcessor.h"
#include "model/ModelFixtures.h"
#include "model/ProjectItemFactory.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

using namespace test;
using Names = std::vector<std::string>;

class StructureFileTest : public testing::Test {
protected:
    void writeStructure(std::string_view text) const { m_folder.write(File, text); }
    std::string structure() const { return contentOf(m_folder.path() / File); }
    Names names() const { return namesIn(m_folder.path() / ".project"); }
    bool understood() const { return understandsStructureFile(m_folder.path() / File); }

    /// The names below the present project, groups with their children in brackets.
    std::string outline() const { return outlineOf(*m_project); }

    static std::string outlineOf(const ProjectItem& node) {
        std::string text;
        for (const auto& child : node.subItems()) {
            EXPECT_EQ(child->parent().get(), &node);
            text += (text.empty() ? "" : " ") + child->itemName();
            if (child->itemFileType() == FileType::group) {
                text += "(" + outlineOf(*child) + ")";
            }
        }
        return text;
    }

    static constexpr std::string_view File = ".project/demo-ProjectStructure.cfg";
    TemporaryFolder m_folder;
    LogCapture m_log;
    std::shared_ptr<ProjectItem> m_project = makeProject("demo", m_folder.path());
};

TEST_F(StructureFileTest, LiesInTheSettingsFolderOfTheProject) {
    EXPECT_EQ(structureLocation(*m_project), m_folder.path() / File);
}

TEST_F(StructureFileTest, FetchesAnObjectOnly) {
    EXPECT_FALSE(fetchStructure(*m_project));
    writeStructure("[]");
    EXPECT_FALSE(fetchStructure(*m_project));
    writeStructure(R"({"a":1})");
    EXPECT_EQ(fetchStructure(*m_project), parseJson(R"({"a":1})"));
}

TEST_F(StructureFileTest, ARootWithoutAnAbsolutePathCountsFromTheProjectsFolder) {
    const auto folderOf = [&](const std::string& path) {
        Dictionary structure = m_project->toDictionary();
        structure["path"] = path;
        return projectFromStructure(structure, m_folder.path() / "")->itemPath();
    };
    for (const std::string path : {"", ".", "./", "./."}) {
        EXPECT_EQ(folderOf(path), m_folder.path()) << path;
    }
    EXPECT_EQ(folderOf("sub/game"), m_folder.path() / "sub/game");
    EXPECT_EQ(folderOf("../game"), m_folder.path() / "../game");
    EXPECT_EQ(folderOf("/elsewhere/game"), "/elsewhere/game");
    EXPECT_EQ(projectFromStructure(parseJson("{}").value(), m_folder.path()), nullptr);
}

TEST_F(StructureFileTest, SavesTheTreeCompactAndMakesTheFolder) {
    addChild(m_project, makeText("a.asm", "/a"));
    EXPECT_TRUE(saveStructure(*m_project));
    EXPECT_EQ(structure(), m_project->toDictionary().dump());
    EXPECT_TRUE(saveStructure(*m_project));
    EXPECT_EQ(names(), Names{"demo-ProjectStructure.cfg"});
    EXPECT_TRUE(understood());
}

TEST_F(StructureFileTest, WhatCannotBeWrittenLeavesTheOldFile) {
    EXPECT_TRUE(saveStructure(*m_project));
    const std::string before = structure();
    EXPECT_TRUE(holdsWithFileSizeLimit(10, [&] { return !saveStructure(*m_project); }));
    addChild(m_project, makeText("\xff", "/a"));
    EXPECT_FALSE(saveStructure(*m_project));
    m_project->subItems().clear();
    auto node = m_project;
    for (int i = 0; i < 1000; ++i) {
        node = addChild(node, makeGroup("g"));
    }
    EXPECT_FALSE(saveStructure(*m_project));
    EXPECT_EQ(structure(), before);
    EXPECT_EQ(names(), Names{"demo-ProjectStructure.cfg"});
}

TEST_F(StructureFileTest, ATreeOfAThousandLevelsIsSaved) {
    auto node = m_project;
    for (int i = 1; i < 1000; ++i) {
        node = addChild(node, makeGroup("g"));
    }
    EXPECT_TRUE(saveStructure(*m_project));
    const auto read = fetchStructure(*m_project);
    ASSERT_TRUE(read);
    EXPECT_EQ(depthOf(ProjectItemFactory::process(*read, nullptr)), 1000);
    EXPECT_TRUE(understood());
}

TEST_F(StructureFileTest, AFileThatWasNotUnderstoodIsKeptOnce) {
    const std::string text = storedNode("demo", "project", R"("sub_items":[],"note":"mine")");
    writeStructure(text);
    EXPECT_FALSE(understood());
    EXPECT_TRUE(saveStructure(*m_project));
    EXPECT_TRUE(saveStructure(*m_project));
    EXPECT_EQ(names(), (Names{"demo-ProjectStructure.cfg", "demo-ProjectStructure.cfg.bak"}));
    EXPECT_EQ(contentOf(m_folder.path() / ".project/demo-ProjectStructure.cfg.bak"), text);
}

TEST_F(StructureFileTest, WhatARewriteWouldLoseIsNotUnderstoodWhole) {
    EXPECT_TRUE(understood()); // there is none
    for (const std::string& text :
         {std::string(), std::string("{"), std::string("{}"), std::string("[]"), storedTree(1001),
          storedNode("a", "Project"), storedNode("a", "project", R"("sub_items":[{}])"),
          storedNode("a", "project", R"("sub_items":[7])"),
          storedNode("a", "project", R"("sub_items":[],"sub_items":[])")}) {
        writeStructure(text);
        EXPECT_FALSE(understood()) << text.substr(0, 200);
    }
    writeStructure(storedNode("a", "project"));
    EXPECT_TRUE(understood());
    EXPECT_TRUE(m_log.lines().empty());
}

TEST_F(StructureFileTest, ANewProjectOverAnExistingStructureTakesItsNodesOver) {
    const auto former = makeProject("demo", "/former/folder");
    addChild(addChild(former, makeGroup("g")), makeText("a.asm", "/a"));
    addChild(former, makeText("b.asm", "/b"));
    addChild(former, makeText("b.asm", "/b")); // listed twice, as it was left
    writeStructure(former->toDictionary().dump());

    ASSERT_TRUE(FileProcessor::saveDataFile(m_folder.path() / "unrelated", ""));
    EXPECT_TRUE(adoptStructureFile(m_project));
    EXPECT_EQ(outline(), "g(a.asm) b.asm b.asm");
    EXPECT_EQ(m_project->itemPath(), m_folder.path());
    EXPECT_TRUE(saveStructure(*m_project));
    EXPECT_EQ(names(), Names{"demo-ProjectStructure.cfg"});
    const auto saved = parseJson(structure());
    ASSERT_TRUE(saved);
    EXPECT_EQ(*member(*saved, "sub_items"), *member(former->toDictionary(), "sub_items"));
}

TEST_F(StructureFileTest, TakingOverTwiceChangesNothingMore) {
    const auto former = makeProject("demo", m_folder.path());
    addChild(addChild(former, makeGroup("g")), makeText("a.asm", "/a"));
    writeStructure(former->toDictionary().dump());
    EXPECT_TRUE(adoptStructureFile(m_project));
    const auto group = m_project->subItems().front();
    EXPECT_TRUE(adoptStructureFile(m_project));
    EXPECT_EQ(outline(), "g(a.asm)");
    EXPECT_EQ(m_project->subItems().front(), group);
}

TEST_F(StructureFileTest, TakingOverKeepsTheNodesThatTheProjectHasAlready) {
    const auto former = makeProject("demo", m_folder.path());
    const auto formerGroup = addChild(former, makeGroup("g"));
    addChild(formerGroup, makeText("stored.asm", "/a"));
    addChild(formerGroup, makeText("both.asm", "/a"));
    addChild(former, makeText("same name.asm", "/one"));
    writeStructure(former->toDictionary().dump());

    const auto ownFile = addChild(m_project, makeText("same name.asm", "/other"));
    const auto ownGroup = addChild(m_project, makeGroup("g"));
    const auto both = addChild(ownGroup, makeText("both.asm", "/a"));
    addChild(ownGroup, makeText("own.asm", "/a"));
    EXPECT_TRUE(adoptStructureFile(m_project));
    EXPECT_EQ(outline(), "g(stored.asm both.asm own.asm) same name.asm same name.asm");
    EXPECT_EQ(m_project->subItems()[0], ownGroup);
    EXPECT_EQ(m_project->subItems()[1]->itemPath(), "/one");
    EXPECT_EQ(m_project->subItems()[2], ownFile);
    EXPECT_EQ(ownGroup->subItems()[1], both);
}

TEST_F(StructureFileTest, TakingOverWithoutAFileIsFine) {
    addChild(m_project, makeText("a.asm", "/a"));
    EXPECT_TRUE(adoptStructureFile(m_project));
    EXPECT_EQ(outline(), "a.asm");
    EXPECT_FALSE(adoptStructureFile(nullptr));
}

TEST_F(StructureFileTest, TakingOverWhatCannotBeReadLeavesTheProjectAndTheFile) {
    for (const std::string& text : {std::string("not json"), std::string("{}")}) {
        writeStructure(text);
        EXPECT_FALSE(adoptStructureFile(m_project));
        EXPECT_EQ(outline(), "");
        EXPECT_EQ(structure(), text);
    }
}

TEST_F(StructureFileTest, TakingOverInPartKeepsACopyAtTheNextSave) {
    const std::string text =
        storedNode("demo", "project", R"("sub_items":[{},)" + storedNode("a.asm", "text") + "]");
    writeStructure(text);
    EXPECT_FALSE(adoptStructureFile(m_project));
    EXPECT_EQ(outline(), "a.asm");
    EXPECT_TRUE(saveStructure(*m_project));
    EXPECT_EQ(contentOf(m_folder.path() / ".project/demo-ProjectStructure.cfg.bak"), text);
}

TEST_F(StructureFileTest, ATreeOfAThousandLevelsIsTakenOver) {
    writeStructure(storedTree(1000));
    EXPECT_TRUE(adoptStructureFile(m_project));
    EXPECT_EQ(depthOf(m_project), 1000);
    EXPECT_TRUE(adoptStructureFile(m_project));
    EXPECT_EQ(depthOf(m_project), 1000);
    EXPECT_TRUE(saveStructure(*m_project));
}

} // namespace
} // namespace kestrel
