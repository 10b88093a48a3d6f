// SPDX-License-Identifier: MIT
#include "build/BackgroundWork.h"

#include "build/ThreadHandOver.h"

#include <QMetaObject>
#include <QObject>
#include <QRunnable>
#include <QThreadPool>

#include <memory>
#include <utility>

namespace kestrel {

namespace {

/// A task in the pool's queue.
class PooledTask final : public QRunnable {
public:
    explicit PooledTask(BackgroundTask task)
        : m_task(std::move(task)) {}
    PooledTask(const PooledTask&) = delete;
    PooledTask& operator=(const PooledTask&) = delete;
    ~PooledTask() override { acceptHandOver(this); }

    void run() override {
        acceptHandOver(this);
        m_task();
    }

private:
    BackgroundTask m_task;
};

/// A task in the main thread's event queue. Qt moves it to where it stays until it has run.
class PostedTask {
public:
    explicit PostedTask(BackgroundTask task)
        : m_task(std::move(task)) {}
    PostedTask(PostedTask&& other) noexcept
        : m_task(std::exchange(other.m_task, nullptr)) {
        announceHandOver(this);
    }
    PostedTask(const PostedTask&) = delete;
    PostedTask& operator=(const PostedTask&) = delete;
    PostedTask& operator=(PostedTask&&) = delete;
    ~PostedTask() { acceptHandOver(this); }

    void operator()() {
        acceptHandOver(this);
        m_task();
    }

private:
    BackgroundTask m_task;
};

} // namespace

void startInBackground(BackgroundTask task) {
    auto pooled = std::make_unique<PooledTask>(std::move(task));
    announceHandOver(pooled.get());
    QThreadPool::globalInstance()->start(pooled.release()); // the pool deletes it
}

void postToMainThread(QObject* application, BackgroundTask task) {
    // Qt owns the queued task; the analyser cannot look into its library.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    QMetaObject::invokeMethod(application, PostedTask(std::move(task)), Qt::QueuedConnection);
}

LongWait::LongWait()
    : m_pool(QThreadPool::globalInstance()) {
    m_pool->releaseThread();
}

LongWait::~LongWait() {
    m_pool->reserveThread();
}

} // namespace kestrel
