// SPDX-License-Identifier: MIT
#include "build/BuildProject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QThreadPool>

#include <csignal>

namespace kestrel {
namespace {

using namespace test;
using State = BuildResult::State;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class BuilderResult : public ::testing::Test {
protected:
    /// Builds and returns what the observer was told, which must be one result.
    BuildResult build() {
        m_outcome.reset();
        const std::size_t before = m_project.results->all.size();
        const auto builder = m_project.makeBuilder();
        builder->build(m_outcome.buildHandler());
        EXPECT_TRUE(waitUntil([&] { return m_project.results->all.size() > before; }));
        EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
        QCoreApplication::processEvents();
        EXPECT_EQ(m_project.results->all.size(), before + 1);
        EXPECT_EQ(m_project.results->threads.back(), std::this_thread::get_id());
        EXPECT_EQ(m_outcome.calls(), 1);
        return m_project.results->all.back();
    }

    std::filesystem::path image() const { return m_project.folder() / "output/Game.nes"; }

    BuildProject m_project;
    Outcome m_outcome;
};

TEST_F(BuilderResult, AnImageThatWasMadeComesWithItsSizeAndTheWarnings) {
    m_project.script("image 12345\nprint main.asm:3:5: warning: odd\nprint   code\n"
                     "print main.asm:4:1: warning: odd\n");
    const BuildResult result = build();
    EXPECT_EQ(result.state, State::made);
    EXPECT_EQ(result.image, image());
    EXPECT_EQ(result.bytes, 5U);
    EXPECT_EQ(result.errors, 0U);
    EXPECT_EQ(result.warnings, 2U);
    EXPECT_TRUE(result.hasOutput);
    EXPECT_GT(result.duration.count(), 0);
    EXPECT_FALSE(result.error);
    EXPECT_THAT(result.sentence(), HasSubstr("Game.nes built in "));
    EXPECT_THAT(result.sentence(), HasSubstr(" s: 5 bytes, 2 warnings"));
}

TEST_F(BuilderResult, AnImageOfAnEarlierBuildDoesNotCount) {
    m_project.script("image old\n");
    EXPECT_EQ(build().state, State::made);
    m_project.script("print main.asm:3:5: error: x\nexit 1\n");
    const BuildResult result = build();
    EXPECT_EQ(result.state, State::notMade);
    EXPECT_EQ(result.errors, 1U);
    EXPECT_EQ(result.bytes, 0U);
    EXPECT_EQ(result.sentence(), "1 error: no image");
    EXPECT_EQ(m_outcome.image(), image()) << "the handler does not look at the image";
    EXPECT_FALSE(m_outcome.error());
}

TEST_F(BuilderResult, AnImageWithTheBytesOfTheEarlierOneCounts) {
    m_project.script("image same\n");
    EXPECT_EQ(build().state, State::made);
    EXPECT_EQ(build().state, State::made);
}

TEST_F(BuilderResult, WithTheImageTheExitStatusDoesNotCount) {
    m_project.script("image made\nexit 1\n");
    EXPECT_EQ(build().state, State::made);
    m_project.script("exit 0\n");
    EXPECT_EQ(build().state, State::notMade);
    EXPECT_EQ(m_project.results->all.back().sentence(),
              "No image was made, and the assembler said nothing");
}

TEST_F(BuilderResult, AnImageThatComesWhileTheAssemblerFailsIsNotItsOwn) {
    for (const char* end : {"exit 1\n", "kill\n"}) {
        m_project.script(std::string("image other\nprint main.asm:1:1: error: bad\n") + end);
        const BuildResult result = build();
        EXPECT_FALSE(result.isMade()) << end;
        EXPECT_EQ(result.bytes, 0U);
        EXPECT_EQ(m_outcome.image(), image()) << "the handler looks at none of that";
    }
    m_project.script("image made\nprint main.asm:1:1: error: bad\n");
    EXPECT_TRUE(build().isMade()) << "the assembler ended well";
}

TEST_F(BuilderResult, AtTheAssemblersLimitTheErrorsMayBeMore) {
    m_project.script(
        "print main.asm:1:1: error: bad\n"
        "print stopped here: 1 error is the limit (--max-errors changes it)\nexit 1\n");
    EXPECT_EQ(build().sentence(), "1 error or more: no image");
}

TEST_F(BuilderResult, AnInterpreterThatIsMissingIsNamed) {
    m_project.assembler = m_project.home.write("script", "#! /no/such/perl -w\n");
    std::filesystem::permissions(*m_project.assembler, std::filesystem::perms::owner_all);
    EXPECT_EQ(build().sentence(), "Could not start the assembler " + m_project.assembler->string() +
                                      ": its first line names /no/such/perl: "
                                      "No such file or directory");
}

TEST_F(BuilderResult, AFileThatCouldNotBeCopiedIsNamedButNotInTheConsole) {
    std::filesystem::create_directories(m_project.folder() / "tmp/extra.asm/inner");
    m_project.addSource("extra.asm", "; extra\n");
    m_project.script("image made\nprint text\n");
    BuildResult result = build();
    EXPECT_EQ(result.state, State::made);
    EXPECT_FALSE(result.isGood());
    EXPECT_THAT(result.notCopied,
                ElementsAre(UncopiedFile{"extra.asm", "a folder of its name is there", false}));
    EXPECT_THAT(result.hints, ElementsAre("\"extra.asm\" could not be copied to \"" +
                                          (m_project.folder() / "tmp").string() +
                                          "\": a folder of its name is there."));
    EXPECT_THAT(m_project.console->texts, ElementsAre("text\n"));
    EXPECT_FALSE(m_outcome.error());
    EXPECT_EQ(m_outcome.image(), image());

    m_project.script("print error: the input cannot be read\n");
    result = build();
    EXPECT_EQ(result.state, State::notMade);
    EXPECT_EQ(result.hints.size(), 1U);
    m_project.script("kill\n");
    EXPECT_EQ(build().hints.size(), 1U);
    m_project.assembler = m_project.home.write("no program", "");
    result = build();
    EXPECT_EQ(result.state, State::notStarted);
    EXPECT_EQ(result.notCopied.size(), 1U);
    EXPECT_THAT(result.hints, IsEmpty());
}

TEST_F(BuilderResult, AnOlderCopyThatWasBuiltIsTold) {
    m_project.script("image made\n");
    EXPECT_TRUE(build().isGood());
    const auto temp = m_project.folder() / "tmp";
    std::filesystem::rename(temp, m_project.folder() / "elsewhere");
    std::filesystem::create_directory_symlink(m_project.folder() / "elsewhere", temp);
    const BuildResult result = build();
    EXPECT_TRUE(result.isMade());
    EXPECT_THAT(result.notCopied, ElementsAre(UncopiedFile{"main.asm", "that is a link", true}));
    EXPECT_THAT(result.sentence(), EndsWith(", but not of your files as they are"));
}

TEST_F(BuilderResult, AMessageWithoutAPlaceCounts) {
    m_project.script("print error: the output 'Game.nes' cannot be written: No space left\n");
    EXPECT_EQ(build().sentence(), "1 error: no image");
    m_project.script("print warning: odd\nexit 0\n");
    EXPECT_EQ(build().sentence(), "No image was made, 1 warning; see what the assembler says");
}

TEST_F(BuilderResult, MessagesCountAlsoInOutputThatIsNoText) {
    m_project.script("print main.asm:3:5: error: x\nhex FF0A\n");
    const BuildResult result = build();
    EXPECT_EQ(result.errors, 1U);
    EXPECT_TRUE(result.hasOutput);
    EXPECT_THAT(m_project.console->texts, IsEmpty());
}

TEST_F(BuilderResult, ACrashIsToldWithItsSignalAndOnlyToTheObserver) {
    m_project.script("print before\nkill\n");
    const BuildResult result = build();
    EXPECT_EQ(result.state, State::crashed);
    EXPECT_EQ(result.signal, SIGKILL);
    EXPECT_EQ(result.sentence(), "The assembler crashed (Killed): no image");
    EXPECT_EQ(m_outcome.image(), image());
    EXPECT_FALSE(m_outcome.error());
}

TEST_F(BuilderResult, AnAssemblerThatCannotBeStartedIsToldWithTheReason) {
    m_project.assembler = m_project.home.write("no program", "");
    const BuildResult result = build();
    EXPECT_EQ(result.state, State::notStarted);
    EXPECT_EQ(result.error, m_outcome.error());
    EXPECT_THAT(result.sentence(), HasSubstr("Could not start the assembler "));
    EXPECT_THAT(result.hints, IsEmpty());
}

TEST_F(BuilderResult, WithoutAMainFileItComesWithHints) {
    m_project.settings->assemblyFiles().clear();
    m_project.addSource("latin.asm", "; \xe9\n");
    const BuildResult result = build();
    EXPECT_EQ(result.state, State::refused);
    EXPECT_EQ(result.error,
              (BuildError{"", 100, "Could not find main entry point for assembly file(s)"}));
    EXPECT_EQ(result.error, m_outcome.error());
    EXPECT_EQ(m_outcome.thread(), std::this_thread::get_id());
    EXPECT_THAT(result.hints, Contains(HasSubstr("latin.asm\" is not valid UTF-8")));
    EXPECT_THAT(result.hints.back(), HasSubstr("the first listed one that holds \".org $FFFA\""));
}

TEST_F(BuilderResult, AFailedSetUpComesWithAHint) {
    m_project.settings->outputFilePath().reset();
    BuildResult result = build();
    EXPECT_EQ(result.state, State::refused);
    EXPECT_EQ(result.sentence(), "Could not create temp folder to build project");
    ASSERT_EQ(result.hints.size(), 1U);
    EXPECT_THAT(result.hints[0], HasSubstr("There are no build settings "));
    m_project.assembler.reset();
    result = build();
    ASSERT_EQ(result.hints.size(), 1U);
    EXPECT_THAT(result.hints[0], HasSubstr("The assembler NESasm is neither beside "
                                           "build_builder_test nor"));
}

TEST_F(BuilderResult, ComesAfterTheConsoleGotTheOutput) {
    m_project.script("print text\n");
    std::size_t textsBefore = 0;
    bool told = false;
    const auto builder = m_project.makeBuilder();
    builder->setObserver([&](const BuildResult& /*result*/) {
        textsBefore = m_project.console->texts.size();
        told = true;
    });
    builder->build(m_outcome.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return told; }));
    EXPECT_EQ(textsBefore, 1U);
}

TEST_F(BuilderResult, ComesAlsoWhenTheBuilderIsGone) {
    auto builder = m_project.makeBuilder();
    builder->build({});
    builder.reset();
    EXPECT_TRUE(waitUntil([&] { return !m_project.results->all.empty(); }));
    EXPECT_THAT(m_project.console->texts, IsEmpty());
}

TEST_F(BuilderResult, ARunTellsTheResultOfItsBuildOnce) {
    m_project.script("image made\n");
    const auto builder = m_project.makeBuilder();
    builder->run(m_outcome.runHandler());
    ASSERT_TRUE(
        waitUntil([&] { return m_outcome.calls() > 0 && !m_project.results->all.empty(); }));
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    QCoreApplication::processEvents();
    ASSERT_EQ(m_project.results->all.size(), 1U);
    EXPECT_EQ(m_project.results->all[0].state, State::made);
}

} // namespace
} // namespace kestrel
