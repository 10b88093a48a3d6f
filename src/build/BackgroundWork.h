// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QObject;
class QThreadPool;

namespace kestrel {

/// Runs work on the shared thread pool and brings results back to the main thread.
class BackgroundWork {
public:
    using Task = std::function<void()>;

    /// Runs `task` on a worker of the shared pool, at default priority. The application object
    /// waits for running tasks when it is destroyed.
    static void start(Task task);

    /// Queues `task` for the thread of `application`, which must outlive the post. What is still
    /// queued when the application goes is dropped unrun.
    static void postToMainThread(QObject* application, Task task);

    /// Lets the pool start another worker while the one that holds this object only waits: on a
    /// small machine the pool has two.
    class LongWait {
    public:
        LongWait();
        ~LongWait();
        LongWait(const LongWait&) = delete;
        LongWait& operator=(const LongWait&) = delete;

    private:
        QThreadPool* m_pool;
    };
};

} // namespace kestrel
