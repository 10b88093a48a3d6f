// SPDX-License-Identifier: MIT
#include "build/AssemblerProcess.h"

#include "build/Descendants.h"
#include "build/MessageCounter.h"
#include "build/OutputText.h"
#include "build/QtText.h"
#include "build/StartFailure.h"
#include "model/Paths.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <csignal>
#include <cstddef>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace kestrel {

namespace {

/// How often `mustStop` is called without output, in milliseconds.
constexpr int WaitSlice = 50;
/// How long a child that is asked to end may take, and how often it is looked at, in milliseconds.
constexpr int EndWait = 300;
constexpr int EndSlice = 10;
/// How long a killed child may take to end, in milliseconds.
constexpr int KillWait = 5000;

std::string startSentence(const std::filesystem::path& assembler, const std::string& reason) {
    return "Could not start the assembler " + pathText(assembler) + ": " + reason;
}

void prepareChild(QProcess& process) {
    process.setStandardInputFile(QProcess::nullDevice());
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // Runs between fork and exec: only system calls are safe.
    process.setChildProcessModifier([] {
        ::setpgid(0, 0);
#ifdef Q_OS_LINUX
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // also when this program crashes
#endif
    });
}

/// Program, include folder and arguments as Qt text; nothing when one is not valid UTF-8.
std::optional<QStringList> textOf(const AssemblerRequest& request) {
    std::vector<std::optional<QString>> texts{textFromPath(request.assembler),
                                              textFromPath(request.includeFolder)};
    for (const auto& argument : request.arguments) {
        texts.push_back(textFromUtf8(std::string_view(argument)));
    }
    QStringList list;
    for (const auto& text : texts) {
        if (!text) {
            return std::nullopt;
        }
        list.append(*text);
    }
    return list;
}

/// Whether this child has ended. Does not take its exit status, which QProcess waits for: until
/// then no other process gets its ID.
bool hasEnded(pid_t child) {
    siginfo_t status{};
    return ::waitid(P_PID, static_cast<id_t>(child), &status, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           status.si_pid == child;
}

/// Asks the child, its process group and what it started outside that to end, then kills what is
/// left of them.
void end(const QProcess& process) {
    // The child made the group before exec, so both have the same ID. After the child has ended the
    // ID is 0, which would mean this program's own group.
    const auto group = static_cast<pid_t>(process.processId());
    if (group <= 0) {
        return;
    }
    Descendants started(group);
    started.find();
    ::kill(-group, SIGTERM);
    started.send(SIGTERM);
    for (int waited = 0; waited < EndWait && !hasEnded(group); waited += EndSlice) {
        ::poll(nullptr, 0, EndSlice);
    }
    started.find(); // what was started meanwhile
    ::kill(-group, SIGKILL);
    started.send(SIGKILL);
}

/// What ended the child; 0 when it ended by itself.
int signalOf(const QProcess& process) {
    return process.exitStatus() == QProcess::CrashExit ? process.exitCode() : 0;
}

} // namespace

AssemblerResult runAssembler(const AssemblerRequest& request,
                             const std::function<bool()>& mustStop) {
    AssemblerResult result;
    auto texts = textOf(request);
    if (!texts) {
        result.startFailure = startSentence(request.assembler, "a path is not valid UTF-8");
        return result;
    }
    const QString program = texts->takeFirst();
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("NES_INCLUDE"), texts->takeFirst());

    OutputText output;
    MessageCounter messages;
    const auto take = [&](const QByteArray& bytes) {
        output.append(bytes);
        messages.append({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    };
    QProcess process;
    const auto stopIfAsked = [&] {
        if (!result.stopped && mustStop()) {
            end(process);
            result.stopped = true;
        }
    };
    process.setProcessEnvironment(environment);
    prepareChild(process);
    // The waits below do not return while output keeps coming, so it is read as it comes.
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, [&] {
        take(process.readAllStandardOutput());
        stopIfAsked();
    });
    process.start(program, *texts, QIODevice::ReadOnly);
    if (!process.waitForStarted(-1)) {
        result.startFailure = startSentence(request.assembler, reasonOf(process));
        return result;
    }
    while (!result.stopped && !process.waitForFinished(WaitSlice) &&
           process.state() != QProcess::NotRunning) {
        stopIfAsked();
    }
    if (result.stopped) {
        process.waitForFinished(KillWait);
    }
    take(process.readAllStandardOutput());
    messages.finish();
    result.signal = signalOf(process);
    result.exitStatus = result.signal == 0 ? process.exitCode() : 0;
    result.hasOutput = messages.hasText();
    result.errors = messages.errors();
    result.warnings = messages.warnings();
    result.hasMoreErrors = messages.reachedLimit();
    result.output = output.take();
    return result;
}

} // namespace kestrel
