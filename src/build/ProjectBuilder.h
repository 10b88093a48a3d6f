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

/// Turns a project's build settings into a ROM image, and runs it.
class ProjectBuilder {
public:
    /// Gets the image's location, or an error.
    using BuildHandler =
        std::function<void(std::optional<std::filesystem::path>, std::optional<BuildError>)>;
    /// Gets an error, or nothing when the emulator was asked to open the image.
    using RunHandler = std::function<void(std::optional<BuildError>)>;

    ProjectBuilder() = default;
    ProjectBuilder(const ProjectBuilder&) = delete;
    ProjectBuilder& operator=(const ProjectBuilder&) = delete;
    virtual ~ProjectBuilder() = default;

    /// Where the assembler's output goes; nowhere at first. The builder does not keep it alive.
    virtual std::weak_ptr<ConsoleOutputDelegate> consoleOutput() const = 0;
    virtual void setConsoleOutput(std::weak_ptr<ConsoleOutputDelegate> consoleOutput) = 0;

    /// The record that the builder works from; it only reads it.
    virtual std::shared_ptr<BuildSettingsConfiguration> buildSetting() const = 0;
    virtual void setBuildSetting(std::shared_ptr<BuildSettingsConfiguration> buildSetting) = 0;

    virtual void build(BuildHandler completionHandler) = 0;
    virtual void run(RunHandler completionHandler) = 0;
};

} // namespace kestrel
