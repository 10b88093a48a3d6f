// SPDX-License-Identifier: MIT
#include "build/BuildHandOver.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kestrel {
namespace {

using HandOver = BuildHandOver<std::string>;

/// Stands for the main thread's event queue.
class TaskQueue {
public:
    HandOver::Post post() {
        return [this](HandOver::Task task) {
            const std::lock_guard lock(m_mutex);
            m_tasks.push_back(std::move(task));
            m_changed.notify_all();
        };
    }

    void runNext() {
        HandOver::Task task;
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [&] { return !m_tasks.empty(); });
            task = std::move(m_tasks.front());
            m_tasks.pop_front();
        }
        task();
    }

    std::size_t size() const {
        const std::lock_guard lock(m_mutex);
        return m_tasks.size();
    }

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<HandOver::Task> m_tasks;
};

/// Stands for a builder: what a delivery refers to weakly.
struct Builder {
    std::string received;
    int deliveries = 0;
};

HandOver::Deliver deliverTo(const std::weak_ptr<Builder>& builder) {
    return [builder](const std::string& text) {
        if (const auto alive = builder.lock()) {
            alive->received += text;
            ++alive->deliveries;
        }
    };
}

TEST(BuildHandOver, PostsTheWholeOutputBeforeItCompletes) {
    TaskQueue queue;
    const auto builder = std::make_shared<Builder>();
    std::size_t postedAtCompletion = 0;
    std::optional<std::filesystem::path> image;
    HandOver handOver(
        [&](const auto& path, const auto& error) {
            postedAtCompletion = queue.size();
            image = path;
            EXPECT_FALSE(error);
        },
        queue.post(), deliverTo(builder));
    EXPECT_TRUE(handOver.finish("all of it", "/out/Game.nes"));
    EXPECT_EQ(postedAtCompletion, 1U);
    EXPECT_EQ(image, "/out/Game.nes");
    EXPECT_EQ(builder->deliveries, 0) << "delivered without waiting for the main thread";
    queue.runNext();
    EXPECT_EQ(builder->received, "all of it");
}

TEST(BuildHandOver, PostsNothingWhenThereIsNoText) {
    TaskQueue queue;
    int calls = 0;
    HandOver handOver([&](const auto&, const auto&) { ++calls; }, queue.post(), nullptr);
    EXPECT_TRUE(handOver.finish(std::nullopt, "/out/Game.nes"));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(queue.size(), 0U);
}

TEST(BuildHandOver, DeliversAnEmptyTextLikeAnyOther) {
    TaskQueue queue;
    const auto builder = std::make_shared<Builder>();
    HandOver handOver(nullptr, queue.post(), deliverTo(builder));
    EXPECT_TRUE(handOver.finish("", "/out/Game.nes"));
    queue.runNext();
    EXPECT_EQ(builder->deliveries, 1);
}

TEST(BuildHandOver, AnErrorCompletesWithoutOutput) {
    TaskQueue queue;
    std::optional<BuildError> reported;
    HandOver handOver(
        [&](const auto& image, const auto& error) {
            EXPECT_FALSE(image);
            reported = error;
        },
        queue.post(), nullptr);
    EXPECT_TRUE(handOver.fail({"", 100, "It did not start"}));
    EXPECT_EQ(reported, (BuildError{"", 100, "It did not start"}));
    EXPECT_EQ(queue.size(), 0U);
}

TEST(BuildHandOver, PostsAReportBehindTheOutputAndBeforeItCompletes) {
    for (const bool succeeds : {true, false}) {
        TaskQueue queue;
        const auto builder = std::make_shared<Builder>();
        std::size_t postedAtCompletion = 0;
        int deliveriesBefore = -1;
        HandOver handOver([&](const auto&, const auto&) { postedAtCompletion = queue.size(); },
                          queue.post(), deliverTo(builder));
        const HandOver::Task report = [&] { deliveriesBefore = builder->deliveries; };
        EXPECT_TRUE(succeeds ? handOver.finish("text", "/out/Game.nes", report)
                             : handOver.fail({"", 100, "stopped"}, "text", report));
        EXPECT_EQ(postedAtCompletion, 2U);
        EXPECT_FALSE(handOver.fail({"", 100, "late"}, "late", report));
        queue.runNext();
        queue.runNext();
        EXPECT_EQ(deliveriesBefore, 1);
        EXPECT_EQ(builder->received, "text");
        EXPECT_EQ(queue.size(), 0U);
    }
}

TEST(BuildHandOver, AnAbandonedBuildCallsNobodyAndLetsItsHandlerGo) {
    TaskQueue queue;
    const auto held = std::make_shared<int>(0);
    HandOver handOver([held](const auto&, const auto&) { ++*held; }, queue.post(), nullptr);
    EXPECT_TRUE(handOver.abandon());
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(handOver.finish("late", "/out/Game.nes"));
    EXPECT_FALSE(handOver.fail({"", 100, "late"}));
    EXPECT_EQ(*held, 0);
    EXPECT_EQ(queue.size(), 0U);
}

TEST(BuildHandOver, LetsItsHandlerGoAfterTheCall) {
    const auto held = std::make_shared<int>(0);
    HandOver handOver([held](const auto&, const auto&) { ++*held; }, nullptr, nullptr);
    EXPECT_TRUE(handOver.fail({"", 100, "x"}));
    EXPECT_EQ(*held, 1);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(BuildHandOver, OfManyThreadsThatReportAtOnceExactlyOneCompletes) {
    constexpr int Rounds = 200;
    constexpr int ThreadCount = 4;
    for (int round = 0; round < Rounds; ++round) {
        TaskQueue queue;
        int calls = 0; // not atomic: only one thread may ever come here
        std::atomic<int> winners = 0;
        HandOver handOver([&](const auto&, const auto&) { ++calls; }, queue.post(),
                          [](const std::string&) {});
        std::barrier start(ThreadCount);
        std::vector<std::thread> threads;
        for (int i = 0; i < ThreadCount; ++i) {
            threads.emplace_back([&, i] {
                start.arrive_and_wait();
                const bool won = i % 2 == 0 ? handOver.finish("text", "/out/Game.nes")
                                            : handOver.fail({"", 100, "failed"});
                winners += won ? 1 : 0;
            });
        }
        for (auto& thread : threads) {
            thread.join();
        }
        ASSERT_EQ(calls, 1);
        ASSERT_EQ(winners, 1);
        ASSERT_LE(queue.size(), 1U);
    }
}

TEST(BuildHandOver, TheOutputArrivesWholeOnTheOtherThread) {
    constexpr int Rounds = 200;
    for (int round = 0; round < Rounds; ++round) {
        TaskQueue queue;
        const auto builder = std::make_shared<Builder>();
        const std::string text(10000, static_cast<char>('a' + round % 26));
        std::thread worker([&queue, weak = std::weak_ptr(builder), text] {
            HandOver handOver([](const auto&, const auto&) {}, queue.post(), deliverTo(weak));
            handOver.finish(text, "/out/Game.nes");
        });
        queue.runNext();
        EXPECT_EQ(builder->received, text);
        EXPECT_EQ(builder->deliveries, 1);
        worker.join();
    }
}

TEST(BuildHandOver, TheBuilderMayGoOnEitherThreadWhileItsOutputIsUnderWay) {
    constexpr int Rounds = 500;
    for (int round = 0; round < Rounds; ++round) {
        TaskQueue queue;
        auto builder = std::make_shared<Builder>();
        std::barrier start(2);
        // The handler holds the builder too, so that its last reference drops on either thread.
        HandOver handOver([builder](const auto&, const auto&) {}, queue.post(), deliverTo(builder));
        std::thread worker([&] {
            start.arrive_and_wait();
            handOver.finish("text", "/out/Game.nes");
        });
        start.arrive_and_wait();
        builder.reset();
        queue.runNext();
        worker.join();
        EXPECT_EQ(queue.size(), 0U);
    }
}

} // namespace
} // namespace kestrel
