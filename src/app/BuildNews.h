// SPDX-License-Identifier: MIT
#pragma once

#include "app/BuildMarkKind.h"
#include "build/BuildResult.h"
#include "build/EmulatorLauncher.h"

#include <QString>

#include <optional>

namespace kestrel {

/// What there is to say about the latest build.
struct BuildNews {
    BuildMarkKind mark = BuildMarkKind::notice;
    QString text;    ///< one sentence without a full stop
    QString elapsed; ///< shown behind the text; not announced, since it changes always
    QString hint;    ///< whole sentences, may be empty
    /// What is offered to be done again after saving, since what is on the screen is not on the
    /// disk.
    enum class Again { nothing, build, run };
    Again again = Again::nothing;

    bool operator==(const BuildNews&) const = default;
};

/// How a command to build or to run a project went.
struct BuildStory {
    BuildResult first;                 ///< its output is in the console
    std::optional<BuildResult> second; ///< of the silent build of a run
    std::optional<EmulatorLaunch> launch;
    QString unsaved; ///< the file on the screen whose changes were not saved, if there was one
    bool isRun = false;
};

BuildNews newsOf(const BuildStory& story);

/// A name as part of a sentence: one that is written from right to left, or that holds marks of the
/// direction, does not turn what stands around it.
QString isolated(const QString& name);

/// "1.2 s".
QString secondsText(qint64 milliseconds);

} // namespace kestrel
