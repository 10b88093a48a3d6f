// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace kestrel {

/// Carries out tasks one after the other on a thread of its own, which starts with the first task.
/// The destructor waits until all are done.
class WorkQueue {
public:
    using Task = std::function<void()>;

    WorkQueue() = default;
    WorkQueue(const WorkQueue&) = delete;
    WorkQueue& operator=(const WorkQueue&) = delete;
    ~WorkQueue();

    /// Adds a task. With a key, it takes the place of the last task that waits if that has the same
    /// key.
    void add(Task task, const void* key = nullptr);

private:
    struct Waiting {
        Task task;
        const void* key;
    };

    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Waiting> m_waiting;
    bool m_ending = false;
    std::thread m_thread;
};

} // namespace kestrel
