// SPDX-License-Identifier: MIT
#pragma once

#include "model/FileType.h"

#include <QIcon>
#include <QString>

namespace kestrel {

/// One kind of item that can be created, as the new-item wizard offers it.
struct NewItemType {
    FileType fileType = FileType::unknown; ///< the kind of node that will be made
    QString text;                          ///< the title below the icon
    QIcon icon;                            ///< null when there is none
};

} // namespace kestrel
