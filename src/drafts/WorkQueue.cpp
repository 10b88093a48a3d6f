// SPDX-License-Identifier: MIT
#include "drafts/WorkQueue.h"

#include "model/Log.h"

#include <new>
#include <utility>

namespace kestrel {

WorkQueue::~WorkQueue() {
    if (!m_thread.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void WorkQueue::add(Task task, const void* key) {
    Task replaced; // destroyed without the lock: it may hold much
    {
        const std::lock_guard lock(m_mutex);
        if (key != nullptr && !m_waiting.empty() && m_waiting.back().key == key) {
            replaced = std::exchange(m_waiting.back().task, std::move(task));
        } else {
            m_waiting.push_back({std::move(task), key});
        }
    }
    if (!m_thread.joinable()) {
        m_thread = std::thread([this] { run(); });
    }
    m_changed.notify_one();
}

void WorkQueue::run() {
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_ending || !m_waiting.empty(); });
        if (m_waiting.empty()) {
            return;
        }
        const Waiting next = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        try {
            next.task();
        } catch (const std::bad_alloc&) {
            writeLog("There is not enough memory to keep unsaved changes.");
        }
        lock.lock();
    }
}

} // namespace kestrel
