// SPDX-License-Identifier: MIT
#include "build/StartFailure.h"

#include <QProcess>

namespace kestrel {

std::string reasonOf(const QProcess& process) {
    // Qt's text names the failed call first.
    const QString text = process.errorString();
    const qsizetype colon = text.lastIndexOf(QLatin1String(": "));
    return (colon < 0 ? text : text.mid(colon + 2)).toStdString();
}

} // namespace kestrel
