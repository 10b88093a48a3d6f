// SPDX-License-Identifier: MIT
#include "build/FactsProcess.h"

#include "build/QtText.h"
#include "facts/FactsText.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <csignal>
#include <cstddef>
#include <sched.h>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace kestrel {

namespace {

/// How long output may keep `mustStop` waiting, and how long a killed program may take to end, in
/// milliseconds.
constexpr int WaitSlice = 20;
constexpr int KillWait = 5000;
/// More is no program that anybody wrote by hand.
constexpr qsizetype MostOutput = qsizetype{256} << 20U;
constexpr int LowestPriority = 19;

void prepareChild(QProcess& process) {
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    // Runs between fork and exec: only system calls are safe.
    process.setChildProcessModifier([] {
        ::setpgid(0, 0);
        ::setpriority(PRIO_PROCESS, 0, LowestPriority);
#ifdef Q_OS_LINUX
        const sched_param parameters{};
        ::sched_setscheduler(0, SCHED_IDLE, &parameters);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // also when this program crashes
#endif
    });
}

void kill(QProcess& process) {
    process.kill();
    process.waitForFinished(KillWait);
}

/// Reads the output until the program ends. False when it was killed.
bool readAll(QProcess& process, QByteArray& output, const std::function<bool()>& mustStop) {
    while (!process.waitForFinished(WaitSlice) && process.state() != QProcess::NotRunning) {
        output += process.readAllStandardOutput();
        if (mustStop() || output.size() > MostOutput) {
            kill(process);
            return false;
        }
    }
    output += process.readAllStandardOutput();
    return true;
}

} // namespace

FactsAnswer askForFacts(const FactsRequest& request, const std::function<bool()>& mustStop) {
    const auto program = textFromPath(request.program);
    const auto mainFile = textFromUtf8(std::string_view(request.mainFile));
    const auto includeFolder = textFromPath(request.includeFolder);
    FactsAnswer answer;
    if (!program || !mainFile || !includeFolder || mustStop()) {
        return answer;
    }
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("NES_INCLUDE"), *includeFolder);
    QProcess process;
    process.setProcessEnvironment(environment);
    prepareChild(process);
    process.start(*program, {QStringLiteral("--input"), *mainFile}, QIODevice::ReadOnly);
    const QDeadlineTimer deadline(request.limit);
    const auto mustEnd = [&] {
        const bool isStopped = mustStop();
        answer.tookTooLong = !isStopped && deadline.hasExpired();
        return isStopped || answer.tookTooLong;
    };
    QByteArray output;
    if (process.waitForStarted(-1) && readAll(process, output, mustEnd) &&
        process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 && !mustStop()) {
        answer.facts = readFacts({output.constData(), static_cast<std::size_t>(output.size())});
    }
    return answer;
}

} // namespace kestrel
