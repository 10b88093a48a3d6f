// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace kestrel {

/// The commands of the navigation tree's context menu.
enum class ProjectNavigationMenuClickedOptions {
    newFile = 0,
    importFile = 1,
    newGroup = 2,
    newProject = 3,
    delete_ = 4,
};

/// The command with this number; nothing when there is none.
constexpr std::optional<ProjectNavigationMenuClickedOptions>
projectNavigationMenuClickedOptionsFrom(int rawValue) {
    if (rawValue < 0 || rawValue > static_cast<int>(ProjectNavigationMenuClickedOptions::delete_)) {
        return std::nullopt;
    }
    return static_cast<ProjectNavigationMenuClickedOptions>(rawValue);
}

} // namespace kestrel
