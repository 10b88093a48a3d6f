// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <vector>

namespace kestrel {

/// An installed application that says of itself that it opens ROM images of the console.
struct InstalledEmulator {
    std::filesystem::path file; ///< its desktop entry
    QString name;               ///< in the user's language
    QString icon;               ///< a path, or a name in the icon theme; may be empty
};

/// The emulators whose desktop entries are found where XDG_DATA_HOME and XDG_DATA_DIRS say, sorted
/// by name. Left out are entries that are not to be shown, that another of the same name overrides,
/// and whose program is not there.
std::vector<InstalledEmulator> installedEmulators();

/// Whether `file` is the desktop entry of an application for ROM images of the console.
bool isEmulatorEntry(const std::filesystem::path& file);

} // namespace kestrel
