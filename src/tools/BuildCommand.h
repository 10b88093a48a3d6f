// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"
#include "build/BuildSettingsConfiguration.h"
#include "model/OpenedProject.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QCoreApplication;

namespace kestrel {

class ConsolePrinter;
class Relocation;

/// Builds one project with NESProjectBuilder and checks whether that made an image.
class BuildCommand {
public:
    /// run() runs the event loop of `application` and changes the working folder to the project's.
    /// `assemblerArguments` follow the assembler's usual ones.
    BuildCommand(QCoreApplication& application, OpenedProject project,
                 std::vector<std::string> assemblerArguments = {});
    ~BuildCommand();
    BuildCommand(const BuildCommand&) = delete;
    BuildCommand& operator=(const BuildCommand&) = delete;

    /// Builds, and tells the user what went wrong. True when this build made the image and all of
    /// its output was printed.
    bool run();

private:
    /// What the builder passes to its completion handler.
    struct Report {
        std::optional<std::filesystem::path> image;
        std::optional<BuildError> error;
    };

    std::shared_ptr<BuildSettingsConfiguration> movedSettings(const Relocation& relocation) const;
    bool build(const std::filesystem::path& expectedImage);
    std::optional<Report> buildReport();
    void tellError(const BuildError& error);

    QCoreApplication& m_application;
    OpenedProject m_project;
    std::vector<std::string> m_assemblerArguments;
    std::shared_ptr<BuildSettingsConfiguration> m_settings;
    std::shared_ptr<ConsolePrinter> m_printer;
};

} // namespace kestrel
