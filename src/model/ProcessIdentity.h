// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace kestrel {

/// One run of a program. Its number alone is given out again after its end, so its start belongs to
/// it, and the run of the system that both count from.
struct ProcessIdentity {
    std::int64_t number = 0;
    std::uint64_t start = 0; ///< ticks since the system started
    std::string system;      ///< the kernel's name for its present run; empty when unknown

    static ProcessIdentity current();

    /// Whether this run has not ended, as far as this system can tell.
    bool isRunning() const;

    bool operator==(const ProcessIdentity&) const = default;
};

} // namespace kestrel
