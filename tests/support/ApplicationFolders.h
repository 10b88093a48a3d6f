// SPDX-License-Identifier: MIT
#pragma once

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>

namespace kestrel::test {

/// Folders of desktop entries that stand in for the system's and the user's as long as the object
/// lives: XDG_DATA_HOME is "user" and XDG_DATA_DIRS "local" and "system" below the folder.
class ApplicationFolders : public TemporaryFolder {
public:
    ApplicationFolders();
    ~ApplicationFolders();

    /// Makes a program that does nothing; its path.
    std::filesystem::path program(const std::string& name) const;

    /// Writes the desktop entry of an emulator whose program is there; its path. `place` is its
    /// path below the folder; `more` are further lines of the entry, before the Exec line.
    std::filesystem::path emulator(const std::string& place, const std::string& name,
                                   const std::string& more = "") const;

private:
    std::string m_formerHome;
    std::string m_formerFolders;
};

} // namespace kestrel::test
