// SPDX-License-Identifier: MIT
#include "app/BuildSession.h"

#include "build/NESProjectBuilder.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace kestrel {

struct BuildSession::Command {
    Kind kind = Kind::build;
    std::weak_ptr<ProjectItem> project;
    QString name;                           ///< of the project
    std::shared_ptr<StopSwitch> stopSwitch; ///< of its present part
    bool stopped = false;
    bool hasFirst = false;
    BuildStory story;
};

BuildSession::BuildSession(QObject* parent)
    : QObject(parent) {
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &BuildSession::tellElapsed);
}

BuildSession::~BuildSession() = default;

BuildSession::Number BuildSession::begin(Kind kind, const std::shared_ptr<ProjectItem>& project,
                                         const QString& unsaved) {
    Command command;
    command.kind = kind;
    command.project = project;
    command.story.unsaved = unsaved;
    command.story.isRun = kind == Kind::run;
    command.name = project ? isolated(QString::fromStdString(project->itemName())) : QString();
    m_projectName = command.name;
    m_end.reset();
    m_others.clear();
    m_commands.emplace(++m_latest, std::move(command));
    m_began.start();
    m_timer.start(QuietMilliseconds);
    if (m_commands.size() == 1) {
        Q_EMIT runningChanged(true);
    }
    return m_latest;
}

void BuildSession::watch(Number number, NESProjectBuilder& builder, BuildObserver also) {
    const auto found = m_commands.find(number);
    if (found == m_commands.end()) {
        return;
    }
    found->second.stopSwitch = builder.stopSwitch();
    const QPointer<BuildSession> self = this;
    builder.setObserver([self, number, also = std::move(also)](const BuildResult& result) {
        if (self) {
            self->buildEnded(number, result);
        }
        if (also) {
            also(result);
        }
    });
    builder.setLaunchObserver([self, number](const EmulatorLaunch& launch) {
        if (self) {
            self->launchEnded(number, launch);
        }
    });
}

void BuildSession::refused(Number number, const BuildError& error) {
    BuildResult result;
    result.error = error;
    buildEnded(number, result);
}

bool BuildSession::tellNothingWasBuilt(const QString& text) {
    if (isRunning()) {
        return false;
    }
    m_others.clear();
    BuildNews news;
    news.mark = BuildMarkKind::failed;
    news.text = text;
    m_end = news;
    tellEnd();
    return true;
}

void BuildSession::buildEnded(Number number, const BuildResult& result) {
    const auto found = m_commands.find(number);
    if (found == m_commands.end()) {
        return;
    }
    Command& command = found->second;
    if (command.hasFirst && !result.error) {
        command.story.second = result;
        return; // the emulator comes next
    }
    // An error ends the command, and the silent build's is all that is left to be said.
    command.hasFirst = true;
    command.story.first = result;
    if (command.kind == Kind::build || result.error) {
        end(number);
    }
}

void BuildSession::launchEnded(Number number, const EmulatorLaunch& launch) {
    const auto found = m_commands.find(number);
    if (found != m_commands.end()) {
        found->second.story.launch = launch;
        end(number);
    }
}

BuildSession::Rest BuildSession::restOf(Number number,
                                        const std::shared_ptr<ProjectItem>& project) {
    const auto found = m_commands.find(number);
    if (found == m_commands.end()) {
        return Rest::dropped;
    }
    const bool isOvertaken =
        std::any_of(std::next(found), m_commands.end(),
                    [&](const auto& newer) { return newer.second.project.lock() == project; });
    const bool isStopped = found->second.stopped;
    if (!isStopped && !isOvertaken && project) {
        return Rest::goesOn;
    }
    if (isStopped) {
        found->second.story.launch = EmulatorLaunch{EmulatorLaunch::State::stopped, {}, {}, false};
    }
    end(number);
    return isStopped ? Rest::stopped : Rest::dropped;
}

void BuildSession::stop() {
    for (auto& [number, command] : m_commands) {
        command.stopped = true;
        if (command.stopSwitch) {
            command.stopSwitch->stop();
        }
    }
}

void BuildSession::end(Number number) {
    const Command command = std::move(m_commands.at(number));
    m_commands.erase(number);
    const BuildNews news = newsOf(command.story);
    if (number == m_latest) {
        m_timer.stop();
        m_end = news;
    } else if (command.name != m_projectName) { // otherwise the latest one ended it
        m_others += tr("%1: %2.").arg(command.name, news.text);
    }
    if (m_end) {
        tellEnd();
    }
    if (m_commands.empty()) {
        Q_EMIT runningChanged(false);
    }
}

void BuildSession::withdrawOffer() {
    m_news.again = BuildNews::Again::nothing;
    if (m_end) {
        m_end->again = BuildNews::Again::nothing;
    }
    Q_EMIT offerWithdrawn();
}

void BuildSession::tell(const BuildNews& news) {
    m_news = news;
    Q_EMIT newsChanged(m_news);
}

/// Says what came of the latest command and, below that, of those for other projects.
void BuildSession::tellEnd() {
    BuildNews news = *m_end;
    QStringList lines = m_others;
    for (const auto& [number, command] : m_commands) {
        if (command.name != m_projectName) {
            lines += tr("%1 is still being built.").arg(command.name);
        }
    }
    if (!news.hint.isEmpty()) {
        lines.prepend(news.hint);
    }
    news.hint = lines.join(QLatin1Char('\n'));
    tell(news);
}

void BuildSession::tellElapsed() {
    m_timer.setInterval(TickMilliseconds);
    BuildNews news;
    news.mark = BuildMarkKind::running;
    news.text = tr("Building %1...").arg(m_projectName);
    news.elapsed = secondsText(m_began.elapsed());
    tell(news);
}

} // namespace kestrel
