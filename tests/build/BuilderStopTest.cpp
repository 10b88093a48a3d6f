// SPDX-License-Identifier: MIT
#include "build/BuildProject.h"
#include "model/Paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel {
namespace {

using namespace test;
using State = BuildResult::State;
using ::testing::ElementsAre;

const BuildError Stopped{"", 100, "The build was stopped"};
const BuildError Overtaken{"", 100, "The build was replaced by a newer one"};

/// The number of entries in a folder of /proc/self.
std::size_t countIn(const char* folder) {
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

class BuilderStop : public ::testing::Test {
protected:
    /// Starts a build and waits for its assembler to get as far as making this file.
    std::shared_ptr<NESProjectBuilder> start(Outcome& outcome, const std::string& file) {
        auto builder = m_project.makeBuilder();
        builder->build(outcome.buildHandler());
        EXPECT_TRUE(waitUntil([&] { return existsAt(m_project.folder() / file); }));
        return builder;
    }

    /// Waits for the handler and the observer of all requests so far.
    void finish(const Outcome& outcome, std::size_t results = 1) {
        EXPECT_TRUE(waitUntil(
            [&] { return outcome.calls() > 0 && m_project.results->all.size() >= results; }));
        EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(60000));
        QCoreApplication::processEvents();
        EXPECT_EQ(outcome.calls(), 1);
        EXPECT_EQ(m_project.results->all.size(), results);
    }

    std::vector<State> states() const {
        std::vector<State> states;
        for (const auto& result : m_project.results->all) {
            states.push_back(result.state);
        }
        return states;
    }

    BuildProject m_project;
    Outcome m_outcome;
};

TEST_F(BuilderStop, EndsWithinASecondAnAssemblerThatTakesNoNoticeAndWhatItStarted) {
    const auto held = m_project.fifo("held");
    const int reader = ::open(held.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    m_project.script("ignore\nfork held\nhold held\nprint so far\ncount ready\nforever\n");
    const auto builder = start(m_outcome, "ready");
    QElapsedTimer timer;
    timer.start();
    builder->stop();
    ASSERT_TRUE(waitUntil([&] { return m_outcome.calls() > 0; }));
    EXPECT_LT(timer.elapsed(), 1000);
    pollfd writers{reader, POLLIN, 0};
    EXPECT_EQ(::poll(&writers, 1, 1000), 1) << "one of them holds the fifo still";
    EXPECT_NE(writers.revents & POLLHUP, 0);
    ::close(reader);
    finish(m_outcome);
    EXPECT_EQ(m_outcome.error(), Stopped);
    EXPECT_FALSE(m_outcome.image());
    EXPECT_THAT(states(), ElementsAre(State::stopped));
    EXPECT_EQ(m_project.results->all[0].error, Stopped);
    EXPECT_THAT(m_project.console->texts, ElementsAre("so far\n"));
}

TEST_F(BuilderStop, EndsAlsoWhatTheAssemblerStartedInASessionOfItsOwn) {
    const auto held = m_project.fifo("held");
    const int reader = ::open(held.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    m_project.script("session held\nhold held\ncount ready\nforever\n");
    const auto builder = start(m_outcome, "ready");
    ::poll(nullptr, 0, 200); // for the grandchildren to get to their places
    builder->stop();
    finish(m_outcome);
    pollfd writers{reader, POLLIN, 0};
    EXPECT_EQ(::poll(&writers, 1, 1000), 1) << "one of them holds the fifo still";
    EXPECT_NE(writers.revents & POLLHUP, 0);
    ::close(reader);
    EXPECT_THAT(states(), ElementsAre(State::stopped));
}

TEST_F(BuilderStop, LetsAnAssemblerTidyUp) {
    m_project.script("tidy tidied\ncount ready\nforever\n");
    const auto builder = start(m_outcome, "ready");
    builder->stop();
    finish(m_outcome);
    EXPECT_TRUE(existsAt(m_project.folder() / "tidied"));
    EXPECT_THAT(states(), ElementsAre(State::stopped));
}

TEST_F(BuilderStop, EndsAnAssemblerThatPrintsWithoutEnd) {
    m_project.script("count ready\nflood\n");
    const auto builder = start(m_outcome, "ready");
    builder->stop();
    finish(m_outcome);
    EXPECT_EQ(m_outcome.error(), Stopped);
}

TEST_F(BuilderStop, RightAfterTheRequestStartsNoAssembler) {
    // A worker that has begun may have started it, so all workers are kept busy until the stop.
    QThreadPool* const pool = QThreadPool::globalInstance();
    const int formerCount = pool->maxThreadCount();
    pool->setMaxThreadCount(1);
    std::atomic<bool> mayGo = false;
    pool->start([&] {
        while (!mayGo) {
            ::poll(nullptr, 0, 1);
        }
    });
    m_project.script("count started\n");
    const auto builder = m_project.makeBuilder();
    builder->build(m_outcome.buildHandler());
    builder->stop();
    mayGo = true;
    finish(m_outcome);
    pool->setMaxThreadCount(formerCount);
    EXPECT_EQ(m_outcome.error(), Stopped);
    EXPECT_FALSE(existsAt(m_project.folder() / "started"));
}

TEST_F(BuilderStop, BeforeAndAfterARequestDoesNothing) {
    m_project.script("image made\n");
    const auto builder = m_project.makeBuilder();
    builder->stop();
    builder->build(m_outcome.buildHandler());
    finish(m_outcome);
    builder->stop();
    m_outcome.reset();
    builder->build(m_outcome.buildHandler());
    finish(m_outcome, 2);
    EXPECT_THAT(states(), ElementsAre(State::made, State::made));
}

TEST_F(BuilderStop, DropsTheRestOfARun) {
    m_project.settings->pathToEmulator() = FAKE_EMULATOR;
    m_project.script("image made\ncount ready\nforever\n");
    const auto builder = m_project.makeBuilder();
    builder->run(m_outcome.runHandler());
    ASSERT_TRUE(waitUntil([&] { return existsAt(m_project.folder() / "ready"); }));
    builder->stop();
    finish(m_outcome);
    EXPECT_EQ(m_outcome.error(), Stopped);
    EXPECT_THAT(states(), ElementsAre(State::stopped));
    EXPECT_FALSE(waitUntil([&] { return existsAt(m_project.folder() / "output/opened"); },
                           std::chrono::seconds(1)));
}

TEST_F(BuilderStop, ANewerRequestEndsTheAssemblerOfTheOlderOneFirst) {
    Outcome newer;
    m_project.script("lock alone\nignore\ncount ready\nforever\n");
    const auto first = start(m_outcome, "ready");
    m_project.script("lock alone\nimage new\n");
    const auto second = m_project.makeBuilder();
    second->build(newer.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return m_outcome.calls() > 0; }));
    finish(newer, 2);
    EXPECT_EQ(m_outcome.calls(), 1);
    EXPECT_EQ(m_outcome.error(), Overtaken);
    EXPECT_FALSE(newer.error());
    EXPECT_THAT(states(), ElementsAre(State::stopped, State::made));
    EXPECT_GE(m_project.results->all[0].duration, std::chrono::milliseconds(300));
    EXPECT_LT(m_project.results->all[1].duration, std::chrono::milliseconds(300))
        << "the wait for the older one's end is not the newer one's time";
    EXPECT_EQ(contentOf(m_project.folder() / "output/Game.nes"), "new");
}

TEST_F(BuilderStop, OfManyRequestsOnlyTheNewestGoesOn) {
    constexpr std::size_t Count = 6;
    Outcome outcomes[Count];
    std::vector<std::shared_ptr<NESProjectBuilder>> builders;
    m_project.script("lock alone\ncount started\nforever\n");
    builders.push_back(start(outcomes[0], "started"));
    m_project.script("lock alone\ncount started\nimage newest\n");
    for (std::size_t i = 1; i < Count; ++i) {
        builders.push_back(m_project.makeBuilder());
        builders.back()->build(outcomes[i].buildHandler());
    }
    finish(outcomes[Count - 1], Count);
    for (std::size_t i = 0; i + 1 < Count; ++i) {
        EXPECT_EQ(outcomes[i].calls(), 1) << i;
        EXPECT_EQ(outcomes[i].error(), Overtaken) << i;
    }
    EXPECT_FALSE(outcomes[Count - 1].error());
    EXPECT_EQ(contentOf(m_project.folder() / "output/Game.nes"), "newest");
    const std::string started = contentOf(m_project.folder() / "started");
    EXPECT_EQ(std::count(started.begin(), started.end(), '\n'), 2) << "the first and the newest";
}

TEST_F(BuilderStop, ARequestForAnotherProjectLeavesTheAssemblerAlone) {
    Outcome other;
    const auto go = m_project.fifo("go");
    m_project.script("count ready\nawait go\nimage made\n");
    const auto builder = start(m_outcome, "ready");
    m_project.project->setItemName("Other");
    m_project.script("image other\n");
    const auto second = m_project.makeBuilder();
    second->build(other.buildHandler());
    ASSERT_TRUE(waitUntil([&] { return other.calls() > 0; }));
    EXPECT_EQ(m_outcome.calls(), 0);
    std::ofstream(go) << "on";
    finish(m_outcome, 2);
    EXPECT_THAT(states(), ElementsAre(State::made, State::made));
}

TEST_F(BuilderStop, HundredsOfBuildsAndStopsLeaveNothingBehind) {
    constexpr int Rounds = 300;
    QThreadPool* const pool = QThreadPool::globalInstance();
    const auto runRound = [&](int number) {
        const auto before = m_project.results->all.size();
        std::filesystem::remove(m_project.folder() / "ready");
        m_project.script(number % 3 == 0 ? "image made\ncount ready\n"
                                         : "count ready\nprint x\nforever\n");
        Outcome outcome;
        const auto builder = m_project.makeBuilder();
        builder->build(outcome.buildHandler());
        if (number % 3 == 1) {
            ASSERT_TRUE(waitUntil([&] { return existsAt(m_project.folder() / "ready"); }));
        }
        if (number % 3 != 0) {
            builder->stop();
        }
        finish(outcome, before + 1);
    };
    for (int i = 0; i < 6; ++i) {
        runRound(i);
    }
    const std::size_t descriptors = countIn("/proc/self/fd");
    const std::size_t threads = countIn("/proc/self/task");
    for (int i = 0; i < Rounds && !HasFatalFailure(); ++i) {
        runRound(i);
    }
    EXPECT_EQ(countIn("/proc/self/fd"), descriptors);
    EXPECT_LE(countIn("/proc/self/task"),
              std::max(threads, static_cast<std::size_t>(pool->maxThreadCount()) + 2));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

} // namespace
} // namespace kestrel
