// SPDX-License-Identifier: MIT
#include "tools/EmulatorChoice.h"

#include "build/InstalledEmulators.h"
#include "build/ShownPath.h"
#include "model/BuildSettingsFile.h"
#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Paths.h"
#include "tools/Messages.h"

namespace kestrel {

EmulatorChoice chooseInstalledEmulator(const OpenedProject& project) {
    const auto file = buildSettingsLocation(project.folder, project.root->itemName());
    bool repeatedMembers = false;
    auto settings = readJsonObject(file, &repeatedMembers);
    const auto present = settings ? stringMember(*settings, "emulator") : std::nullopt;
    if (!present) {
        complain("the build settings " + shown(file) +
                 " cannot be read, or have no place for an emulator. Nothing was changed.");
        return EmulatorChoice::notUnderstood;
    }
    if (!present->empty()) {
        printText("The project has its emulator, " + shown(*present) + ": nothing to do.\n");
        return EmulatorChoice::hasOne;
    }
    const auto emulators = installedEmulators();
    if (emulators.empty()) {
        complain("no emulator for the NES is installed, so the project still has none.");
        return EmulatorChoice::noneInstalled;
    }
    const std::filesystem::path& chosen = emulators.front().file;
    (*settings)["emulator"] = pathText(chosen);
    const auto text = buildSettingsText(*settings);
    if (!text || (repeatedMembers && !keepBackup(file)) || !replaceFile(file, *text)) {
        complain("the build settings " + shown(file) +
                 " could not be written: is there room, and may you write there?");
        return EmulatorChoice::notWritten;
    }
    printText("The project's emulator is now " + shown(chosen) + ".\n");
    return EmulatorChoice::made;
}

} // namespace kestrel
