// SPDX-License-Identifier: MIT
#pragma once

#include "model/OpenedProject.h"

namespace kestrel {

/// The result of giving a project an emulator.
enum class EmulatorChoice { made, hasOne, noneInstalled, notWritten, notUnderstood };

/// Writes the first of the installed emulators into the build settings of `project`, unless they
/// name one, and tells the user what was done or why not. Nothing else in them changes.
EmulatorChoice chooseInstalledEmulator(const OpenedProject& project);

} // namespace kestrel
