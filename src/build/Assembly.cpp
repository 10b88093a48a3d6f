// SPDX-License-Identifier: MIT
#include "build/Assembly.h"

#include "build/BackgroundWork.h"
#include "build/BuildError.h"
#include "build/ImageStamp.h"

#include <QCoreApplication>

#include <optional>
#include <utility>

namespace kestrel {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int BuilderErrorCode = 100;

AssemblerResult runUnlessStopped(const Assembly& assembly) {
    const auto mustStop = [&] {
        return QCoreApplication::closingDown() || assembly.stop->isRequested();
    };
    if (mustStop()) {
        AssemblerResult result;
        result.stopped = true;
        return result;
    }
    const LongWait wait;
    return runAssembler(assembly.request, mustStop);
}

/// `began` is when the assembler's turn came.
BuildResult resultOf(const Assembly& assembly, const AssemblerResult& run, const ImageStamp& before,
                     Clock::time_point began) {
    const ImageStamp after = ImageStamp::of(assembly.image);
    const bool madeImage = after.present && after != before;
    BuildResult result;
    result.image = assembly.image;
    result.mainFile = assembly.mainFile;
    result.includeFolder = assembly.request.includeFolder;
    result.duration = std::chrono::duration_cast<std::chrono::milliseconds>(assembly.preparation +
                                                                            (Clock::now() - began));
    result.errors = run.errors;
    result.warnings = run.warnings;
    result.hasMoreErrors = run.hasMoreErrors;
    result.hasOutput = run.hasOutput;
    result.notCopied = assembly.notCopied;
    if (run.startFailure) {
        result.state = BuildResult::State::notStarted;
        result.error = BuildError{"", BuilderErrorCode, *run.startFailure};
        return result;
    }
    const bool hasFailed = run.errors > 0 && (run.signal != 0 || run.exitStatus != 0);
    result.state = stateAfter({run.stopped, run.signal, madeImage, hasFailed});
    if (result.isMade()) {
        result.bytes = after.size;
    } else if (result.state == BuildResult::State::crashed) {
        result.signal = run.signal;
    } else if (result.state == BuildResult::State::stopped) {
        result.error = BuildError{"", BuilderErrorCode,
                                  assembly.stop->isOvertaken() ? BuildOvertaken : BuildStopped};
        return result;
    }
    result.hints = sentencesAbout(result.notCopied, result.includeFolder);
    return result;
}

} // namespace

void carryOut(const Assembly& assembly) {
    const auto began = Clock::now();
    const ImageStamp before = ImageStamp::of(assembly.image);
    AssemblerResult run = runUnlessStopped(assembly);
    const BuildResult result = resultOf(assembly, run, before, began);
    assembly.running->ended(assembly.image, assembly.stop);
    if (QCoreApplication::closingDown()) {
        assembly.handOver->abandon();
        return;
    }
    BuildHandOver<QString>::Task report;
    if (assembly.observer) {
        report = [observer = assembly.observer, result] { observer(result); };
    }
    if (result.error) {
        assembly.handOver->fail(*result.error, std::move(run.output), std::move(report));
    } else {
        assembly.handOver->finish(std::move(run.output), assembly.image, std::move(report));
    }
}

} // namespace kestrel
