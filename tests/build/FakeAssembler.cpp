// SPDX-License-Identifier: MIT
// Stands in for the assembler. It writes down how it was started (file "record" in the project's
// folder, the parent of NES_INCLUDE; its number goes to "process"), then follows the script in the
// file "script" there, one command a line:
//   print TEXT      a line to standard output      err TEXT     a line to standard error
//   hex BYTES       bytes given as hexadecimal     fill COUNT   COUNT bytes of "y\n"
//   image TEXT      writes the image               hold NAME    opens fifo NAME for writing for
//   good await NAME      waits for a writer on fifo     fork NAME    a grandchild holds fifo NAME,
//   and
//                   NAME to close it                            standard output, for good
//   closeout        closes standard output         forever      never ends
//   session NAME    a grandchild in a session of its own holds fifo NAME, for good; with a child
//   flood           prints without end             forkflood    a grandchild prints without end
//   kill            kills itself                   exit STATUS  ends at once
//   ignore          takes no notice of SIGTERM     tidy NAME    on SIGTERM makes file NAME and ends
//   lock NAME       ends with 93 if another one holds file NAME; holds it until it ends
//   count NAME      appends a line to file NAME
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace {

std::filesystem::path projectFolder() {
    const char* include = std::getenv("NES_INCLUDE");
    return include == nullptr ? "." : std::filesystem::path(include).parent_path();
}

void writeRecord(int argc, char** argv) {
    const auto record = projectFolder() / "record";
    // Two that run at the same time must not take each other's half-written file.
    const auto unfinished = record.string() + "." + std::to_string(getpid());
    std::ofstream out(unfinished);
    for (int i = 1; i < argc; ++i) {
        out << "argument " << argv[i] << '\n';
    }
    for (char** variable = environ; *variable != nullptr; ++variable) {
        out << "variable " << *variable << '\n';
    }
    out << "folder " << std::filesystem::current_path().string() << '\n';
    out << "input " << std::filesystem::read_symlink("/proc/self/fd/0").string() << '\n';
    out << "group " << (getpgrp() == getpid() ? "own" : "inherited") << '\n';
    std::ofstream(projectFolder() / "process") << getpid() << '\n';
    out.close();
    std::filesystem::rename(unfinished, record);
}

void writeAll(const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(1, bytes.data() + done, bytes.size() - done);
        if (count <= 0) {
            std::_Exit(90);
        }
        done += static_cast<std::size_t>(count);
    }
}

std::string fromHex(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

void fill(std::size_t count) {
    std::string block;
    while (block.size() < 1U << 20U) {
        block += "y\n";
    }
    while (count > 0) {
        const std::size_t part = std::min(count, block.size());
        writeAll(block.substr(0, part));
        count -= part;
    }
}

void flood() {
    std::string block;
    while (block.size() < 1U << 16U) {
        block += "y\n";
    }
    for (;;) {
        writeAll(block);
    }
}

void hold(const std::string& name) {
    if (::open((projectFolder() / name).c_str(), O_WRONLY) < 0) {
        std::_Exit(91);
    }
}

void forever() {
    for (;;) {
        ::pause();
    }
}

std::string tidyFile; // set before the signal can come

void tidyUp(int /*signal*/) {
    ::close(::open(tidyFile.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    std::_Exit(0);
}

void lock(const std::string& name) {
    const int file = ::open((projectFolder() / name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0 || ::flock(file, LOCK_EX | LOCK_NB) != 0) {
        std::_Exit(93);
    }
}

/// As a service does it: no signal to the process group reaches the two processes.
void session(const std::string& name) {
    if (::fork() == 0) {
        ::setsid();
        std::signal(SIGTERM, SIG_IGN);
        ::fork();
        ::alarm(30); // nobody else may end them
        hold(name);
        forever();
    }
}

/// Commands about being ended or not being alone; false for any other.
bool followSpecial(const std::string& word, const std::string& rest) {
    if (word == "ignore") {
        std::signal(SIGTERM, SIG_IGN);
    } else if (word == "tidy") {
        tidyFile = (projectFolder() / rest).string();
        std::signal(SIGTERM, tidyUp);
    } else if (word == "lock") {
        lock(rest);
    } else if (word == "session") {
        session(rest);
    } else if (word == "count") {
        std::ofstream(projectFolder() / rest, std::ios::app) << getpid() << '\n';
    } else {
        return false;
    }
    return true;
}

std::string imagePath(int argc, char** argv) {
    return argc == 5 ? argv[4] : "";
}

void follow(const std::string& word, const std::string& rest, const std::string& image) {
    if (word == "print") {
        writeAll(rest + "\n");
    } else if (word == "err") {
        std::fprintf(stderr, "%s\n", rest.c_str());
    } else if (word == "hex") {
        writeAll(fromHex(rest));
    } else if (word == "fill") {
        fill(std::stoul(rest));
    } else if (word == "image") {
        std::ofstream(image) << rest;
    } else if (word == "hold") {
        hold(rest);
    } else if (word == "await") {
        std::ifstream fifo(projectFolder() / rest);
        const std::string ignored((std::istreambuf_iterator<char>(fifo)), {});
    } else if (word == "fork") {
        if (::fork() == 0) {
            hold(rest);
            forever();
        }
    } else if (word == "flood") {
        flood();
    } else if (word == "forkflood") {
        if (::fork() == 0) {
            flood(); // until nobody reads it any more
        }
    } else if (word == "closeout") {
        ::close(1);
    } else if (word == "forever") {
        forever();
    } else if (word == "kill") {
        ::raise(SIGKILL);
    } else if (word == "exit") {
        std::_Exit(std::stoi(rest));
    } else if (!followSpecial(word, rest)) {
        std::_Exit(92);
    }
}

} // namespace

int main(int argc, char** argv) {
    writeRecord(argc, argv);
    std::ifstream script(projectFolder() / "script");
    for (std::string line; std::getline(script, line);) {
        const auto blank = line.find(' ');
        follow(line.substr(0, blank), blank == line.npos ? "" : line.substr(blank + 1),
               imagePath(argc, argv));
    }
    return 0;
}
