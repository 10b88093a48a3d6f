// SPDX-License-Identifier: MIT
#pragma once

#include "model/OpenedProject.h"

#include <filesystem>
#include <string>
#include <variant>

namespace kestrel {

/// Opens the project that the command line names by the path of its project file, or returns a
/// sentence for the user that says why it cannot. A relative path counts from the working folder.
std::variant<OpenedProject, std::string> openProjectArgument(const std::filesystem::path& path);

} // namespace kestrel
