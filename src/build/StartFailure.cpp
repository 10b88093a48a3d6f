// SPDX-License-Identifier: MIT
#include "build/StartFailure.h"

#include <QFile>
#include <QProcess>

#include <unistd.h>

namespace kestrel {

namespace {

/// The kernel looks at no more of a script's first line.
constexpr qint64 LongestFirstLine = 256;

/// The program that a script's first line names; empty for anything else.
QByteArray interpreterOf(const QString& program) {
    QFile file(program);
    if (!file.open(QIODevice::ReadOnly) || file.isSequential()) {
        return {};
    }
    const QByteArray line = file.read(LongestFirstLine).split('\n').constFirst();
    return line.startsWith("#!") ? line.sliced(2).trimmed().split(' ').constFirst() : QByteArray();
}

bool canBeStarted(const char* program) {
    return ::access(program, X_OK) == 0;
}

} // namespace

std::string reasonOf(const QProcess& process) {
    // Qt's text names the failed call first.
    const QString text = process.errorString();
    const qsizetype colon = text.lastIndexOf(QLatin1String(": "));
    const std::string reason = (colon < 0 ? text : text.mid(colon + 2)).toStdString();
    // The system says the same of a script and of the program that is to read it.
    if (canBeStarted(QFile::encodeName(process.program()).constData())) {
        const QByteArray interpreter = interpreterOf(process.program());
        if (!interpreter.isEmpty() && !canBeStarted(interpreter.constData())) {
            return "its first line names " + interpreter.toStdString() + ": " + reason;
        }
    }
    return reason;
}

} // namespace kestrel
