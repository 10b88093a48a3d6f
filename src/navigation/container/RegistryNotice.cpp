// SPDX-License-Identifier: MIT
#include "navigation/container/RegistryNotice.h"

#include "model/Paths.h"
#include "model/ProjectRegistry.h"

#include <QCoreApplication>

namespace kestrel {

QString registryNotice() {
    const auto problem = registryProblem();
    if (!problem) {
        return {};
    }
    return QCoreApplication::translate(
               "RegistryNotice",
               "The list of projects could not be read: %1 (%2).\n\n"
               "Repair that file or move it away, then start Kestrel again. Until "
               "then File > Open Project shows projects, but they are not kept "
               "in the list.")
        .arg(QString::fromStdString(pathText(registryLocation())),
             QString::fromStdString(*problem));
}

} // namespace kestrel
