// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace kestrel {

/// Opens the ROM image `image` with the emulator that the user chose, detached and without a shell.
/// A *.desktop file is started as its Exec line says; anything else is an executable that gets the
/// image as its only argument (on macOS, an application for `open -a`). False when it could not be
/// started.
bool openWithEmulator(const std::filesystem::path& image, const std::filesystem::path& emulator);

} // namespace kestrel
