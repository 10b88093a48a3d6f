// SPDX-License-Identifier: MIT
#pragma once

#include "build/AssemblerProcess.h"
#include "build/BuildHandOver.h"
#include "build/BuildResult.h"
#include "build/RunningBuilds.h"

#include <QString>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace kestrel {

/// The part of one build that runs on a background worker: the assembler, and what became of it.
struct Assembly {
    AssemblerRequest request;
    std::filesystem::path image;
    std::string mainFile; ///< among the request's arguments
    std::vector<UncopiedFile> notCopied;
    std::chrono::steady_clock::duration preparation{0}; ///< from the request to the wait for a turn
    std::shared_ptr<StopFlag> stop;
    std::shared_ptr<RunningBuilds> running; ///< where its turn has come
    std::shared_ptr<BuildHandOver<QString>> handOver;
    BuildObserver observer; ///< may be empty; called on the main thread, after the console
};

/// Runs the assembler unless the build is to be stopped, and hands everything over. Nothing is
/// handed over when the program is quitting.
void carryOut(const Assembly& assembly);

} // namespace kestrel
