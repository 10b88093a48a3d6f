// SPDX-License-Identifier: MIT
#pragma once

#include "model/OpenedProject.h"

#include <filesystem>
#include <string>
#include <variant>

namespace kestrel {

/// Opens the project that the command line names by the path of its project file, or gives a
/// sentence for the user that says why not. A path without a folder is one in the current folder.
std::variant<OpenedProject, std::string> openProjectArgument(const std::filesystem::path& path);

} // namespace kestrel
