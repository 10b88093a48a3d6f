// SPDX-License-Identifier: MIT
#pragma once

#include "build/AssemblerLocation.h"
#include "build/BuildResult.h"
#include "build/FactsProcess.h"
#include "build/RunningBuilds.h"

#include <chrono>
#include <memory>

namespace kestrel {

class ProgramKnowledge;

/// Has kestrel-facts look at the program of each build that made an image, in the background, and
/// tells what it found, or that it took too long. Only the latest build counts: what is found out
/// about another one is dropped. All of it is for the main thread.
class ProgramInquiry {
public:
    /// `knowledge` gets what is found out; it must outlive this. `locator` finds kestrel-facts.
    explicit ProgramInquiry(
        ProgramKnowledge& knowledge, AssemblerLocator locator = [] { return findFactsProgram(); });
    /// Drops what is going on.
    ~ProgramInquiry();
    ProgramInquiry(const ProgramInquiry&) = delete;
    ProgramInquiry& operator=(const ProgramInquiry&) = delete;

    /// A build is about to start: what is going on about an older one is dropped and its program
    /// killed. The observer is for that build; it does nothing when yet another one has started, or
    /// when this is gone.
    BuildObserver nextBuild();

    /// How long kestrel-facts may take from now on.
    void setTimeLimit(std::chrono::milliseconds limit) { m_limit = limit; }

private:
    void ask(const BuildResult& result, const std::shared_ptr<StopFlag>& stop);

    ProgramKnowledge& m_knowledge;
    AssemblerLocator m_locator;
    std::shared_ptr<StopFlag> m_stop;
    std::chrono::milliseconds m_limit = FactsRequest().limit;
};

} // namespace kestrel
