// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QSocketNotifier;

namespace kestrel {

/// Ends the event loop on SIGINT, SIGHUP and SIGTERM, so that a running assembler is ended too.
/// Only one may exist at a time.
class SignalWatcher {
public:
    SignalWatcher();
    ~SignalWatcher();
    SignalWatcher(const SignalWatcher&) = delete;
    SignalWatcher& operator=(const SignalWatcher&) = delete;

    /// The signal that was caught, or 0.
    int caught() const { return m_caught; }

    /// Ends the program by `signal` with its default action.
    [[noreturn]] static void endBy(int signal);

private:
    int m_caught = 0;
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kestrel
