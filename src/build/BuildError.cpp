// SPDX-License-Identifier: MIT
#include "build/BuildError.h"

namespace kestrel {

std::string textOf(const BuildError& error) {
    if (error == BuildError{"2", 0, std::nullopt}) {
        return "No emulator is set for this project. Select the project in the tree and choose one "
               "at "
               "\"Emulator\".";
    }
    return error.localizedDescription();
}

} // namespace kestrel
