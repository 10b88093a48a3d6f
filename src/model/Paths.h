// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel {

/// `base` and `appended` with exactly one separator between them, also when `appended` begins with
/// one (`operator/` would drop the base). An empty `base` gives a relative path, an empty
/// `appended` gives `base`. Nothing is normalised.
std::filesystem::path joined(const std::filesystem::path& base, std::string_view appended);

/// The path as text without trailing separators; the root folder stays "/".
std::string pathText(const std::filesystem::path& path);

/// The user's home folder: HOME when it is set and not empty, else the account's folder.
std::filesystem::path homeFolder();

/// False for an empty path and for one with a NUL byte, at which a system call would cut it.
bool isUsablePath(const std::filesystem::path& path);

/// Whether anything exists at `path`; links are followed. False also when that cannot be found out.
/// Never throws.
bool existsAt(const std::filesystem::path& path);

} // namespace kestrel
