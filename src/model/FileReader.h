// SPDX-License-Identifier: MIT
#pragma once

#include "model/Json.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace kestrel {

/// The largest configuration file that is read.
inline constexpr std::uintmax_t MaximumConfigurationSize = 64ULL * 1024 * 1024;

/// The content of a regular file; links are followed. Nothing for anything else (folder, FIFO,
/// device), for an unreadable file, and for one larger than `limit` bytes or than free memory.
/// Never blocks, never throws.
std::optional<std::string> readFile(const std::filesystem::path& path,
                                    std::uintmax_t limit = UINTMAX_MAX);

/// The JSON document in a file of at most MaximumConfigurationSize; nothing when it cannot be read
/// or parsed. `repeatedMembers` as for parseJson.
std::optional<Dictionary> readJsonFile(const std::filesystem::path& path,
                                       bool* repeatedMembers = nullptr);

/// The same, but nothing when the document is not a JSON object.
std::optional<Dictionary> readJsonObject(const std::filesystem::path& path,
                                         bool* repeatedMembers = nullptr);

} // namespace kestrel
