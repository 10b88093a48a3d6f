// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileData.h"

#include <cstddef>

namespace kestrel {

/// One tile before and after an edit.
struct TileChange {
    std::size_t number = 0;
    TileBytes before{};
    TileBytes after{};
};

} // namespace kestrel
