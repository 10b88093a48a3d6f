// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/FilePanel.h"

#include <filesystem>
#include <optional>

namespace kestrel {

/// The folder in which to look for an emulator first: that of the present one, else that of the
/// installed applications, else the home folder.
std::filesystem::path
emulatorStartFolder(const std::optional<std::filesystem::path>& presentEmulator);

/// Asks for an emulator in a sheet that offers folders, programs and desktop entries, those for the
/// console first. Any other file can still be chosen by typing its name. A name that no file in the
/// shown folder has stands for the program or installed emulator of that name, wherever it is.
/// `title` is the panel's title; see FilePanel for the other arguments.
void openEmulatorPanel(QWidget* window, const QString& title, const std::filesystem::path& folder,
                       FilePanelHandler handler);

} // namespace kestrel
