// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <string>

namespace kestrel {

/// What a person should know before a project of this name is made in the folder `location`: why
/// that cannot be done, or what becomes of it and of existing files. Empty when all is well.
QString noteOnProject(const std::filesystem::path& location, const std::string& name);

/// The same for a new file at `location`.
QString noteOnFile(const std::filesystem::path& location);

} // namespace kestrel
