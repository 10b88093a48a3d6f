// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"

#include <array>
#include <memory>
#include <string_view>

namespace kestrel {

/// One palette of the NES: four colours out of the master colours.
class NESPalette : public PaletteProtocol {
public:
    static constexpr std::size_t ColorCount = 4;

    /// Four entries of index 0.
    NESPalette();

    /// A palette of exactly four bytes; nothing for any other number. A byte counts as its low 6
    /// bits for display but is kept whole.
    static std::shared_ptr<NESPalette> fromData(std::string_view data);

    std::size_t count() const override;
    ColorEntry entry(std::size_t index) const override;
    bool setEntry(std::size_t index, const ColorEntry& entry) override;

private:
    std::array<ColorEntry, ColorCount> m_entries;
};

} // namespace kestrel
