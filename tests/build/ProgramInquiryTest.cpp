// SPDX-License-Identifier: MIT
#include "build/ProgramInquiry.h"

#include "build/BuildProject.h"
#include "facts/ProgramKnowledge.h"
#include "model/Paths.h"
#include "support/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QThreadPool>

#include <csignal>
#include <fstream>
#include <sched.h>
#include <sys/resource.h>

namespace kestrel {
namespace {

using namespace test;
using ::testing::HasSubstr;

constexpr const char* EmptyProgram = "print kestrel-facts\t1\nprint end\n";

/// A project folder whose kestrel-facts is the fake assembler with a script.
class ProgramInquiryTest : public ::testing::Test {
protected:
    BuildResult made() const {
        BuildResult result;
        result.state = BuildResult::State::made;
        result.image = m_folder.path() / "Game.nes";
        result.mainFile = "main.asm";
        result.includeFolder = m_folder.path() / "tmp";
        return result;
    }

    void script(const std::string& lines) const { m_folder.write("script", lines); }

    std::filesystem::path record() const { return m_folder.path() / "record"; }

    /// The process of the program that was started last, once it runs its script.
    pid_t startedProcess() const {
        EXPECT_TRUE(waitUntil([&] { return existsAt(record()); }));
        pid_t process = 0;
        std::ifstream(m_folder.path() / "process") >> process;
        EXPECT_GT(process, 0);
        return process;
    }

    static void finish() {
        EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
        QCoreApplication::processEvents();
    }

    TemporaryFolder m_folder;
    ProgramKnowledge m_knowledge;
    std::optional<std::filesystem::path> m_program = std::filesystem::path(FAKE_ASSEMBLER);
    LogCapture m_log;
};

bool isGone(pid_t process) {
    return ::kill(process, 0) != 0;
}

} // namespace

TEST_F(ProgramInquiryTest, TellsOfABuildThatMadeAnImage) {
    script(EmptyProgram);
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    inquiry.nextBuild()(made());
    ASSERT_TRUE(waitUntil([this] { return m_knowledge.facts() != nullptr; }));
    EXPECT_EQ(*m_knowledge.facts(), ProgramFacts{});
    EXPECT_EQ(m_knowledge.image(), made().image);
    const std::string record = contentOf(this->record());
    EXPECT_THAT(record, HasSubstr("argument --input\nargument main.asm\nvariable NES_INCLUDE=" +
                                  made().includeFolder.string() + "\nfolder"));
}

TEST_F(ProgramInquiryTest, RunsAtTheLowestPriority) {
    script("forever\n");
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    inquiry.nextBuild()(made());
    const pid_t process = startedProcess();
    EXPECT_EQ(::getpriority(PRIO_PROCESS, static_cast<id_t>(process)), 19);
    EXPECT_EQ(::sched_getscheduler(process), SCHED_IDLE);
    inquiry.nextBuild();
    finish();
}

TEST_F(ProgramInquiryTest, AsksOnlyWhenAnImageOfTheFilesWasMade) {
    script(EmptyProgram);
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    for (const auto state :
         {BuildResult::State::refused, BuildResult::State::notStarted, BuildResult::State::notMade,
          BuildResult::State::crashed, BuildResult::State::stopped}) {
        BuildResult result = made();
        result.state = state;
        inquiry.nextBuild()(result);
        finish();
        EXPECT_FALSE(existsAt(record()));
    }
    BuildResult ofOlderFiles = made();
    ofOlderFiles.notCopied = {{"main.asm", "Read-only file system", true}};
    inquiry.nextBuild()(ofOlderFiles);
    finish();
    EXPECT_FALSE(existsAt(record()));
}

TEST_F(ProgramInquiryTest, IsDroppedWhenANewerBuildStarts) {
    script("ignore\nforever\n");
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    const BuildObserver first = inquiry.nextBuild();
    first(made());
    const pid_t process = startedProcess();
    EXPECT_FALSE(isGone(process));
    const BuildObserver second = inquiry.nextBuild();
    finish();
    EXPECT_TRUE(isGone(process));
    EXPECT_EQ(m_knowledge.facts(), nullptr);
    // An older build's result that comes late is none any more.
    std::filesystem::remove(record());
    first(made());
    finish();
    EXPECT_FALSE(existsAt(record()));
    script(EmptyProgram);
    second(made());
    EXPECT_TRUE(waitUntil([this] { return m_knowledge.facts() != nullptr; }));
}

TEST_F(ProgramInquiryTest, DropsWhatWasFoundOutTooLate) {
    script(EmptyProgram);
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    inquiry.nextBuild()(made());
    EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(60000)); // the answer is on its way
    inquiry.nextBuild();
    finish();
    EXPECT_EQ(m_knowledge.facts(), nullptr);
}

TEST_F(ProgramInquiryTest, IsDroppedWithItsOwner) {
    script("ignore\nforever\n");
    BuildObserver observer;
    pid_t process = 0;
    {
        ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
        observer = inquiry.nextBuild();
        observer(made());
        process = startedProcess();
    }
    observer(made());
    finish();
    EXPECT_TRUE(isGone(process));
    EXPECT_EQ(m_knowledge.facts(), nullptr);
}

TEST_F(ProgramInquiryTest, IsSilentWhenItFails) {
    const auto before = std::make_shared<const ProgramFacts>();
    m_knowledge.set("/p/old.nes", before);
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    for (const char* lines :
         {"exit 1\n", "kill\n", "print kestrel-facts\t1\n", "print kestrel-facts\t2\nprint end\n",
          "print kestrel-facts\t1\nprint end\nexit 1\n",
          "print kestrel-facts\t1\nprint end\nkill\n"}) {
        script(lines);
        inquiry.nextBuild()(made());
        finish();
        EXPECT_EQ(m_knowledge.facts(), before) << lines;
    }
    m_program = m_folder.path() / "missing";
    inquiry.nextBuild()(made());
    m_program.reset();
    inquiry.nextBuild()(made());
    finish();
    EXPECT_EQ(m_knowledge.facts(), before);
    EXPECT_TRUE(m_log.lines().empty());
}

TEST_F(ProgramInquiryTest, EndsAtItsTimeLimitAndSaysSo) {
    const auto before = std::make_shared<const ProgramFacts>();
    m_knowledge.set(made().image, before);
    script("ignore\nforever\n");
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    inquiry.setTimeLimit(std::chrono::milliseconds(300));
    const BuildObserver observer = inquiry.nextBuild();
    observer(made());
    const pid_t process = startedProcess();
    ASSERT_TRUE(waitUntil([this] { return m_knowledge.gaveUp(); }));
    EXPECT_TRUE(isGone(process));
    EXPECT_EQ(m_knowledge.facts(), before) << "of the build before";
    ASSERT_EQ(m_log.lines().size(), 1U);
    EXPECT_THAT(m_log.lines().front(), HasSubstr(" took longer than 300 ms and was ended"));
    // Of another image nothing is known.
    BuildResult other = made();
    other.image = m_folder.path() / "Other.nes";
    observer(other);
    ASSERT_TRUE(waitUntil([this] { return m_knowledge.facts() == nullptr; }));
    EXPECT_TRUE(m_knowledge.gaveUp());
    // The next one that answers in time sets all right.
    script(EmptyProgram);
    inquiry.nextBuild()(made());
    ASSERT_TRUE(waitUntil([this] { return m_knowledge.facts() != nullptr; }));
    EXPECT_FALSE(m_knowledge.gaveUp());
    finish();
}

TEST_F(ProgramInquiryTest, StopsFloodsAtOnce) {
    script("flood\n");
    ProgramInquiry inquiry(m_knowledge, [this] { return m_program; });
    inquiry.nextBuild()(made());
    const pid_t process = startedProcess();
    inquiry.nextBuild();
    finish();
    EXPECT_TRUE(isGone(process));
}

/// The builder's own results, asked about with the real program.
TEST(ProgramInquiryOfBuilds, KnowsWhatTheAssemblerWasGiven) {
    BuildProject project;
    project.assembler = NESASM_PROGRAM;
    project.home.write("Game/src/main.asm", "  .inesprg 1\n  .org $8000\nstart:\n"
                                            "  .include \"more\"\n  .bank 1\n  .org $FFFA\n"
                                            "  .dw 0,start,0\n");
    project.addSource("more.asm", "  .db 1,2,3\n");
    ProgramKnowledge knowledge;
    ProgramInquiry inquiry(knowledge, [] { return std::filesystem::path(KESTREL_FACTS); });
    Outcome outcome;
    const auto builder = project.makeBuilder();
    builder->setObserver(inquiry.nextBuild());
    builder->build(outcome.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return knowledge.facts() != nullptr; }));
    EXPECT_NE(knowledge.facts()->fileNamed("more.asm"), nullptr);
    EXPECT_NE(knowledge.facts()->symbol("start"), nullptr);
}

} // namespace kestrel
