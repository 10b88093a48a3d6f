// SPDX-License-Identifier: MIT
#include "build/SignalWatcher.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace kestrel {

namespace {

constexpr std::array<int, 3> EndingSignals = {SIGINT, SIGTERM, SIGHUP};

/// The write end of the pipe, for the signal handler, which can only use globals.
std::atomic<int>& writeEnd() {
    static std::atomic<int> descriptor{-1};
    return descriptor;
}

static_assert(std::atomic<int>::is_always_lock_free, "needed in a signal handler");

extern "C" void passOn(int signal) {
    const int formerError = errno;
    const auto number = static_cast<unsigned char>(signal);
    // When the pipe is full, a signal has been reported already.
    static_cast<void>(::write(writeEnd(), &number, 1) == 1);
    errno = formerError;
}

void setHandler(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

SignalWatcher::SignalWatcher() {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return;
    }
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    m_readEnd = ends[0];
    writeEnd() = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        unsigned char number = 0;
        if (::read(m_readEnd, &number, 1) == 1) {
            m_caught = number;
            QCoreApplication::exit(EXIT_FAILURE);
        }
    });
    for (const int signal : EndingSignals) {
        if (!isIgnored(signal)) { // as nohup sets it
            setHandler(signal, passOn);
        }
    }
}

SignalWatcher::~SignalWatcher() {
    if (m_readEnd < 0) {
        return;
    }
    for (const int signal : EndingSignals) {
        if (!isIgnored(signal)) {
            setHandler(signal, SIG_DFL);
        }
    }
    m_notifier.reset();
    ::close(m_readEnd);
    ::close(writeEnd().exchange(-1));
}

void SignalWatcher::endBy(int signal) {
    setHandler(signal, SIG_DFL);
    ::raise(signal);
    std::_Exit(EXIT_FAILURE);
}

} // namespace kestrel
