// SPDX-License-Identifier: MIT
#pragma once

#include "model/Json.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// The largest configuration file that is read.
inline constexpr std::uintmax_t MaximumConfigurationSize = 64ULL * 1024 * 1024;

/// The reason when a document is JSON, but a list or a value of another kind.
inline constexpr std::string_view NoJsonObject = "it is no JSON object";

/// The content of a regular file; links are followed. Nothing for anything else (folder, FIFO,
/// device), for an unreadable file, and for one larger than `limit` bytes or than free memory.
/// Never blocks, never throws. `reason` as for giveReason.
std::optional<std::string> readFile(const std::filesystem::path& path,
                                    std::uintmax_t limit = UINTMAX_MAX,
                                    std::string* reason = nullptr);

/// The JSON document in a file of at most MaximumConfigurationSize; nothing when it cannot be read
/// or parsed. `repeatedMembers` as for parseJson, `reason` as for giveReason.
std::optional<Dictionary> readJsonFile(const std::filesystem::path& path,
                                       bool* repeatedMembers = nullptr,
                                       std::string* reason = nullptr);

/// The same, but nothing when the document is not a JSON object.
std::optional<Dictionary> readJsonObject(const std::filesystem::path& path,
                                         bool* repeatedMembers = nullptr,
                                         std::string* reason = nullptr);

} // namespace kestrel
