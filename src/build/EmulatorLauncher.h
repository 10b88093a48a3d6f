// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace kestrel {

/// What became of the image in a run, after its build had ended without an error.
struct EmulatorLaunch {
    enum class State {
        started,    ///< the emulator was started with the image
        failed,     ///< it could not be started; `reason` says why
        noEmulator, ///< none is set
        stopped,    ///< the run was stopped before
    };

    State state = State::noEmulator;
    std::string emulator;  ///< its name for people
    std::string reason;    ///< the system's, without a full stop
    bool hasImage = false; ///< whether there was an image to open, by whichever build

    explicit operator bool() const { return state == State::started; }
};

/// Gets what became of a run's image.
using LaunchObserver = std::function<void(const EmulatorLaunch&)>;

/// Opens the ROM image `image` with the emulator that the user chose, detached and without a shell.
/// A *.desktop file is started as its Exec line says; anything else is an executable that gets the
/// image as its only argument (on macOS, an application for `open -a`).
EmulatorLaunch openWithEmulator(const std::filesystem::path& image,
                                const std::filesystem::path& emulator);

} // namespace kestrel
