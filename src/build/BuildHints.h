// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"
#include "build/BuildSettingsConfiguration.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// The builder's texts for a set-up that failed and for a project without a main file.
inline constexpr const char* SetUpFailed = "Could not create temp folder to build project";
inline constexpr const char* NoMainFile = "Could not find main entry point for assembly file(s)";

/// What the hints look at, copied: they are found on another thread, while the settings may change.
struct HintSubject {
    /// Whether the assembler was found.
    bool hasAssembler = false;
    std::string projectName;
    std::filesystem::path projectFolder;
    std::filesystem::path settingsFile;
    std::optional<std::filesystem::path> outputFolder;
    /// The listed assembly files as far as they name one, in their order.
    std::vector<std::filesystem::path> sources;
    bool listsSources = false;
};

/// Copies what the hints for a build with `settings` look at.
HintSubject hintSubject(BuildSettingsConfiguration& settings, bool hasAssembler);

/// Sentences that explain `error`, the builder's texts being few; found by looking at the files
/// that `subject` names. Empty when there is nothing to add.
std::vector<std::string> buildHintsFor(const BuildError& error, const HintSubject& subject);

} // namespace kestrel
