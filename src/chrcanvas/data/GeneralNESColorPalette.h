// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"

namespace kestrel {

/// All 64 master colours of the NES in index order. Cannot be changed.
class GeneralNESColorPalette : public PaletteProtocol {
public:
    std::size_t count() const override;
    ColorEntry entry(std::size_t index) const override;
    bool setEntry(std::size_t index, const ColorEntry& entry) override;
};

} // namespace kestrel
