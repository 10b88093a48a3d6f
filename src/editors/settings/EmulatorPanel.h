// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/FilePanel.h"

#include <filesystem>
#include <optional>

namespace kestrel {

/// Asks for an emulator in a sheet that offers folders, programs and desktop entries. A file that
/// it does not offer can still be chosen by typing its name.
class EmulatorPanel {
public:
    /// Where to begin: in the folder of the present emulator, else where installed applications
    /// are, else in the home folder.
    static std::filesystem::path
    startFolder(const std::optional<std::filesystem::path>& presentEmulator);

    /// Opens the panel; see FilePanel for the arguments. `title` is the panel's title.
    static void open(QWidget* window, const QString& title, const std::filesystem::path& folder,
                     FilePanelHandler handler);
};

} // namespace kestrel
