// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel {

/// `base` and `appended` with exactly one separator between them, also when `appended` begins with
/// one (`operator/` would drop the base). An empty base gives a relative path, an empty `appended`
/// the base. Nothing is normalised.
std::filesystem::path joined(const std::filesystem::path& base, std::string_view appended);

/// The path as text without trailing separators; the root folder stays "/".
std::string pathText(const std::filesystem::path& path);

/// The user's home folder: HOME when it is set and not empty, else the account's folder.
std::filesystem::path homeFolder();

/// Whether the system can be asked about `path` at all: not when it is empty or holds a NUL byte,
/// at which a system call would cut it and so reach another file.
bool isUsablePath(const std::filesystem::path& path);

/// Whether anything exists at `path` (links are followed). Never throws; an unreadable parent is
/// "no".
bool existsAt(const std::filesystem::path& path);

} // namespace kestrel
