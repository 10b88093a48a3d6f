// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace kestrel {

/// The command that an entry of the navigation tree's context menu asks for.
enum class ProjectNavigationMenuClickedOptions {
    newFile = 0,
    importFile = 1,
    newGroup = 2,
    newProject = 3,
    delete_ = 4,
};

/// The command with this number, or nothing for a number that stands for none.
constexpr std::optional<ProjectNavigationMenuClickedOptions>
projectNavigationMenuClickedOptionsFrom(int rawValue) {
    if (rawValue < 0 || rawValue > static_cast<int>(ProjectNavigationMenuClickedOptions::delete_)) {
        return std::nullopt;
    }
    return static_cast<ProjectNavigationMenuClickedOptions>(rawValue);
}

} // namespace kestrel
