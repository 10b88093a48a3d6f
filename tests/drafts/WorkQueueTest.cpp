// SPDX-License-Identifier: MIT
#include "drafts/WorkQueue.h"

#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <new>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

namespace kestrel {
namespace {

TEST(WorkQueue, CarriesOutAllTasksInOrderOnAnotherThread) {
    std::vector<int> done;
    std::thread::id thread;
    {
        WorkQueue queue;
        for (int task = 0; task < 1000; ++task) {
            queue.add([&done, &thread, task] {
                done.push_back(task);
                thread = std::this_thread::get_id();
            });
        }
    }
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(done, expected);
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST(WorkQueue, StartsNoThreadWithoutATask) {
    const WorkQueue queue; // its end waits for nothing
}

TEST(WorkQueue, ATaskTakesThePlaceOfTheLastOneOfItsKey) {
    std::string done;
    {
        bool begun = false;
        std::condition_variable changed;
        std::mutex beginning;
        std::mutex mutex;
        WorkQueue queue;
        const std::lock_guard held(mutex);
        queue.add([&] {
            {
                const std::lock_guard lock(beginning);
                begun = true;
            }
            changed.notify_one();
            const std::lock_guard waits(mutex);
        });
        {
            std::unique_lock lock(beginning);
            changed.wait(lock, [&] { return begun; });
        }
        const int one = 0;
        const int other = 0;
        queue.add([&] { done += 'a'; }, &one);
        queue.add([&] { done += 'b'; }, &one);
        queue.add([&] { done += 'c'; }, &other);
        queue.add([&] { done += 'd'; }, &one);
        queue.add([&] { done += 'e'; });
        queue.add([&] { done += 'f'; });
        EXPECT_EQ(done, "");
    }
    EXPECT_EQ(done, "bcdef");
}

TEST(WorkQueue, GoesOnAfterATaskThatRanOutOfMemory) {
    const test::LogCapture log;
    bool done = false;
    {
        WorkQueue queue;
        queue.add([] { throw std::bad_alloc(); });
        queue.add([&done] { done = true; });
    }
    EXPECT_TRUE(done);
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{"There is not enough memory to keep unsaved changes."});
}

} // namespace
} // namespace kestrel
