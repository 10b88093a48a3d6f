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

// The thread sanitizer cannot see that Qt's event queue and thread pool order the accesses of two
// threads to a queued object, since a distribution's Qt is not instrumented. These two calls tell
// it; in any other build they do nothing.

/// Call on an object that is complete, just before it is queued.
inline void announceHandOver([[maybe_unused]] void* object) {
#ifdef KESTREL_THREAD_SANITIZER
    __tsan_release(object);
#endif
}

/// Call on the receiving thread before it uses the object.
inline void acceptHandOver([[maybe_unused]] void* object) {
#ifdef KESTREL_THREAD_SANITIZER
    __tsan_acquire(object);
#endif
}

} // namespace kestrel
