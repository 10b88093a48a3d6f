// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProcessIdentity.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel::test {

/// Another process, which only waits, until end() or the end of the object.
class RunningProcess {
public:
    RunningProcess() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        m_process = ::fork();
        if (m_process == 0) {
            const std::uint64_t start = ProcessIdentity::current().start;
            static_cast<void>(::write(ends[1], &start, sizeof start) == sizeof start);
            while (true) {
                ::pause();
            }
        }
        m_identity = ProcessIdentity::current();
        m_identity.number = m_process;
        EXPECT_EQ(::read(ends[0], &m_identity.start, sizeof m_identity.start),
                  static_cast<ssize_t>(sizeof m_identity.start));
        ::close(ends[0]);
        ::close(ends[1]);
    }
    RunningProcess(const RunningProcess&) = delete;
    RunningProcess& operator=(const RunningProcess&) = delete;
    ~RunningProcess() { end(); }

    const ProcessIdentity& identity() const { return m_identity; }

    void end() {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            EXPECT_EQ(::waitpid(m_process, nullptr, 0), m_process);
            m_process = 0;
        }
    }

private:
    pid_t m_process = 0;
    ProcessIdentity m_identity;
};

} // namespace kestrel::test
