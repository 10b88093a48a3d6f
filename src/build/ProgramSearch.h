// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace kestrel {

/// Where games and emulators are installed that PATH need not name.
QStringList gameFolders();

/// The path of the program `name`, an absolute path or a name that is looked for in the folders of
/// PATH and then in `more`; empty when there is none that may be executed.
QString findProgram(const QString& name, const QStringList& more = gameFolders());

} // namespace kestrel
