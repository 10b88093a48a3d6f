// SPDX-License-Identifier: MIT
#include "chrcanvas/data/GeneralNESColorPalette.h"

#include "chrcanvas/data/MasterColors.h"

#include <cstdint>

namespace kestrel {

std::size_t GeneralNESColorPalette::count() const {
    return MasterColorCount;
}

ColorEntry GeneralNESColorPalette::entry(std::size_t index) const {
    constexpr std::uint8_t CanonicalBlack = 0x0F;
    return masterColor(index < MasterColorCount ? static_cast<std::uint8_t>(index)
                                                : CanonicalBlack);
}

bool GeneralNESColorPalette::setEntry(std::size_t /*index*/, const ColorEntry& /*entry*/) {
    return false;
}

} // namespace kestrel
