// SPDX-License-Identifier: MIT
#pragma once

#include "build/AssemblerLocation.h"
#include "build/BuildResult.h"
#include "build/RunningBuilds.h"

#include <memory>

namespace kestrel {

class ProgramKnowledge;

/// Has kestrel-facts look at the program of each build that made an image, in the background, and
/// tells what it found. Only the latest build counts: what is found out about another one is
/// dropped. All of it is for the main thread.
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

private:
    void ask(const BuildResult& result, const std::shared_ptr<StopFlag>& stop);

    ProgramKnowledge& m_knowledge;
    AssemblerLocator m_locator;
    std::shared_ptr<StopFlag> m_stop;
};

} // namespace kestrel
