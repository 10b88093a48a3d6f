// SPDX-License-Identifier: MIT
#include "assembler/run/Program.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t BufferSize = 1U << 16U;

/// Writes the text to standard output and empties it; a failure cannot be reported anywhere.
void flush(std::string& text) {
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = write(STDOUT_FILENO, text.data() + done, text.size() - done);
        if (count > 0) {
            done += static_cast<std::size_t>(count);
        } else if (count == 0 || errno != EINTR) {
            break;
        }
    }
    text.clear();
}

std::string_view variable(const char* name) {
    const char* const value =
        std::getenv(name); // NOLINT(concurrency-mt-unsafe): there is one thread
    return value != nullptr ? value : "";
}

} // namespace

int main(int argumentCount, char** arguments) {
    // A reader that goes away must not keep the image from being written.
    std::signal(SIGPIPE, SIG_IGN);
    // A file at its size limit is reported as an error, as a full disk is.
    std::signal(SIGXFSZ, SIG_IGN);
    const std::vector<std::string_view> texts(arguments + (argumentCount > 0 ? 1 : 0),
                                              arguments + argumentCount);
    nesasm::Surroundings surroundings;
    surroundings.includeList = variable("NES_INCLUDE");
    surroundings.isTerminal = isatty(STDOUT_FILENO) == 1;
    surroundings.refusesColours = !variable("NO_COLOR").empty();
    std::string waiting;
    const int status = nesasm::runProgram(texts, surroundings, [&waiting](std::string_view text) {
        waiting += text;
        if (waiting.size() >= BufferSize) {
            flush(waiting);
        }
    });
    flush(waiting);
    return status;
}
