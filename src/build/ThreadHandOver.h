// SPDX-License-Identifier: MIT
#pragma once

#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KESTREL_THREAD_SANITIZER
#endif
#endif
#if defined(__SANITIZE_THREAD__)
#define KESTREL_THREAD_SANITIZER
#endif

#ifdef KESTREL_THREAD_SANITIZER
#include <sanitizer/tsan_interface.h>
#endif

namespace kestrel {

/// Tells the thread sanitizer what it cannot see: Qt's event queue and thread pool order what one
/// thread wrote before it queued an object with what another does when it gets the object, but a
/// distribution's Qt is not instrumented. Does nothing in any other build.
class ThreadHandOver {
public:
    /// Said of an object that is complete and about to be queued.
    static void announce([[maybe_unused]] void* object) {
#ifdef KESTREL_THREAD_SANITIZER
        __tsan_release(object);
#endif
    }

    /// Said of the object by the thread that got it, before it looks at it.
    static void accept([[maybe_unused]] void* object) {
#ifdef KESTREL_THREAD_SANITIZER
        __tsan_acquire(object);
#endif
    }
};

} // namespace kestrel
