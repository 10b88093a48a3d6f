// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace kestrel {

/// What kestrel-facts is asked about.
struct FactsRequest {
    std::filesystem::path program;       ///< kestrel-facts
    std::string mainFile;                ///< as the build's assembler was given it
    std::filesystem::path includeFolder; ///< NES_INCLUDE, the only environment variable
};

/// Runs kestrel-facts at the lowest priority, waits for its end on the calling thread, which must
/// be a Qt thread, and reads what it printed. `mustStop` is called many times a second; once it
/// returns true the program is killed. Nothing when that happened or anything else went wrong; all
/// of it is silent.
std::optional<ProgramFacts> askForFacts(const FactsRequest& request,
                                        const std::function<bool()>& mustStop);

} // namespace kestrel
