// SPDX-License-Identifier: MIT
#pragma once

#include "build/BuildError.h"
#include "build/BuildSettingsConfiguration.h"

#include <string>
#include <vector>

namespace kestrel {

/// Tells what stands behind the builder's few error texts.
class BuildHints {
public:
    /// Sentences that help with `error`, found by looking at what the settings name; none when
    /// there is nothing to add.
    static std::vector<std::string> forError(const BuildError& error,
                                             BuildSettingsConfiguration& settings);
};

} // namespace kestrel
