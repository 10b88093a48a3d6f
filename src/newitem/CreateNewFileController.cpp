// SPDX-License-Identifier: MIT
#include "newitem/CreateNewFileController.h"

#include "icons/Icons.h"

#include <utility>

namespace kestrel {

CreateNewFileController::CreateNewFileController(std::string path)
    : NewItemController(std::move(path), {{FileType::text, QStringLiteral("NES Text Assembly"),
                                           iconNamed(u"createNewASMFileIcon")},
                                          {FileType::palette, QStringLiteral("Palette Data"),
                                           iconNamed(u"createNewPaletteIcon")},
                                          {FileType::graphics, QStringLiteral("Graphics Data"),
                                           iconNamed(u"createNewGraphicsIcon")}}) {}

QString CreateNewFileController::windowTitle() const {
    return QStringLiteral("New File");
}

} // namespace kestrel
