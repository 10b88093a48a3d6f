// SPDX-License-Identifier: MIT
#include "build/BuildProject.h"
#include "model/Paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class BuilderProcess : public ::testing::Test {
protected:
    /// Builds and waits for the completion, and for the output where there is to be some.
    void build(std::size_t texts = 1) {
        const auto builder = m_project.makeBuilder();
        builder->build(m_outcome.buildHandler());
        ASSERT_TRUE(waitUntil(
            [&] { return m_outcome.calls() > 0 && m_project.console->texts.size() >= texts; }));
        EXPECT_EQ(m_outcome.calls(), 1);
    }
    std::filesystem::path image() const { return m_project.folder() / "output/Game.nes"; }

    BuildProject m_project;
    Outcome m_outcome;
};

TEST_F(BuilderProcess, GetsExactlyItsArgumentsOneVariableAndNoInput) {
    build();
    const std::string folder = m_project.folder().string();
    EXPECT_EQ(m_project.record(),
              "argument --input\nargument main.asm\nargument --output\nargument " + folder +
                  "/output/Game.nes\nvariable NES_INCLUDE=" + folder + "/tmp\nfolder " +
                  std::filesystem::current_path().string() + "\ninput /dev/null\ngroup own\n");
}

TEST_F(BuilderProcess, GetsExtraArgumentsBehindTheUsualOnes) {
    const auto builder = m_project.makeBuilder();
    builder->setExtraArguments({"--labels", "mlb", "-W", "unused symbol"});
    builder->build(m_outcome.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return m_outcome.calls() > 0; }));
    const std::string folder = m_project.folder().string();
    EXPECT_THAT(m_project.record(),
                ::testing::StartsWith("argument --input\nargument main.asm\nargument --output\n"
                                      "argument " +
                                      folder +
                                      "/output/Game.nes\nargument --labels\nargument mlb\n"
                                      "argument -W\nargument unused symbol\nvariable "));
}

TEST_F(BuilderProcess, GetsAwkwardNamesUnchangedByAnyShell) {
    m_project.settings->assemblyFiles().clear();
    m_project.addSource("$(touch x) \"ma'in\" ä.asm", Vectors);
    m_project.project->setItemName("My `Game` & more");
    build();
    EXPECT_THAT(m_project.record(), HasSubstr("argument $(touch x) \"ma'in\" ä.asm\n"));
    EXPECT_THAT(m_project.record(), HasSubstr("/output/My `Game` & more.nes\n"));
}

TEST_F(BuilderProcess, GetsTheFirstOfTwoMainFiles) {
    m_project.addSource("second.asm", Vectors);
    build();
    EXPECT_THAT(m_project.record(), HasSubstr("argument main.asm\n"));
}

TEST_F(BuilderProcess, FindsTheFilesOfAllThreeListsInItsFolder) {
    m_project.home.write("Game/src/tiles.chr", "tiles");
    m_project.home.write("Game/art/colours.pal", "colours");
    m_project.settings->graphicFiles().push_back(fileNode(
        "tiles.chr", m_project.folder() / "src", FilePathType::absolute, FileType::graphics));
    m_project.settings->paletteFiles().push_back(
        fileNode("colours.pal", "art", FilePathType::relative, FileType::palette));
    m_project.addSource("missing.asm", "");
    std::filesystem::remove(m_project.folder() / "src/missing.asm");
    build();
    EXPECT_EQ(contentOf(m_project.folder() / "tmp/main.asm"), Vectors);
    EXPECT_EQ(contentOf(m_project.folder() / "tmp/tiles.chr"), "tiles");
    EXPECT_EQ(contentOf(m_project.folder() / "tmp/colours.pal"), "colours");
    EXPECT_FALSE(existsAt(m_project.folder() / "tmp/missing.asm"));
}

TEST_F(BuilderProcess, GetsAnAbsoluteImageForARelativeOutputFolder) {
    const auto relative = std::filesystem::relative(m_project.folder() / "out here");
    ASSERT_TRUE(relative.is_relative());
    m_project.settings->outputFilePath() = relative;
    m_project.script("image made\n");
    build();
    ASSERT_TRUE(m_outcome.image());
    EXPECT_TRUE(m_outcome.image()->is_absolute());
    EXPECT_EQ(contentOf(m_project.folder() / "out here/Game.nes"), "made");
    EXPECT_THAT(m_project.record(), HasSubstr("argument " + m_outcome.image()->string() + "\n"));
}

TEST_F(BuilderProcess, MakesAnImageWithoutANameForAProjectWithoutOne) {
    m_project.project->setItemName("");
    build();
    EXPECT_EQ(m_outcome.image(), m_project.folder() / "output/.nes");
    EXPECT_THAT(m_project.record(), HasSubstr("/output/.nes\n"));
}

TEST_F(BuilderProcess, ThatFailsStillYieldsTheImageAndNoError) {
    m_project.script("print main.asm:1:1: error: no\nexit 1\n");
    build();
    EXPECT_EQ(m_outcome.image(), image());
    EXPECT_FALSE(m_outcome.error());
    EXPECT_FALSE(existsAt(image()));
    EXPECT_THAT(m_project.console->texts, ElementsAre("main.asm:1:1: error: no\n"));
}

TEST_F(BuilderProcess, ThatCrashesStillYieldsTheImageAndItsOutput) {
    m_project.script("print before\nkill\n");
    build();
    EXPECT_EQ(m_outcome.image(), image());
    EXPECT_THAT(m_project.console->texts, ElementsAre("before\n"));
}

TEST_F(BuilderProcess, ReachesTheConsoleWithItsWholeOutputOnce) {
    m_project.script("print one\nprint zwölf\nprint \nprint three\n");
    build();
    EXPECT_THAT(m_project.console->texts, ElementsAre("one\nzwölf\n\nthree\n"));
    EXPECT_THAT(m_project.console->threads, ElementsAre(std::this_thread::get_id()));
}

TEST_F(BuilderProcess, ThatSaysNothingReachesTheConsoleWithAnEmptyText) {
    build();
    EXPECT_THAT(m_project.console->texts, ElementsAre(""));
}

TEST_F(BuilderProcess, KeepsItsStandardErrorFromTheConsole) {
    m_project.script("err not for the console\nprint shown\n");
    ::testing::internal::CaptureStderr();
    build();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("not for the console\n"));
    EXPECT_THAT(m_project.console->texts, ElementsAre("shown\n"));
}

TEST_F(BuilderProcess, WhoseOutputIsNotUtf8ShowsNothingOfIt) {
    m_project.script("print good\nhex ff\nprint good\n");
    build(0);
    EXPECT_EQ(m_outcome.image(), image());
    // A second build's output comes after anything that the first may have sent.
    m_project.script("print second\n");
    m_outcome.reset();
    build();
    EXPECT_THAT(m_project.console->texts, ElementsAre("second\n"));
}

TEST_F(BuilderProcess, MaySendACharacterInTwoPiecesAndBytesThatAreNoLetters) {
    m_project.script("hex c3\nfill 300000\n");
    build(0);
    EXPECT_TRUE(m_project.console->texts.empty()) << "half a character is not UTF-8";
    m_project.script("hex 00efbbbfc3\nhex a4\n");
    m_outcome.reset();
    build();
    EXPECT_THAT(m_project.console->texts, ElementsAre(std::string("\0\xef\xbb\xbf\xc3\xa4", 6)));
}

TEST_F(BuilderProcess, MayPrintMoreThanAPipeHolds) {
    m_project.script("fill 5000001\nprint end\n");
    build();
    ASSERT_EQ(m_project.console->texts.size(), 1U);
    EXPECT_EQ(m_project.console->texts[0].size(), 5000005U);
    EXPECT_TRUE(m_project.console->texts[0].ends_with("yend\n"));
}

TEST_F(BuilderProcess, ThatEndsRightAfterFillingThePipeLosesNothing) {
    m_project.script("fill 65536\nexit 0\n");
    build();
    ASSERT_EQ(m_project.console->texts.size(), 1U);
    EXPECT_EQ(m_project.console->texts[0].size(), 65536U);
}

TEST_F(BuilderProcess, MayCloseItsOutputAndGoOn) {
    m_project.script("print said\ncloseout\nawait go\nimage made\n");
    const auto go = m_project.fifo("go");
    const auto builder = m_project.makeBuilder();
    builder->build(m_outcome.buildHandler());
    std::ofstream(go) << "on"; // waits until the assembler waits
    ASSERT_TRUE(waitUntil([&] { return m_outcome.calls() > 0; }));
    ASSERT_TRUE(waitUntil([&] { return !m_project.console->texts.empty(); }));
    EXPECT_THAT(m_project.console->texts, ElementsAre("said\n"));
    EXPECT_EQ(contentOf(image()), "made");
}

class BuilderStart : public BuilderProcess {
protected:
    /// The description of a build whose assembler cannot be started.
    std::string failure() {
        m_outcome.reset();
        build(0);
        EXPECT_FALSE(m_outcome.image());
        EXPECT_NE(m_outcome.thread(), std::this_thread::get_id());
        const auto error = m_outcome.error().value_or(BuildError{});
        EXPECT_EQ(error.domain, "");
        EXPECT_EQ(error.code, 100);
        return error.description.value_or("");
    }
};

TEST_F(BuilderStart, OfAFileThatMayNotBeExecutedIsOneErrorWithASentence) {
    m_project.assembler = m_project.home.write("NESasm", "#!/bin/sh\n");
    EXPECT_EQ(failure(), "Could not start the assembler " + m_project.assembler->string() +
                             ": Permission denied");
}

TEST_F(BuilderStart, OfAFileOfAnotherKindIsOneErrorAndNoShellIsTried) {
    m_project.assembler = m_project.home.write("NESasm", "touch shell-was-here\n");
    std::filesystem::permissions(*m_project.assembler, std::filesystem::perms::owner_all);
    EXPECT_EQ(failure(), "Could not start the assembler " + m_project.assembler->string() +
                             ": Exec format error");
    EXPECT_FALSE(existsAt("shell-was-here"));
}

TEST_F(BuilderStart, OfAProgramForAnotherProcessorIsOneError) {
    std::string program = contentOf(FAKE_ASSEMBLER);
    program[18] = '\x08'; // the machine field of an ELF header: MIPS
    m_project.assembler = m_project.home.write("NESasm", program);
    std::filesystem::permissions(*m_project.assembler, std::filesystem::perms::owner_all);
    EXPECT_THAT(failure(), HasSubstr("Exec format error"));
}

TEST_F(BuilderStart, OfAFileThatVanishedIsOneError) {
    m_project.assembler = m_project.home.path() / "gone";
    EXPECT_THAT(failure(), HasSubstr("gone: No such file or directory"));
}

TEST_F(BuilderStart, WithAFolderNameThatIsNotTextIsOneError) {
    const auto odd = m_project.home.path() / "\xff";
    std::filesystem::create_directories(odd);
    m_project.settings->outputFilePath() = odd;
    EXPECT_THAT(failure(), HasSubstr("not valid UTF-8"));
}

} // namespace
} // namespace kestrel
