// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

namespace kestrel::test {

/// Whether this process may do what no ordinary user may.
bool isRoot();

/// Runs the present test once more, alone, in a process of an ordinary user (nobody) with a fresh
/// folder for temporary files. True when it passed there. A test of permissions begins with
///
///     if (isRoot()) {
///         EXPECT_TRUE(passesAsOrdinaryUser());
///         return;
///     }
bool passesAsOrdinaryUser();

/// Runs `action` in a child process in which no file can grow beyond `size` bytes: a write beyond
/// that fails, as on a full disk. True when `action` returned true.
bool holdsWithFileSizeLimit(std::uintmax_t size, const std::function<bool()>& action);

} // namespace kestrel::test
