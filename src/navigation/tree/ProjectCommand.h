// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"
#include "widgets/Command.h"

#include <array>

namespace kestrel {

/// One command of the navigation tree's context menu. The same actions are in the menu bar.
struct ProjectCommand {
    ProjectNavigationMenuClickedOptions option;
    Command command;       ///< without its handler, which the menu adds
    bool onEmptyArea;      ///< offered where there is no row, too
    bool needsSelectedRow; ///< disabled while no row is selected
    bool startsSection;    ///< a separator is above it
};

inline constexpr std::size_t ProjectCommandCount = 5;

/// All commands in the order of the menu.
const std::array<ProjectCommand, ProjectCommandCount>& projectCommands();

/// Delete for the menu bar and its key, which first brings a row that is out of sight into sight.
/// Without its handler.
Command deleteRowInSightCommand();

} // namespace kestrel
