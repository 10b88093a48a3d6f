// SPDX-License-Identifier: MIT
#include "model/OpenedProject.h"

#include "model/ModelFixtures.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <variant>

namespace kestrel {
namespace {

using namespace test;

class OpenedProjectTest : public testing::Test {
protected:
    std::filesystem::path file() const { return m_folder.path() / "game.kst"; }
    std::filesystem::path structureFile() const { return m_folder.path() / "sub/tree.cfg"; }

    void writeProjectFile(std::string_view content) const { m_folder.write("game.kst", content); }
    void writeStructure(std::string_view content) const { m_folder.write("sub/tree.cfg", content); }

    void expectProblem(ProjectFault fault, const std::filesystem::path& where,
                       ProjectFileRule rule = ProjectFileRule::anyMembers) const {
        const auto opened = openProject(file(), m_folder.path(), rule);
        const auto* const problem = std::get_if<ProjectProblem>(&opened);
        ASSERT_NE(problem, nullptr);
        EXPECT_EQ(problem->fault, fault);
        EXPECT_EQ(problem->file, where);
        if (rule == ProjectFileRule::anyMembers) {
            EXPECT_EQ(openProjectTree(file()), nullptr);
        }
    }

    static constexpr std::string_view ProjectFile = R"({"ProjectStructure":"sub/tree.cfg"})";
    TemporaryFolder m_folder;
    LogCapture m_log;
};

TEST_F(OpenedProjectTest, HasTheTreeInTheStructureFileThatTheProjectFileNames) {
    writeProjectFile(ProjectFile);
    writeStructure(storedTree(3));
    const auto opened = openProject(file(), m_folder.path());
    const auto* const project = std::get_if<OpenedProject>(&opened);
    ASSERT_NE(project, nullptr);
    EXPECT_EQ(project->folder, m_folder.path());
    EXPECT_EQ(project->structureFile, structureFile());
    EXPECT_EQ(project->structure, parseJson(storedTree(3)));
    EXPECT_EQ(depthOf(project->root), 3);
    EXPECT_EQ(depthOf(openProjectTree(file())), 3);
}

TEST_F(OpenedProjectTest, ARelativeRootCountsFromTheFolderAndItsStoredPathIsKept) {
    writeProjectFile(ProjectFile);
    writeStructure(R"({"name":"g","path":"part","path_type":"absolute_path","type":"project"})");
    const auto opened = openProject(file(), m_folder.path());
    const auto* const project = std::get_if<OpenedProject>(&opened);
    ASSERT_NE(project, nullptr);
    EXPECT_EQ(project->namedFolder, "part");
    EXPECT_EQ(project->root->itemPath(), m_folder.path() / "part");
    EXPECT_EQ(openProjectTree(file())->itemPath(), m_folder.path() / "part");
}

TEST_F(OpenedProjectTest, TheStructureCountsFromTheGivenFolder) {
    writeProjectFile(ProjectFile);
    m_folder.write("elsewhere/sub/tree.cfg", storedTree(2));
    const auto opened = openProject(file(), m_folder.path() / "elsewhere");
    ASSERT_NE(std::get_if<OpenedProject>(&opened), nullptr);
    expectProblem(ProjectFault::unreadableStructure, structureFile());
}

TEST_F(OpenedProjectTest, EachFaultComesWithItsFile) {
    expectProblem(ProjectFault::unreadableProjectFile, file());
    writeProjectFile("[]");
    expectProblem(ProjectFault::unreadableProjectFile, file());
    writeProjectFile(R"({"ProjectStructure":7})");
    expectProblem(ProjectFault::noStructureNamed, file());
    writeProjectFile(ProjectFile);
    expectProblem(ProjectFault::unreadableStructure, structureFile());
    writeStructure("7");
    expectProblem(ProjectFault::unreadableStructure, structureFile());
    writeStructure(R"({"name":"g"})");
    expectProblem(ProjectFault::noProjectInStructure, structureFile());
}

TEST_F(OpenedProjectTest, OnlyTheStrictRuleRefusesOtherMembersThanStrings) {
    writeProjectFile(R"({"ProjectStructure":"sub/tree.cfg","note":1})");
    writeStructure(storedTree(1));
    EXPECT_NE(openProjectTree(file()), nullptr);
    expectProblem(ProjectFault::unreadableProjectFile, file(), ProjectFileRule::stringsOnly);
}

TEST_F(OpenedProjectTest, EachFaultComesWithItsReason) {
    const auto reason = [this](ProjectFileRule rule = ProjectFileRule::anyMembers) {
        const auto opened = openProject(file(), m_folder.path(), rule);
        const auto* const problem = std::get_if<ProjectProblem>(&opened);
        return problem != nullptr ? problem->reason : "";
    };
    EXPECT_EQ(reason(), "No such file or directory");
    writeProjectFile("[]");
    EXPECT_EQ(reason(), "it is no JSON object");
    writeProjectFile("{\n]");
    EXPECT_TRUE(reason().starts_with("parse error at line 2, column 1: "));
    writeProjectFile(R"({"ProjectStructure":7})");
    EXPECT_EQ(reason(), "it has no text \"ProjectStructure\"");
    EXPECT_EQ(reason(ProjectFileRule::stringsOnly), "it holds more than texts");
    writeProjectFile(ProjectFile);
    EXPECT_EQ(reason(), "No such file or directory");
    writeStructure(storedTree(1001));
    EXPECT_EQ(reason(), "it is nested deeper than 1000 levels");
    writeStructure(R"({"name":"g"})");
    const test::LogCapture log;
    EXPECT_EQ(reason(), "it describes no project");
    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{"FAILLLEED",
                                        "The stored node \"g\": its member \"type\" is missing"}));
}

} // namespace
} // namespace kestrel
