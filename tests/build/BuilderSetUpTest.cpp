// SPDX-License-Identifier: MIT
#include "build/BuildProject.h"
#include "model/Paths.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const BuildError SetUpFailed{"", 100, "Could not create temp folder to build project"};
const BuildError NoMainFile{"", 100, "Could not find main entry point for assembly file(s)"};

class BuilderSetUp : public ::testing::Test {
protected:
    /// The error of a build that must fail at once, on this thread.
    std::optional<BuildError> failure() {
        Outcome outcome;
        m_project.makeBuilder()->build(outcome.buildHandler());
        EXPECT_EQ(outcome.calls(), 1);
        EXPECT_EQ(outcome.thread(), std::this_thread::get_id());
        EXPECT_FALSE(outcome.image());
        EXPECT_FALSE(existsAt(m_project.folder() / "record")) << "the assembler was started";
        return outcome.error();
    }

    BuildProject m_project;
};

TEST_F(BuilderSetUp, FailsWithoutAnAssembler) {
    m_project.assembler = std::nullopt;
    EXPECT_EQ(failure(), SetUpFailed);
}

TEST_F(BuilderSetUp, FailsWithoutAnOutputFolderExactlyAsWithoutAnAssembler) {
    m_project.settings->outputFilePath() = std::nullopt;
    EXPECT_EQ(failure(), SetUpFailed);
    m_project.settings->outputFilePath() = "";
    EXPECT_EQ(failure(), SetUpFailed);
}

TEST_F(BuilderSetUp, FailsWithoutAProjectFolder) {
    m_project.settings->projectPath() = std::nullopt;
    EXPECT_EQ(failure(), SetUpFailed);
    m_project.settings->projectPath() = "";
    EXPECT_EQ(failure(), SetUpFailed);
}

TEST_F(BuilderSetUp, FailsWhenTheNameDoesNotNameAFileInTheOutputFolder) {
    for (const std::string& name :
         {std::string("../evil"), std::string("a/b"), std::string("/"), std::string("a\0b", 3)}) {
        m_project.project->setItemName(name);
        EXPECT_EQ(failure(), SetUpFailed) << name;
    }
}

TEST_F(BuilderSetUp, TakesANameOfDotsSinceAnEndingFollows) {
    for (const std::string name : {".", "..", "..."}) {
        m_project.project->setItemName(name);
        Outcome outcome;
        m_project.makeBuilder()->build(outcome.buildHandler());
        ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0; }));
        EXPECT_EQ(outcome.image(), m_project.folder() / "output" / (name + ".nes"));
        EXPECT_FALSE(outcome.error());
    }
}

TEST_F(BuilderSetUp, LooksForTheMainFileWhereItLiesAndNotAtWhatWasGatheredBefore) {
    m_project.settings->assemblyFiles().clear();
    m_project.addSource("other.asm", "nop\n");
    m_project.home.write("Game/tmp/other.asm", Vectors);
    EXPECT_EQ(failure(), NoMainFile);
}

TEST_F(BuilderSetUp, FailsWhenAFolderCannotBeMadeAndLogsOnlyTheSystemsReason) {
    m_project.home.write("Game/blocked", "a file");
    m_project.settings->outputFilePath() = m_project.folder() / "blocked/output";
    const LogCapture log;
    EXPECT_EQ(failure(), SetUpFailed);
    EXPECT_THAT(log.lines(), ElementsAre("Not a directory"));
}

TEST_F(BuilderSetUp, FailsInAProjectFolderWithoutWritePermission) {
    if (isRoot()) {
        EXPECT_TRUE(passesAsOrdinaryUser());
        return;
    }
    m_project.settings->outputFilePath() = m_project.home.path() / "output";
    std::filesystem::permissions(m_project.folder(), std::filesystem::perms::owner_read |
                                                         std::filesystem::perms::owner_exec);
    const LogCapture log;
    EXPECT_EQ(failure(), SetUpFailed);
    EXPECT_THAT(log.lines(), ElementsAre("Permission denied"));
    EXPECT_TRUE(existsAt(m_project.home.path() / "output")) << "the folders made stay";
    std::filesystem::permissions(m_project.folder(), std::filesystem::perms::owner_all);
}

TEST_F(BuilderSetUp, FailsWhenTheTemporaryFolderIsADanglingLink) {
    std::filesystem::create_symlink("nowhere", m_project.folder() / "tmp");
    const LogCapture log;
    EXPECT_EQ(failure(), SetUpFailed);
    EXPECT_EQ(log.lines().size(), 1U);
}

TEST_F(BuilderSetUp, FailsWithoutAMainFileBeforeAnythingIsCopied) {
    m_project.settings->assemblyFiles().clear();
    m_project.addSource("other.asm", "nop\n");
    EXPECT_EQ(failure(), NoMainFile);
    EXPECT_TRUE(std::filesystem::is_empty(m_project.folder() / "tmp"));
    EXPECT_TRUE(std::filesystem::is_directory(m_project.folder() / "output"))
        << "the folders made stay";
}

TEST_F(BuilderSetUp, FailsForACrLfFileWithItsVectorsAtTheVeryEnd) {
    m_project.settings->assemblyFiles().clear();
    std::string text;
    for (int line = 0; line < 30; ++line) {
        text += "\tnop\r\n";
    }
    m_project.addSource("crlf.asm", text + "\t.org $FFFA\r\n");
    EXPECT_EQ(failure(), NoMainFile);
}

TEST_F(BuilderSetUp, AFailingRunReportsTheBuildsErrorAtOnce) {
    m_project.settings->outputFilePath() = std::nullopt;
    Outcome outcome;
    m_project.makeBuilder()->run(outcome.runHandler());
    EXPECT_EQ(outcome.calls(), 1);
    EXPECT_EQ(outcome.error(), SetUpFailed);
}

TEST_F(BuilderSetUp, TakesRequestsThatNobodyWaitsFor) {
    m_project.settings->outputFilePath() = std::nullopt;
    m_project.makeBuilder()->build(nullptr);
    m_project.makeBuilder()->run(nullptr);
}

TEST_F(BuilderSetUp, APlainFileCountsAsTheTemporaryFolder) {
    m_project.home.write("Game/tmp", "a file");
    Outcome outcome;
    m_project.makeBuilder()->build(outcome.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0; }));
    EXPECT_EQ(outcome.image(), m_project.folder() / "output/Game.nes");
    EXPECT_FALSE(outcome.error());
    EXPECT_EQ(contentOf(m_project.folder() / "tmp"), "a file");
}

TEST_F(BuilderSetUp, AnExistingOutputFolderAndAMissingOneBothDo) {
    m_project.settings->outputFilePath() = m_project.folder() / "deep/down/output";
    Outcome outcome;
    m_project.makeBuilder()->build(outcome.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0; }));
    EXPECT_TRUE(std::filesystem::is_directory(m_project.folder() / "deep/down/output"));
    Outcome second;
    m_project.makeBuilder()->build(second.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return second.calls() > 0; }));
    EXPECT_FALSE(second.error());
}

TEST_F(BuilderSetUp, TheLocationsAreThoseOfTheSettings) {
    m_project.settings->pathToEmulator() = "/usr/bin/emu";
    const auto builder = m_project.makeBuilder();
    EXPECT_EQ(builder->pathToEmulator(), "/usr/bin/emu");
    EXPECT_EQ(builder->outputPath(), m_project.folder() / "output");
    EXPECT_EQ(builder->tempPath(), m_project.folder() / "tmp");
    m_project.settings->projectPath() = std::nullopt;
    EXPECT_FALSE(builder->tempPath());
}

TEST_F(BuilderSetUp, ANewBuilderHasNoConsole) {
    const auto builder = std::make_shared<NESProjectBuilder>(m_project.settings);
    EXPECT_EQ(builder->consoleOutput().lock(), nullptr);
    EXPECT_EQ(builder->buildSetting(), m_project.settings);
}

TEST_F(BuilderSetUp, CleaningRemovesWhatABuildGathered) {
    m_project.home.write("Game/tmp/other", "kept");
    Outcome outcome;
    const auto builder = m_project.makeBuilder();
    builder->build(outcome.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0; }));
    EXPECT_TRUE(existsAt(m_project.folder() / "tmp/main.asm"));
    EXPECT_TRUE(builder->clean());
    EXPECT_FALSE(existsAt(m_project.folder() / "tmp/main.asm"));
    EXPECT_TRUE(existsAt(m_project.folder() / "tmp/other"));
    EXPECT_TRUE(existsAt(m_project.folder() / "src/main.asm"));
}

} // namespace
} // namespace kestrel
