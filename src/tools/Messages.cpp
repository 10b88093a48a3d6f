// SPDX-License-Identifier: MIT
#include "tools/Messages.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace kestrel {

namespace {

/// Writes all of `text`. Returns the error number, 0 for success.
int writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            // Another program that shares the stream made it non-blocking.
            pollfd stream{descriptor, POLLOUT, 0};
            if (::poll(&stream, 1, -1) < 0 && errno != EINTR) {
                return errno;
            }
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

} // namespace

void prepareStandardStreams() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) < 0) {
            // Gets this number, the lowest free one. Read-only, so that writing fails visibly.
            static_cast<void>(::open("/dev/null", O_RDONLY));
        }
    }
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}

void complain(std::string_view sentence) {
    std::string line = "kestrel-build: ";
    line += sentence;
    line += '\n';
    // A failure cannot be reported anywhere.
    static_cast<void>(writeAll(STDERR_FILENO, line));
}

bool printText(std::string_view text) {
    const int problem = writeAll(STDOUT_FILENO, text);
    if (problem == 0 || problem == EPIPE) {
        return true;
    }
    complain("standard output could not be written: " + std::generic_category().message(problem) +
             ".");
    return false;
}

} // namespace kestrel
