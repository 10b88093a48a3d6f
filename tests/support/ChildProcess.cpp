// SPDX-License-Identifier: MIT
#include "support/ChildProcess.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel::test {

namespace {

bool endsWell(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return false;
        }
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

std::string presentTest() {
    const auto* const info = ::testing::UnitTest::GetInstance()->current_test_info();
    return std::string(info->test_suite_name()) + "." + info->name();
}

} // namespace

bool isRoot() {
    return ::geteuid() == 0;
}

bool passesAsOrdinaryUser() {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    // The program is handed over open: the folders above it may be closed to the ordinary user.
    const int program = ::open("/proc/self/exe", O_RDONLY); // NOLINT: stays open for the child
    const std::string programPath = "/proc/self/fd/" + std::to_string(program);
    const std::string filter = "--gtest_filter=" + presentTest();
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv("TMPDIR", folder.path().c_str(), 1);
        ::setenv("HOME", folder.path().c_str(), 1);
        ::unsetenv("GTEST_OUTPUT");
        ::execlp("setpriv", "setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--",
                 programPath.c_str(), filter.c_str(), nullptr);
        ::_exit(127);
    }
    ::close(program);
    return child > 0 && endsWell(child);
}

bool holdsWithFileSizeLimit(std::uintmax_t size, const std::function<bool()>& action) {
    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN); // else the first write beyond the limit ends the process
        const rlimit limit{size, size};
        const bool holds = ::setrlimit(RLIMIT_FSIZE, &limit) == 0 && action();
        ::_exit(holds ? 0 : 1);
    }
    return child > 0 && endsWell(child);
}

} // namespace kestrel::test
