// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/NotificationCentre.h"

#include <memory>

namespace kestrel {

class AppDelegate;
class MainWindowController;

/// Makes the main window, with its content and its menus, as far as it can be shown: the projects
/// are loaded, the menu items of the build commands handed to `delegate`. `centre` is what the
/// project commands go through; it and the delegate must outlive the window.
std::shared_ptr<MainWindowController>
makeMainWindow(AppDelegate& delegate,
               NotificationCentre& centre = NotificationCentre::defaultCentre());

} // namespace kestrel
