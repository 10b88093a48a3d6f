// SPDX-License-Identifier: MIT
#include "assembler/unit/ChildProgram.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nesasm::test {

namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

/// Runs in the child: becomes the program, or ends with 127.
[[noreturn]] void becomeProgram(const ChildStart& start, int output, std::vector<char*>& arguments,
                                std::vector<char*>& environment) {
    if (start.largestFile != 0) {
        const rlimit limit{start.largestFile, start.largestFile};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    const int target = start.standardOutput.empty()
                           ? output
                           : open(start.standardOutput.c_str(), O_WRONLY | O_CLOEXEC);
    dup2(target, STDOUT_FILENO);
    if (chdir(start.folder.c_str()) == 0) {
        execve(arguments[0], arguments.data(), environment.data());
    }
    _exit(127);
}

} // namespace

ChildResult runNesasm(const ChildStart& start) {
    std::vector<std::string> words;
    if (start.isOrdinaryUser && geteuid() == 0) {
        words = {"/usr/bin/setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"};
    }
    words.emplace_back(KESTREL_NESASM);
    words.insert(words.end(), start.arguments.begin(), start.arguments.end());
    std::vector<std::string> variables = start.environment;
    std::vector<char*> arguments = pointers(words);
    std::vector<char*> environment = pointers(variables);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return {};
    }
    const pid_t child = fork();
    if (child == 0) {
        becomeProgram(start, ends[1], arguments, environment);
    }
    close(ends[1]);
    ChildResult result;
    std::array<char, 4096> part{};
    for (ssize_t count = 1; count > 0 || (count < 0 && errno == EINTR);) {
        count = read(ends[0], part.data(), part.size());
        if (count > 0) {
            result.output.append(part.data(), static_cast<std::size_t>(count));
        }
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    return result;
}

} // namespace nesasm::test
