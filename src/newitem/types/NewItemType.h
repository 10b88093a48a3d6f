// SPDX-License-Identifier: MIT
#pragma once

#include "model/FileType.h"

#include <QIcon>
#include <QString>

namespace kestrel {

/// One kind of item that the new-item wizard offers.
struct NewItemType {
    FileType fileType = FileType::unknown; ///< the kind of the new node
    QString text;                          ///< the title below the icon
    QIcon icon;                            ///< may be null
};

} // namespace kestrel
