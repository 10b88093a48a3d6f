// SPDX-License-Identifier: MIT
// Loaded before the C library into the program under test: counts what the program does to the
// files below a folder and kills it, as kill -9 does, right after a given operation.
//   OPERATIONS_FOLDERS  the folders whose files count, separated by colons
//   OPERATIONS_COUNT    a file that grows by one byte with each operation
//   KILL_AFTER          the number of the operation that is the last one; none when it is not set
#include <atomic>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

template<typename Function> Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool counts(const char* path) {
    const char* const folders = std::getenv("OPERATIONS_FOLDERS");
    std::istringstream list(folders == nullptr ? "" : folders);
    for (std::string folder; path != nullptr && std::getline(list, folder, ':');) {
        if (std::string(path).rfind(folder, 0) == 0) {
            return true;
        }
    }
    return false;
}

bool counts(int descriptor) {
    char path[4096] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    return ::readlink(link.c_str(), path, sizeof path - 1) > 0 && counts(path);
}

void operationDone() {
    static std::atomic<int> done = 0;
    static const auto openFile = next<int (*)(const char*, int, ...)>("open");
    static const auto writeFile = next<ssize_t (*)(int, const void*, size_t)>("write");
    const int number = ++done;
    if (const char* const count = std::getenv("OPERATIONS_COUNT")) {
        const int file = openFile(count, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        if (file >= 0) {
            writeFile(file, ".", 1);
            ::close(file);
        }
    }
    const char* const last = std::getenv("KILL_AFTER");
    if (last != nullptr && number == std::atoi(last)) {
        ::kill(::getpid(), SIGKILL);
    }
}

template<typename Result> Result noted(bool counted, Result result) {
    if (counted && result >= 0) {
        operationDone();
    }
    return result;
}

int openNoted(const char* name, const char* path, int flags, mode_t mode) {
    const auto real = next<int (*)(const char*, int, ...)>(name);
    return noted((flags & O_CREAT) != 0 && counts(path), real(path, flags, mode));
}

} // namespace

extern "C" int open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const auto mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openNoted("open", path, flags, mode);
}

extern "C" int open64(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const auto mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openNoted("open64", path, flags, mode);
}

extern "C" ssize_t write(int descriptor, const void* bytes, size_t size) {
    static const auto real = next<ssize_t (*)(int, const void*, size_t)>("write");
    return noted(counts(descriptor), real(descriptor, bytes, size));
}

extern "C" int fsync(int descriptor) {
    static const auto real = next<int (*)(int)>("fsync");
    return noted(counts(descriptor), real(descriptor));
}

extern "C" int rename(const char* from, const char* to) {
    static const auto real = next<int (*)(const char*, const char*)>("rename");
    return noted(counts(to), real(from, to));
}

extern "C" int unlink(const char* path) {
    static const auto real = next<int (*)(const char*)>("unlink");
    return noted(counts(path), real(path));
}

extern "C" int mkdir(const char* path, mode_t mode) {
    static const auto real = next<int (*)(const char*, mode_t)>("mkdir");
    return noted(counts(path), real(path, mode));
}
