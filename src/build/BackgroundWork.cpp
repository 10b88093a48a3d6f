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
    explicit PooledTask(BackgroundWork::Task task)
        : m_task(std::move(task)) {}
    PooledTask(const PooledTask&) = delete;
    PooledTask& operator=(const PooledTask&) = delete;
    ~PooledTask() override { ThreadHandOver::accept(this); }

    void run() override {
        ThreadHandOver::accept(this);
        m_task();
    }

private:
    BackgroundWork::Task m_task;
};

/// A task in the main thread's event queue. Qt moves it to where it stays until it has run.
class PostedTask {
public:
    explicit PostedTask(BackgroundWork::Task task)
        : m_task(std::move(task)) {}
    PostedTask(PostedTask&& other) noexcept
        : m_task(std::exchange(other.m_task, nullptr)) {
        ThreadHandOver::announce(this);
    }
    PostedTask(const PostedTask&) = delete;
    PostedTask& operator=(const PostedTask&) = delete;
    PostedTask& operator=(PostedTask&&) = delete;
    ~PostedTask() { ThreadHandOver::accept(this); }

    void operator()() {
        ThreadHandOver::accept(this);
        m_task();
    }

private:
    BackgroundWork::Task m_task;
};

} // namespace

void BackgroundWork::start(Task task) {
    auto pooled = std::make_unique<PooledTask>(std::move(task));
    ThreadHandOver::announce(pooled.get());
    QThreadPool::globalInstance()->start(pooled.release()); // the pool deletes it
}

void BackgroundWork::postToMainThread(QObject* application, Task task) {
    // Qt owns the queued task; the analyser cannot look into its library.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    QMetaObject::invokeMethod(application, PostedTask(std::move(task)), Qt::QueuedConnection);
}

BackgroundWork::LongWait::LongWait()
    : m_pool(QThreadPool::globalInstance()) {
    m_pool->releaseThread();
}

BackgroundWork::LongWait::~LongWait() {
    m_pool->reserveThread();
}

} // namespace kestrel
