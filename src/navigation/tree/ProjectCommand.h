// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"
#include "widgets/Command.h"

#include <array>

namespace kestrel {

/// One command of the navigation tree's context menu, which is also in the menu bar.
struct ProjectCommand {
    ProjectNavigationMenuClickedOptions option;
    Command command;       ///< without its handler, which the menu adds
    bool onEmptyArea;      ///< also in the menu of the empty area
    bool needsSelectedRow; ///< disabled while no row is selected
    bool startsSection;    ///< below a separator
};

inline constexpr std::size_t ProjectCommandCount = 5;

/// All commands in the order of the menu.
const std::array<ProjectCommand, ProjectCommandCount>& projectCommands();

/// Delete for the menu bar and its key, which scrolls to a row that is not visible instead of
/// deleting it. Without its handler.
Command deleteRowInSightCommand();

} // namespace kestrel
