// SPDX-License-Identifier: MIT
#include "tools/Program.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel::test {

namespace {

namespace fs = std::filesystem;

constexpr uid_t OrdinaryUser = 65534;

std::vector<std::string> commandOf(const Program& program) {
    std::vector<std::string> command;
    if (program.asOrdinaryUser && ::geteuid() == 0) {
        command = {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups",
                   "--inh-caps=-all"};
    }
    command.push_back(program.executable.string());
    command.insert(command.end(), program.arguments.begin(), program.arguments.end());
    return command;
}

int openFor(const fs::path& path, int flags) {
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
    EXPECT_GE(descriptor, 0) << "cannot open " << path;
    return descriptor;
}

} // namespace

int Program::start(int outputDescriptor, int errorDescriptor) const {
    std::vector<std::string> command = commandOf(*this);
    std::vector<char*> pointers;
    for (std::string& word : command) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const int process = ::fork();
    if (process != 0) {
        EXPECT_GT(process, 0) << "cannot start a process";
        return process;
    }
    for (const std::string& variable : environment) {
        const std::size_t end = variable.find('=');
        ::setenv(variable.substr(0, end).c_str(), variable.substr(end + 1).c_str(), 1);
    }
    if (::chdir(folder.c_str()) != 0 || ::dup2(errorDescriptor, STDERR_FILENO) < 0) {
        ::_exit(126);
    }
    if (closesOutput) {
        ::close(STDOUT_FILENO);
    } else if (::dup2(outputDescriptor, STDOUT_FILENO) < 0) {
        ::_exit(126);
    }
    ::execvp(pointers[0], pointers.data());
    ::_exit(127);
}

Finished Program::run() const {
    const TemporaryFolder collected;
    const fs::path errorFile = collected.path() / "errors";
    const fs::path ownOutput = collected.path() / "output";
    const int output = outputFile.empty() ? openFor(ownOutput, O_WRONLY | O_CREAT | O_TRUNC)
                                          : openFor(outputFile, O_WRONLY);
    const int errors = openFor(errorFile, O_WRONLY | O_CREAT | O_TRUNC);
    Finished finished;
    finished.status = statusOf(start(output, errors));
    ::close(output);
    ::close(errors);
    finished.errors = contentOf(errorFile);
    if (outputFile.empty()) {
        finished.output = contentOf(ownOutput);
    }
    return finished;
}

int statusOf(int process) {
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void giveToOrdinaryUser(const fs::path& path) {
    if (::geteuid() != 0) {
        return;
    }
    EXPECT_EQ(::lchown(path.c_str(), OrdinaryUser, OrdinaryUser), 0) << path;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path)) {
        EXPECT_EQ(::lchown(entry.path().c_str(), OrdinaryUser, OrdinaryUser), 0) << entry.path();
    }
}

} // namespace kestrel::test
