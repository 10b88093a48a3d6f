// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"

#include <QKeySequence>
#include <QLatin1String>

#include <array>

namespace kestrel {

/// One command of the navigation tree's context menu. The same actions stand in the menu bar.
struct ProjectCommand {
    ProjectNavigationMenuClickedOptions option;
    QLatin1String id; ///< the action's object name
    QLatin1String title;
    QKeySequence shortcut;
    bool onEmptyArea;      ///< offered where there is no row, too
    bool needsSelectedRow; ///< disabled while no row is selected
    bool startsSection;    ///< a separator stands above it
};

inline constexpr std::size_t ProjectCommandCount = 5;

/// All commands in the order of the menu.
const std::array<ProjectCommand, ProjectCommandCount>& projectCommands();

} // namespace kestrel
