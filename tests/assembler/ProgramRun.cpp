// SPDX-License-Identifier: MIT
#include "assembler/ProgramRun.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel::test {

namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

/// Reads both pipes until both are closed.
void drain(std::array<int, 2> ends, std::array<std::string*, 2> texts) {
    std::array<pollfd, 2> waits{pollfd{ends[0], POLLIN, 0}, pollfd{ends[1], POLLIN, 0}};
    std::array<char, 65536> buffer{};
    while (waits[0].fd >= 0 || waits[1].fd >= 0) {
        if (::poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR) {
            break;
        }
        for (std::size_t i = 0; i < waits.size(); ++i) {
            if (waits[i].fd < 0 || waits[i].revents == 0) {
                continue;
            }
            const ssize_t count = ::read(waits[i].fd, buffer.data(), buffer.size());
            if (count > 0) {
                texts[i]->append(buffer.data(), static_cast<std::size_t>(count));
            } else if (count == 0 || errno != EINTR) {
                ::close(waits[i].fd);
                waits[i].fd = -1;
            }
        }
    }
}

} // namespace

ProgramRun ProgramRun::of(const std::filesystem::path& program,
                          const std::vector<std::string>& arguments,
                          const std::vector<std::string>& environment,
                          const std::filesystem::path& folder) {
    std::vector<std::string> words{program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = environment;
    const std::vector<char*> argv = pointers(words);
    const std::vector<char*> envp = pointers(variables);
    ProgramRun run;
    std::array<int, 2> out{};
    std::array<int, 2> err{};
    if (::pipe2(out.data(), O_CLOEXEC) != 0 || ::pipe2(err.data(), O_CLOEXEC) != 0) {
        return run;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const int null = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        if (null < 0 || ::dup2(null, 0) < 0 || ::dup2(out[1], 1) < 0 || ::dup2(err[1], 2) < 0 ||
            ::chdir(folder.c_str()) != 0) {
            ::_exit(127);
        }
        ::execve(argv[0], argv.data(), envp.data());
        ::_exit(127);
    }
    ::close(out[1]);
    ::close(err[1]);
    drain({out[0], err[0]}, {&run.output, &run.errorOutput});
    int state = 0;
    if (child < 0 || ::waitpid(child, &state, 0) != child) {
        return run;
    }
    run.status = WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
    return run;
}

} // namespace kestrel::test
