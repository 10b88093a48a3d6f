// SPDX-License-Identifier: MIT
#include "newitem/CreateNewProjectController.h"

#include "icons/Icons.h"

#include <utility>

namespace kestrel {

CreateNewProjectController::CreateNewProjectController(std::string path)
    : NewItemController(std::move(path),
                        {{FileType::project, QStringLiteral("NES"), iconNamed(u"consoleNES")}}) {}

QString CreateNewProjectController::windowTitle() const {
    return QStringLiteral("New Project");
}

} // namespace kestrel
