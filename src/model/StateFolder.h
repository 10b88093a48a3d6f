// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace kestrel {

// State that may be lost without harm, and that belongs neither to a project nor to the registry.

/// The folder for it: "kestrel" in XDG_STATE_HOME, or in ".local/state" of the home folder when
/// that is not set or not absolute (XDG Base Directory Specification). Empty when there is no home
/// folder either. The folder need not exist.
std::filesystem::path stateFolder();

/// Makes `folder` and all missing parents for the user alone (0700), and takes the permissions of
/// others away from it when it exists. False when it is then no folder of the user's own.
bool makePrivateFolder(const std::filesystem::path& folder);

/// Replaces or creates the file at `path` atomically, readable by the user alone (0600). A link of
/// that name is replaced, not followed. False, with the old file unchanged, when anything fails.
bool replacePrivateFile(const std::filesystem::path& path, std::string_view content);

} // namespace kestrel
