// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"

#include <cstddef>
#include <memory>

namespace kestrel {

/// One entry of a palette before and after an edit.
struct ColorChange {
    std::shared_ptr<PaletteProtocol> palette;
    std::size_t index = 0;
    ColorEntry before;
    ColorEntry after;
};

} // namespace kestrel
