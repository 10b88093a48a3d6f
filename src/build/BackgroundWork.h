// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QObject;
class QThreadPool;

namespace kestrel {

using BackgroundTask = std::function<void()>;

/// Runs `task` on the global thread pool, at default priority. The application object waits for
/// running tasks in its destructor.
void startInBackground(BackgroundTask task);

/// Queues `task` for the thread of `application`, which must outlive this call. Tasks still queued
/// when the application is destroyed are dropped.
void postToMainThread(QObject* application, BackgroundTask task);

/// Lets the pool start another worker while the one that holds this object only waits: on a small
/// machine the pool has two.
class LongWait {
public:
    LongWait();
    ~LongWait();
    LongWait(const LongWait&) = delete;
    LongWait& operator=(const LongWait&) = delete;

private:
    QThreadPool* m_pool;
};

} // namespace kestrel
