// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"
#include "build/BuildSettingsConfiguration.h"
#include "build/ConsoleOutputDelegate.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace kestrel {

/// Builds a project's ROM image, and runs it.
class ProjectBuilder {
public:
    /// Gets the image's path or an error.
    using BuildHandler =
        std::function<void(std::optional<std::filesystem::path>, std::optional<BuildError>)>;
    /// Gets an error, or nothing when the emulator was asked to open the image.
    using RunHandler = std::function<void(std::optional<BuildError>)>;

    ProjectBuilder() = default;
    ProjectBuilder(const ProjectBuilder&) = delete;
    ProjectBuilder& operator=(const ProjectBuilder&) = delete;
    virtual ~ProjectBuilder() = default;

    /// Receives the assembler's output; none at first. The builder refers to it weakly.
    virtual std::weak_ptr<ConsoleOutputDelegate> consoleOutput() const = 0;
    virtual void setConsoleOutput(std::weak_ptr<ConsoleOutputDelegate> consoleOutput) = 0;

    /// The settings that are built; the builder only reads them.
    virtual std::shared_ptr<BuildSettingsConfiguration> buildSetting() const = 0;
    virtual void setBuildSetting(std::shared_ptr<BuildSettingsConfiguration> buildSetting) = 0;

    virtual void build(BuildHandler completionHandler) = 0;
    virtual void run(RunHandler completionHandler) = 0;
};

} // namespace kestrel
