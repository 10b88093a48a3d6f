// SPDX-License-Identifier: MIT
// Loaded before the C library into a program under test: makes one of its renames go wrong.
// RENAME_FAULT is "fail:N", the Nth rename fails, or "die:N", the process is killed instead of it.
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <unistd.h>

extern "C" int rename(const char* from, const char* to) {
    static int count = 0;
    const char* const fault = std::getenv("RENAME_FAULT");
    const char* const number = fault == nullptr ? nullptr : std::strchr(fault, ':');
    if (number != nullptr && ++count == std::atoi(number + 1)) {
        if (fault[0] == 'd') {
            ::kill(::getpid(), SIGKILL);
        }
        errno = EIO;
        return -1;
    }
    using Rename = int (*)(const char*, const char*);
    return reinterpret_cast<Rename>(::dlsym(RTLD_NEXT, "rename"))(from, to);
}
