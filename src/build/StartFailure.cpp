// SPDX-License-Identifier: MIT
#include "build/StartFailure.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <unistd.h>

namespace kestrel {

namespace {

/// The kernel looks at no more of a script's first line.
constexpr qint64 LongestFirstLine = 256;

/// The program that a script's first line names; empty for anything else.
QByteArray interpreterOf(const QString& program) {
    QFile file(program);
    if (!QFileInfo(program).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray line = file.read(LongestFirstLine).split('\n').constFirst();
    if (!line.startsWith("#!")) {
        return {};
    }
    // As the kernel does: only blanks and tabs separate, so a carriage return belongs to the name.
    line = line.sliced(2).replace('\t', ' ');
    qsizetype begin = 0;
    while (begin < line.size() && line.at(begin) == ' ') {
        ++begin;
    }
    return line.sliced(begin).split(' ').constFirst();
}

bool canBeStarted(const char* program) {
    return ::access(program, X_OK) == 0;
}

} // namespace

std::string reasonOf(const QProcess& process) {
    // Qt's text names the failed call first.
    const QString text = process.errorString();
    const qsizetype colon = text.lastIndexOf(QLatin1String(": "));
    std::string reason = (colon < 0 ? text : text.mid(colon + 2)).toStdString();
    // The system says the same of a script and of the program that is to read it.
    if (canBeStarted(QFile::encodeName(process.program()).constData())) {
        const QByteArray interpreter = interpreterOf(process.program());
        if (!interpreter.isEmpty() && !canBeStarted(interpreter.constData())) {
            if (interpreter.endsWith('\r')) {
                return "its first line ends with CR LF, which a script's must not: " + reason;
            }
            return "its first line names " + interpreter.toStdString() + ": " + reason;
        }
    }
    return reason;
}

} // namespace kestrel
