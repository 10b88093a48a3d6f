// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace kestrel {

/// Whether a build is to be stopped, and whether that is because a newer one takes its place: the
/// first who asks says why. Set and asked on any thread.
class StopFlag {
public:
    void request() { set(State::requested); }
    void overtake() { set(State::overtaken); }
    bool isRequested() const { return m_state.load(std::memory_order_acquire) != State::unset; }
    bool isOvertaken() const { return m_state.load(std::memory_order_acquire) == State::overtaken; }

private:
    enum class State { unset, requested, overtaken };

    void set(State state) {
        State expected = State::unset;
        m_state.compare_exchange_strong(expected, state, std::memory_order_acq_rel);
    }

    std::atomic<State> m_state = State::unset;
};

/// Stops whatever is running behind it. Thread-safe.
class StopSwitch {
public:
    /// A new flag, which the next call of stop() sets.
    std::shared_ptr<StopFlag> next();

    /// Sets the flags given out that are still in use.
    void stop();

    /// How often stop() was called: tells what comes after a build whether it is to be dropped.
    unsigned stops() const { return m_stops.load(std::memory_order_acquire); }

private:
    std::mutex m_mutex;
    std::vector<std::weak_ptr<StopFlag>> m_flags;
    std::atomic<unsigned> m_stops = 0;
};

/// Lets one assembler at a time work on an image: a newer build of it asks the one before to stop
/// and starts when that has ended, so that no old build replaces or removes a newer image. Shared
/// by the builders of a program; thread-safe.
class RunningBuilds : public std::enable_shared_from_this<RunningBuilds> {
public:
    /// The assembler's part of a build. It calls ended() once the assembler has ended, and asks
    /// `stop` before it starts one.
    using Task = std::function<void()>;

    /// Runs `task` on a background worker, at once or when the build before it has ended. Of the
    /// builds that wait for an image only the newest goes on; another one's task runs, too, but
    /// with its flag set.
    void start(const std::filesystem::path& image, std::shared_ptr<StopFlag> stop, Task task);

    /// The assembler of the build with this flag has ended, or was not started.
    void ended(const std::filesystem::path& image, const std::shared_ptr<StopFlag>& stop);

private:
    struct Build {
        std::shared_ptr<StopFlag> stop;
        Task task;
    };
    struct Turn {
        std::shared_ptr<StopFlag> running;
        Build waiting; ///< with no flag when none waits
    };

    std::mutex m_mutex;
    std::map<std::filesystem::path, Turn> m_turns;
};

} // namespace kestrel
