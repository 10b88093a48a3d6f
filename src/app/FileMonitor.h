// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// An empty class for watching files on disk, which is not done: changes are noticed when the
/// window becomes active again.
class FileMonitor {};

} // namespace kestrel
