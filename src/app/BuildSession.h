// SPDX-License-Identifier: MIT
#pragma once

#include "app/BuildNews.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <map>
#include <memory>
#include <optional>

namespace kestrel {

class NESProjectBuilder;
class ProjectItem;
class StopSwitch;

/// Knows what the commands to build and to run are about, which may overlap: tells what there is to
/// say about the latest one, and stops them. For the user-interface thread.
class BuildSession : public QObject {
    Q_OBJECT

public:
    /// One command of the user.
    using Number = unsigned;

    /// How long a build may take before anything is said about it, and how often it is said then.
    static constexpr int QuietMilliseconds = 300;
    static constexpr int TickMilliseconds = 1000;

    enum class Kind { build, run };

    explicit BuildSession(QObject* parent = nullptr);
    ~BuildSession() override;

    /// Begins a command for this project, null when none is selected. `unsaved` names the file on
    /// the screen whose changes are not on the disk, if there is one.
    Number begin(Kind kind, const std::shared_ptr<ProjectItem>& project, const QString& unsaved);

    /// Has the builder of one part of the command tell what becomes of it. To be called before that
    /// builds. The second part of a run is its silent build, at whose end the emulator is started.
    /// `also`, unless it is empty, is told the result, too.
    void watch(Number number, NESProjectBuilder& builder, BuildObserver also = {});

    /// The command ended before it had a builder.
    void refused(Number number, const BuildError& error);

    /// A command that could not be begun, since saving failed, as a sentence without a full stop.
    /// False, and nothing is said, while something runs.
    bool tellNothingWasBuilt(const QString& text);

    /// What becomes of the rest of a run.
    enum class Rest { goesOn, stopped, dropped };

    /// The rest of a run is to be carried out, for the project that is selected now, unless it was
    /// stopped, or is dropped for a newer command for the project. Then the command is over.
    Rest restOf(Number number, const std::shared_ptr<ProjectItem>& project);

    /// Stops everything that runs.
    void stop();

    bool isRunning() const { return !m_commands.empty(); }

    const BuildNews& news() const { return m_news; }

    /// What was offered to be saved is saved, or on the screen no more.
    void withdrawOffer();

Q_SIGNALS:
    void newsChanged(const BuildNews& news);
    void offerWithdrawn();
    void runningChanged(bool running);

private:
    struct Command;

    void buildEnded(Number number, const BuildResult& result);
    void launchEnded(Number number, const EmulatorLaunch& launch);
    void end(Number number);
    void tell(const BuildNews& news);
    void tellEnd();
    void tellElapsed();

    std::map<Number, Command> m_commands; ///< those that are not over
    Number m_latest = 0;
    BuildNews m_news;
    QString m_projectName; ///< of the latest command
    std::optional<BuildNews>
        m_end;            ///< what there is to say about the latest command once it is over
    QStringList m_others; ///< what became of commands for other projects since it began
    QElapsedTimer m_began;
    QTimer m_timer{this}; ///< runs while there is more to be said
};

} // namespace kestrel
