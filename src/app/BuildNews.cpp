// SPDX-License-Identifier: MIT
#include "app/BuildNews.h"

#include "build/BuildError.h"

#include <QCoreApplication>
#include <QStringList>

namespace kestrel {

namespace {

/// The texts in the user's language.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(BuildNews)
};

BuildMarkKind markOf(const BuildResult& result) {
    switch (result.state) {
    case BuildResult::State::made:
        return result.isGood() ? BuildMarkKind::made : BuildMarkKind::failed;
    case BuildResult::State::stopped:
        return BuildMarkKind::stopped;
    case BuildResult::State::refused:
    case BuildResult::State::notStarted:
    case BuildResult::State::notMade:
    case BuildResult::State::crashed:
        break;
    }
    return BuildMarkKind::failed;
}

/// The result that counts: the one of the silent build is left out as long as it came to the same,
/// since the console shows the output of the first.
const BuildResult& resultOf(const BuildStory& story) {
    const bool differs = story.second && story.second->isMade() != story.first.isMade();
    return differs ? *story.second : story.first;
}

/// What became of the emulator, as it ends the sentence about a build that made the image.
void addLaunch(BuildNews& news, QStringList& hints, const EmulatorLaunch& launch, bool isMade) {
    const QString emulator = QString::fromStdString(launch.emulator);
    switch (launch.state) {
    case EmulatorLaunch::State::started:
        if (isMade) {
            news.text = Text::tr("%1; started in %2").arg(news.text, emulator);
        } else if (launch.hasImage) {
            hints += Text::tr("%1 was started with the image of an earlier build; this build "
                              "made none.")
                         .arg(emulator);
        } else {
            hints += Text::tr("%1 was started, but there is no image for it.").arg(emulator);
        }
        break;
    case EmulatorLaunch::State::failed:
        news.mark = BuildMarkKind::failed;
        news.text = Text::tr("%1; %2 could not be started").arg(news.text, emulator);
        hints += Text::tr("%1 could not be started: %2.")
                     .arg(emulator, QString::fromStdString(launch.reason));
        break;
    case EmulatorLaunch::State::noEmulator:
        news.mark = BuildMarkKind::failed;
        news.text = Text::tr("%1; no emulator is set").arg(news.text);
        hints += QString::fromStdString(textOf(BuildError{"2", 0, std::nullopt}));
        break;
    case EmulatorLaunch::State::stopped:
        news.mark = BuildMarkKind::stopped;
        news.text = Text::tr("%1; stopped before the emulator was started").arg(news.text);
        break;
    }
}

} // namespace

BuildNews newsOf(const BuildStory& story) {
    const BuildResult& result = resultOf(story);
    BuildNews news;
    news.mark = markOf(result);
    news.text = QString::fromStdString(result.sentence());
    QStringList hints;
    for (const std::string& hint : result.hints) {
        hints += QString::fromStdString(hint);
    }
    if (story.launch) {
        addLaunch(news, hints, *story.launch, result.isMade());
    }
    if (&result != &story.first) {
        hints += result.isMade()
                     ? Text::tr("That was the second build of this run. The first one, whose "
                                "output is below, made no image.")
                     : Text::tr("That was the second build of this run, whose output is not "
                                "shown. The first one made an image.");
    }
    if (!story.unsaved.isEmpty()) {
        hints += Text::tr("Built as it is on the disk, with unsaved changes in %1 on the screen.")
                     .arg(story.unsaved);
        news.offersSaving = true;
    }
    news.hint = hints.join(QLatin1Char('\n'));
    return news;
}

QString secondsText(qint64 milliseconds) {
    return Text::tr("%1 s").arg(static_cast<double>(milliseconds) / 1000.0, 0, 'f', 1);
}

} // namespace kestrel
