// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace kestrel {

/// Opens a ROM image with the emulator that the user has chosen.
class EmulatorLauncher {
public:
    /// Starts the emulator as a program of its own, through no shell, and does not wait for it. A
    /// desktop entry (a file named *.desktop) is started as it says, on macOS anything through the
    /// system's `open`, and elsewhere anything else is an executable that gets the image as its
    /// only argument. False when it could not be started.
    static bool open(const std::filesystem::path& image, const std::filesystem::path& emulator);
};

} // namespace kestrel
