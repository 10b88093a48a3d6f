// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace kestrel {

/// Why the system's last call failed, from errno: "No space left on device".
std::string systemReason();

/// Leaves `phrase` in `*reason` unless that is null. Functions that can fail take such a pointer
/// where a caller logs why: a phrase without a full stop, untouched when they succeed.
void giveReason(std::string* reason, std::string phrase);

/// Writes a line "`subject`: `reason`" to the log, or nothing when no reason is known.
void logReason(const std::string& subject, const std::string& reason);

} // namespace kestrel
