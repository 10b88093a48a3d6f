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
    QString text;              ///< one sentence without a full stop
    QString elapsed;           ///< shown behind the text; not announced, since it changes always
    QString hint;              ///< whole sentences, may be empty
    bool offersSaving = false; ///< the files on the disk are not what is on the screen

    bool operator==(const BuildNews&) const = default;
};

/// How a command to build or to run a project went.
struct BuildStory {
    BuildResult first;                 ///< its output is in the console
    std::optional<BuildResult> second; ///< of the silent build of a run
    std::optional<EmulatorLaunch> launch;
    QString unsaved; ///< the file on the screen whose changes were not saved, if there was one
};

BuildNews newsOf(const BuildStory& story);

/// "1.2 s".
QString secondsText(qint64 milliseconds);

} // namespace kestrel
