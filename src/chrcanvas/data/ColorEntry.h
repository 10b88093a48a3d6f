// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/RgbColor.h"

#include <cstdint>

namespace kestrel {

/// One entry of a palette: the byte of the file, and the colour that it stands for.
struct ColorEntry {
    std::uint8_t key = 0;
    RgbColor color;

    bool operator==(const ColorEntry&) const = default;
};

} // namespace kestrel
