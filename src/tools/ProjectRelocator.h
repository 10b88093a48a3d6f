// SPDX-License-Identifier: MIT
#pragma once

#include "model/OpenedProject.h"

namespace kestrel {

/// Writes the folder in which a project lies now into its structure and build settings files.
class ProjectRelocator {
public:
    /// What became of the files.
    enum class Outcome { nothingToDo, relocated, notWritten, notUnderstood };

    /// Relocates `project` and tells the user what was done or why not. Only the paths change: all
    /// else in the files stays, known or not. Both files are written before either is put in its
    /// place, the structure last, so that a relocation that was cut short can be run again.
    static Outcome relocate(const OpenedProject& project);
};

} // namespace kestrel
