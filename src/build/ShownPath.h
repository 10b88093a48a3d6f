// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace kestrel {

/// A path or name in quotes, for a message. Control characters are escaped, so that the message
/// stays on one line and cannot control the terminal.
std::string shown(const std::filesystem::path& path);

} // namespace kestrel
