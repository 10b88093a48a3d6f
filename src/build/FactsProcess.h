// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <chrono>
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
    /// How long it may take. At the lowest priority it may have to wait long for its turn.
    std::chrono::milliseconds limit = std::chrono::minutes(2);
};

/// What became of the question.
struct FactsAnswer {
    std::optional<ProgramFacts> facts;
    bool tookTooLong = false; ///< it was killed at the limit
};

/// Runs kestrel-facts at the lowest priority, waits for its end on the calling thread, which must
/// be a Qt thread, and reads what it printed. `mustStop` is called many times a second; once it
/// returns true, or at the limit, the program is killed. No facts when that happened or anything
/// else went wrong; all of it is silent.
FactsAnswer askForFacts(const FactsRequest& request, const std::function<bool()>& mustStop);

} // namespace kestrel
