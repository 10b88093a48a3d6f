#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel {

/// `base` and `appended` with exactly one separator between them, also when `appended` begins with
/// one. An empty base gives a relative path. Nothing is normalised.
std::filesystem::path joined(const std::filesystem::path& base, std::string_view appended);

/// The path as text without trailing separators; the root folder stays "/".
std::string pathText(const std::filesystem::path& path);

/// The user's home folder: HOME when it is set and not empty, else the account's folder.
std::filesystem::path homeFolder();

/// Whether anything exists at `path` (links are followed). Never throws; an unreadable parent is
/// "no".
bool existsAt(const std::filesystem::path& path);

} // namespace kestrel
