// SPDX-License-Identifier: MIT
#pragma once

#include "model/OpenedProject.h"

namespace kestrel {

/// The result of relocating a project.
enum class RelocationOutcome { nothingToDo, relocated, notWritten, notUnderstood };

/// Writes the folder in which `project` lies now into its structure and build-settings files, and
/// tells the user what was done or why not. Only paths change. Both files are written before either
/// is put in place, the structure last, so that an interrupted relocation can be run again.
RelocationOutcome relocateProject(const OpenedProject& project);

} // namespace kestrel
