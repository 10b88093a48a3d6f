// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"
#include "build/BuildSettingsConfiguration.h"

#include <string>
#include <vector>

namespace kestrel {

/// Sentences that explain `error`, the builder's texts being few; found by looking at the files
/// that the settings name. Empty when there is nothing to add.
std::vector<std::string> buildHintsFor(const BuildError& error,
                                       BuildSettingsConfiguration& settings);

} // namespace kestrel
