// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QSocketNotifier;

namespace kestrel {

/// Turns the signals that ask a program to end (interrupt, hang-up, terminate) into an orderly end
/// of the event loop, so that a running assembler is ended too. One at a time.
class SignalWatcher {
public:
    SignalWatcher();
    ~SignalWatcher();
    SignalWatcher(const SignalWatcher&) = delete;
    SignalWatcher& operator=(const SignalWatcher&) = delete;

    /// The signal that came, 0 when none did.
    int caught() const { return m_caught; }

    /// Ends the program by `signal`, as if it had never been caught.
    [[noreturn]] static void endBy(int signal);

private:
    int m_caught = 0;
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace kestrel
