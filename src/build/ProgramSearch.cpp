// SPDX-License-Identifier: MIT
#include "build/ProgramSearch.h"

#include <QStandardPaths>

namespace kestrel {

QStringList gameFolders() {
    return {QStringLiteral("/usr/local/games"), QStringLiteral("/usr/games")};
}

QString findProgram(const QString& name, const QStringList& more) {
    const QString found = QStandardPaths::findExecutable(name);
    return found.isEmpty() ? QStandardPaths::findExecutable(name, more) : found;
}

} // namespace kestrel
