// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"
#include "build/BuildSettingsConfiguration.h"

#include <string>
#include <vector>

namespace kestrel {

/// The builder's texts for a set-up that failed and for a project without a main file.
inline constexpr const char* SetUpFailed = "Could not create temp folder to build project";
inline constexpr const char* NoMainFile = "Could not find main entry point for assembly file(s)";

/// Sentences that explain `error`, the builder's texts being few; found by looking at the files
/// that the settings name. Empty when there is nothing to add. `hasAssembler` says whether the
/// assembler was found.
std::vector<std::string> buildHintsFor(const BuildError& error,
                                       BuildSettingsConfiguration& settings, bool hasAssembler);

} // namespace kestrel
