// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// The place for watching files on disk, which is not done: a change is noticed only when the user
/// comes back to the window.
class FileMonitor {};

} // namespace kestrel
