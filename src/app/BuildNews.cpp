// SPDX-License-Identifier: MIT
#include "app/BuildNews.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace kestrel {

namespace {

/// The texts in the user's language.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(BuildNews)
};

BuildMarkKind markOf(const BuildResult& result) {
    switch (result.state) {
    case BuildResult::State::made:
        if (!result.isGood() || result.errors > 0) {
            return BuildMarkKind::failed;
        }
        return result.warnings > 0 ? BuildMarkKind::warned : BuildMarkKind::made;
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
    const bool differs = story.second && (story.second->isMade() != story.first.isMade() ||
                                          story.second->notCopied != story.first.notCopied);
    return differs ? *story.second : story.first;
}

/// Says that `result` is that of a run's silent build, and how the first one came to differ.
QString secondBuildHint(const BuildResult& result, const BuildResult& first) {
    if (result.isMade() == first.isMade()) {
        return Text::tr("That was the second build of this run, whose output is not shown. For the "
                        "first one other files could be copied.");
    }
    return result.isMade() ? Text::tr("That was the second build of this run. The first one, whose "
                                      "output is below, made no image.")
                           : Text::tr("That was the second build of this run, whose output is not "
                                      "shown. The first one made an image.");
}

/// What became of the emulator, as it ends the sentence about a build that made the image.
void addLaunch(BuildNews& news, QStringList& hints, const EmulatorLaunch& launch, bool isMade) {
    const QString emulator = isolated(QString::fromStdString(launch.emulator));
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
        hints += QString::fromStdString(launch.reason) + QLatin1Char('.');
        break;
    case EmulatorLaunch::State::noEmulator:
        news.mark = BuildMarkKind::failed;
        news.text = Text::tr("%1; no emulator is set").arg(news.text);
        hints += Text::tr("Select the project in the tree and choose one at “Emulator”.");
        break;
    case EmulatorLaunch::State::stopped:
        news.mark = BuildMarkKind::stopped;
        news.text = Text::tr("%1; stopped before the emulator was started").arg(news.text);
        break;
    }
}

QString sentenceOf(const BuildResult& result) {
    QString text = QString::fromStdString(result.sentence());
    const QString image = QString::fromStdString(result.image.filename().string());
    if (!image.isEmpty() && text.startsWith(image)) {
        text.replace(0, image.size(), isolated(image));
    }
    return text;
}

bool turnsText(QChar character) {
    switch (character.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

} // namespace

QString isolated(const QString& name) {
    constexpr QChar FirstStrongIsolate(0x2068);
    constexpr QChar PopIsolate(0x2069);
    // A name may leave embeddings open: they end with the isolate. One that it closes itself would
    // end this one, so those are left out.
    return std::any_of(name.begin(), name.end(), turnsText)
               ? FirstStrongIsolate + QString(name).remove(PopIsolate) + PopIsolate
               : name;
}

BuildNews newsOf(const BuildStory& story) {
    const BuildResult& result = resultOf(story);
    BuildNews news;
    news.mark = markOf(result);
    news.text = sentenceOf(result);
    QStringList hints;
    for (const std::string& hint : result.hints) {
        hints += QString::fromStdString(hint);
    }
    if (story.launch) {
        addLaunch(news, hints, *story.launch, result.isMade());
    }
    if (&result != &story.first) {
        hints += secondBuildHint(result, story.first);
    }
    if (!story.unsaved.isEmpty()) {
        const bool ran = result.isMade() || result.state == BuildResult::State::notMade;
        hints += (ran ? Text::tr("Built as it was on the disk, with unsaved changes in %1 on the "
                                 "screen.")
                      : Text::tr("A build reads the disk; there were unsaved changes in %1 on the "
                                 "screen."))
                     .arg(isolated(story.unsaved));
        news.again = story.isRun ? BuildNews::Again::run : BuildNews::Again::build;
    }
    news.hint = hints.join(QLatin1Char('\n'));
    return news;
}

QString secondsText(qint64 milliseconds) {
    return Text::tr("%1 s").arg(static_cast<double>(milliseconds) / 1000.0, 0, 'f', 1);
}

} // namespace kestrel
