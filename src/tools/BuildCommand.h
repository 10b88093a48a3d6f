// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildResult.h"
#include "build/BuildSettingsConfiguration.h"
#include "model/OpenedProject.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

class ConsolePrinter;
class Relocation;

/// Builds one project with NESProjectBuilder and checks whether that made an image.
class BuildCommand {
public:
    /// run() runs the application's event loop and changes the working folder to the project's.
    /// `assemblerArguments` follow the assembler's usual ones.
    explicit BuildCommand(OpenedProject project, std::vector<std::string> assemblerArguments = {});
    ~BuildCommand();
    BuildCommand(const BuildCommand&) = delete;
    BuildCommand& operator=(const BuildCommand&) = delete;

    /// Builds, and tells the user what went wrong. True when this build made the image and all of
    /// its output was printed.
    bool run();

private:
    std::shared_ptr<BuildSettingsConfiguration> movedSettings(const Relocation& relocation) const;
    bool build();
    std::optional<BuildResult> buildResult();

    OpenedProject m_project;
    std::vector<std::string> m_assemblerArguments;
    std::shared_ptr<BuildSettingsConfiguration> m_settings;
    std::shared_ptr<ConsolePrinter> m_printer;
};

} // namespace kestrel
