// SPDX-License-Identifier: MIT
#include "build/AssemblerProcess.h"
#include "build/BuildProject.h"
#include "build/QtText.h"
#include "model/Paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QProcess>
#include <QThreadPool>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The reading end of a fifo; its end of file shows that whoever held the fifo is gone.
class FifoReader {
public:
    explicit FifoReader(const std::filesystem::path& path)
        : m_descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    FifoReader(const FifoReader&) = delete;
    FifoReader& operator=(const FifoReader&) = delete;
    ~FifoReader() { ::close(m_descriptor); }

    /// Whether the last writer goes within a minute.
    bool allWritersGo() const {
        pollfd entry{m_descriptor, POLLIN, 0};
        return ::poll(&entry, 1, 60000) == 1 && (entry.revents & POLLHUP) != 0;
    }

private:
    int m_descriptor;
};

/// Counts what the console gets and keeps none of it.
class CountingConsole : public ConsoleOutputDelegate {
public:
    void console(const QString& output) override {
        ++calls;
        length += output.size();
        ordinary = output.count(u'y') == output.size() / 2;
    }
    int calls = 0;
    qsizetype length = 0;
    bool ordinary = false;
};

class BuilderThreads : public ::testing::Test {
protected:
    /// Processes the events that are queued now, and those that they queue.
    static void processWhatIsQueued() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    /// Runs a program that quits while its assembler, with this script, still runs. It ends in
    /// order and never calls the handler.
    void expectQuittingProgram(const std::string& script) const {
        m_project.settings->saveBuildSettings();
        m_project.script(script);
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QStringLiteral(QUITTING_BUILD),
                      {*textFromPath(m_project.folder()), QStringLiteral(FAKE_ASSEMBLER)});
        ASSERT_TRUE(program.waitForFinished(60000)) << "the program does not quit";
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_EQ(program.readAllStandardOutput(), "") << "the handler was called after all";
    }

    BuildProject m_project;
};

TEST_F(BuilderThreads, CompletesOnABackgroundWorkerWithoutWaitingForTheMainThread) {
    Outcome outcome;
    m_project.script("print text\n");
    const auto builder = m_project.makeBuilder();
    builder->build(outcome.buildHandler());
    // No event is processed here: the handler must not need one. It is awaited at the pool.
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    EXPECT_EQ(outcome.calls(), 1);
    EXPECT_NE(outcome.thread(), std::this_thread::get_id());
    EXPECT_THAT(m_project.console->texts, IsEmpty());
    processWhatIsQueued();
    EXPECT_THAT(m_project.console->texts, ElementsAre("text\n"));
    EXPECT_EQ(outcome.calls(), 1);
}

TEST_F(BuilderThreads, TheOutputIsQueuedBeforeTheCompletionIsTold) {
    std::vector<std::string> order; // the main thread's own
    class OrderConsole : public ConsoleOutputDelegate {
    public:
        explicit OrderConsole(std::vector<std::string>& events)
            : m_events(events) {}
        void console(const QString& /*output*/) override { m_events.emplace_back("output"); }

    private:
        std::vector<std::string>& m_events;
    };
    const auto console = std::make_shared<OrderConsole>(order);
    const auto builder = m_project.makeBuilder();
    builder->setConsoleOutput(console);
    builder->build([&](const auto&, const auto&) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [&] { order.emplace_back("completion"); },
            Qt::QueuedConnection);
    });
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    processWhatIsQueued();
    EXPECT_THAT(order, ElementsAre("output", "completion"));
}

TEST_F(BuilderThreads, OutputForABuilderThatWasReplacedIsDropped) {
    Outcome outcome;
    m_project.script("print text\n");
    auto builder = m_project.makeBuilder();
    builder->build(outcome.buildHandler());
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    builder.reset();
    processWhatIsQueued();
    EXPECT_THAT(m_project.console->texts, IsEmpty());
    EXPECT_EQ(outcome.calls(), 1);
    EXPECT_EQ(outcome.image(), m_project.folder() / "output/Game.nes");
}

TEST_F(BuilderThreads, ABuildGoesOnWithoutItsBuilder) {
    Outcome outcome;
    const auto go = m_project.fifo("go");
    m_project.script("await go\nimage made\n");
    auto builder = m_project.makeBuilder();
    const std::weak_ptr<NESProjectBuilder> weak = builder;
    builder->build(outcome.buildHandler());
    builder.reset();
    EXPECT_TRUE(weak.expired()) << "the worker keeps the builder";
    std::ofstream(go) << "on";
    ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0; }));
    EXPECT_EQ(contentOf(m_project.folder() / "output/Game.nes"), "made");
}

TEST_F(BuilderThreads, OutputForAConsoleThatIsGoneIsDropped) {
    Outcome outcome;
    m_project.script("print text\n");
    const auto builder = m_project.makeBuilder();
    builder->build(outcome.buildHandler());
    const std::weak_ptr<RecordingConsole> weak = m_project.console;
    m_project.console.reset();
    EXPECT_TRUE(weak.expired()) << "the builder keeps the console";
    ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0; }));
    processWhatIsQueued();
    EXPECT_FALSE(outcome.error());
}

TEST_F(BuilderThreads, TheLastReferenceToTheBuilderMayDropOnTheWorker) {
    Outcome outcome;
    Outcome end; // told by what only the builder holds
    auto watch = std::shared_ptr<void>(nullptr, [told = end.runHandler()](void*) { told({}); });
    auto builder = std::make_shared<NESProjectBuilder>(
        m_project.settings, [watch, place = m_project.assembler] { return place; });
    watch.reset();
    builder->setConsoleOutput(m_project.console);
    auto* const raw = builder.get();
    raw->build([handler = outcome.buildHandler(), builder](const auto& image, const auto& error) {
        handler(image, error);
    });
    builder.reset();
    ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
    EXPECT_EQ(end.calls(), 1);
    EXPECT_EQ(end.thread(), outcome.thread());
    EXPECT_NE(end.thread(), std::this_thread::get_id());
    processWhatIsQueued();
    EXPECT_EQ(outcome.calls(), 1);
    EXPECT_THAT(m_project.console->texts, IsEmpty());
}

TEST_F(BuilderThreads, AHandlerMayStartTheNextBuildOnItsWorker) {
    Outcome first;
    Outcome second;
    const auto builder = m_project.makeBuilder();
    const auto next = m_project.makeBuilder();
    builder->build([&, handler = first.buildHandler()](const auto& image, const auto& error) {
        next->build(second.buildHandler());
        handler(image, error);
    });
    ASSERT_TRUE(waitUntil([&] { return first.calls() > 0 && second.calls() > 0; }));
    EXPECT_FALSE(second.error());
}

TEST_F(BuilderThreads, ThreeBuildsRunAtOnceOnAMachineWithTwoProcessors) {
    QThreadPool* const pool = QThreadPool::globalInstance();
    const int formerCount = pool->maxThreadCount();
    pool->setMaxThreadCount(2);
    std::vector<std::unique_ptr<BuildProject>> projects;
    std::vector<std::shared_ptr<NESProjectBuilder>> builders;
    std::vector<std::filesystem::path> fifos;
    Outcome outcomes[3];
    for (auto& outcome : outcomes) {
        projects.push_back(std::make_unique<BuildProject>());
        fifos.push_back(projects.back()->fifo("go"));
        projects.back()->script("await go\nprint done\n");
        builders.push_back(projects.back()->makeBuilder());
        builders.back()->build(outcome.buildHandler());
    }
    // All three assemblers are there before any may end.
    for (const auto& project : projects) {
        EXPECT_TRUE(waitUntil([&] { return existsAt(project->folder() / "record"); }));
    }
    for (const auto& outcome : outcomes) {
        EXPECT_EQ(outcome.calls(), 0);
    }
    for (const auto& fifo : fifos) {
        std::ofstream(fifo) << "on";
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(waitUntil([&] {
            return outcomes[i].calls() == 1 &&
                   !projects[static_cast<std::size_t>(i)]->console->texts.empty();
        }));
    }
    ASSERT_TRUE(pool->waitForDone(60000));
    pool->setMaxThreadCount(formerCount);
    while (!projects.empty()) {
        projects.pop_back(); // each gives back the home folder that it found
    }
}

TEST_F(BuilderThreads, ManyBuildsInARowEachDeliverOnce) {
    m_project.script("print text\n");
    constexpr std::size_t Count = 20;
    for (std::size_t i = 0; i < Count; ++i) {
        Outcome outcome;
        const auto builder = m_project.makeBuilder();
        builder->build(outcome.buildHandler());
        ASSERT_TRUE(
            waitUntil([&] { return outcome.calls() > 0 && m_project.console->texts.size() > i; }));
        ASSERT_EQ(outcome.calls(), 1);
        ASSERT_EQ(m_project.console->texts.size(), i + 1);
    }
}

TEST_F(BuilderThreads, AGrandchildThatKeepsThePipeOpenDoesNotHoldTheBuildUp) {
    Outcome outcome;
    const auto held = m_project.fifo("held");
    FifoReader reader(held);
    m_project.script("print before\nfork held\nfill 60000\nprint after\n");
    const auto builder = m_project.makeBuilder();
    builder->build(outcome.buildHandler());
    ASSERT_TRUE(
        waitUntil([&] { return outcome.calls() > 0 && !m_project.console->texts.empty(); }));
    ASSERT_EQ(m_project.console->texts.size(), 1U);
    EXPECT_EQ(m_project.console->texts[0].size(), 60000U + 7U + 6U);
    // Still there, and not the builder's to end; the test ends its group, which is the child's.
    const auto group = std::stoi(contentOf(m_project.folder() / "process"));
    EXPECT_EQ(::kill(-group, SIGKILL), 0);
    EXPECT_TRUE(reader.allWritersGo());
}

TEST_F(BuilderThreads, AGrandchildThatPrintsWithoutEndDoesNotHoldTheBuildUp) {
    Outcome outcome;
    m_project.script("print before\nforkflood\nprint after\n");
    const auto builder = m_project.makeBuilder();
    builder->build(outcome.buildHandler());
    ASSERT_TRUE(
        waitUntil([&] { return outcome.calls() > 0 && !m_project.console->texts.empty(); }));
    ASSERT_EQ(m_project.console->texts.size(), 1U);
    EXPECT_TRUE(m_project.console->texts[0].starts_with("before\n"));
    EXPECT_NE(m_project.console->texts[0].find("after\n"), std::string::npos);
}

TEST_F(BuilderThreads, NoZombieIsLeft) {
    Outcome outcome;
    const auto builder = m_project.makeBuilder();
    builder->build(outcome.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0; }));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(BuilderThreads, QuittingEndsAnAssemblerThatNeverEndsAndItsProcessGroup) {
    const auto childHolds = m_project.fifo("child");
    const auto grandchildHolds = m_project.fifo("grandchild");
    FifoReader child(childHolds);
    FifoReader grandchild(grandchildHolds);
    expectQuittingProgram("fork grandchild\nhold child\nforever\n");
    EXPECT_TRUE(child.allWritersGo());
    EXPECT_TRUE(grandchild.allWritersGo());
}

TEST_F(BuilderThreads, AStopIsAskedForWithEveryPieceOfOutput) {
    constexpr int Pieces = 64;
    constexpr int Pipe = 65536; // what a pipe holds, so the most that comes in one piece
    m_project.script("fill " + std::to_string(Pieces * Pipe) + "\n");
    AssemblerRequest request;
    request.assembler = FAKE_ASSEMBLER;
    request.includeFolder = m_project.folder() / "tmp";
    int asked = 0;
    auto result = runAssembler(request, [&] { return ++asked < 0; });
    EXPECT_GE(asked, Pieces);
    EXPECT_FALSE(result.stopped);
    ASSERT_TRUE(result.output);
    EXPECT_EQ(result.output->size(), Pieces * Pipe);

    asked = 0;
    result = runAssembler(request, [&] { return ++asked == 2; });
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(result.stopped);
    ASSERT_TRUE(result.output); // what came before the stop
    EXPECT_LT(result.output->size(), Pieces * Pipe);
}

TEST_F(BuilderThreads, QuittingEndsAnAssemblerThatPrintsWithoutEnd) {
    const auto childHolds = m_project.fifo("child");
    FifoReader child(childHolds);
    expectQuittingProgram("hold child\nflood\n");
    EXPECT_TRUE(child.allWritersGo());
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KESTREL_SLOW_BUILD
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KESTREL_SLOW_BUILD
#endif
#endif

class BuilderOutput : public BuilderThreads {
protected:
    /// Builds with an assembler that prints so many bytes.
    void deliver(qsizetype bytes) {
        const auto console = std::make_shared<CountingConsole>();
        m_project.script("fill " + std::to_string(bytes) + "\n");
        Outcome outcome;
        const auto builder = m_project.makeBuilder();
        builder->setConsoleOutput(console);
        builder->build(outcome.buildHandler());
        ASSERT_TRUE(waitUntil([&] { return outcome.calls() > 0 && console->calls > 0; },
                              std::chrono::seconds(240)));
        EXPECT_EQ(console->calls, 1);
        EXPECT_EQ(console->length, bytes);
        EXPECT_TRUE(console->ordinary);
    }
};

#ifdef KESTREL_SLOW_BUILD // and one that needs much memory of its own
TEST_F(BuilderOutput, Of64MebibytesArrivesOnce) {
    deliver(64 * 1024 * 1024);
}
#else
TEST_F(BuilderOutput, OfAGigabyteArrivesOnceAndIsHeldOnce) {
    constexpr qsizetype gigabyte = 1024 * 1024 * 1024;
    deliver(gigabyte);
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    // The text has two bytes a letter; the rest is what is under way.
    EXPECT_LT(usage.ru_maxrss, (2 * gigabyte + gigabyte / 2) / 1024) << "in KiB";
}
#endif

} // namespace
} // namespace kestrel
