// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace kestrel {

/// A colour as a screen shows it.
struct RgbColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const RgbColor&) const = default;
};

} // namespace kestrel
