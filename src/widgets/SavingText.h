// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <optional>
#include <string>

namespace kestrel {

/// Why a backup is made before a file is saved.
enum class BackupReason { changedElsewhere, converted, unread };

/// What the status bar tells of a save, if anything is worth telling. `backup` is where the file
/// on the disk was kept, an empty path when there was no need to, nothing when that failed.
/// `failure` says why the save failed, if that is known.
QString savingText(const std::filesystem::path& file,
                   const std::optional<std::filesystem::path>& backup, bool isSaved,
                   BackupReason reason, const std::string& failure = {});

} // namespace kestrel
