// SPDX-License-Identifier: MIT
// For programs that start processes under the thread sanitizer: its version of clone(2) takes the
// vfork with which Qt starts a child for a fork and then breaks down, because the child shares its
// state. Between that vfork and the exec nothing runs but system calls, so the plain call will do.
// This strong definition goes before the sanitizer's weak one.
#include <cstdarg>
#include <sys/types.h>

extern "C" {

int __clone(int (*function)(void*), void* stack, int flags, void* argument, ...);

__attribute__((no_sanitize("thread"))) int clone(int (*function)(void*), void* stack, int flags,
                                                 void* argument, ...) {
    va_list more;
    va_start(more, argument);
    auto* const parentNumber = va_arg(more, pid_t*);
    void* const threadStorage = va_arg(more, void*);
    auto* const childNumber = va_arg(more, pid_t*);
    va_end(more);
    return __clone(function, stack, flags, argument, parentNumber, threadStorage, childNumber);
}
}
