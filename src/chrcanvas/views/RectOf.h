// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/GridRect.h"

#include <QRect>

namespace kestrel {

/// A rectangle of cells or pixels as Qt's own.
inline QRect rectOf(const GridRect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace kestrel
