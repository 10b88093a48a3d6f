// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/ColorEntry.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace kestrel {

/// An ordered list of colours, shared by all views that show it: each shows changes made by the
/// others when it draws again.
class PaletteProtocol {
public:
    PaletteProtocol() = default;
    PaletteProtocol(const PaletteProtocol&) = delete;
    PaletteProtocol& operator=(const PaletteProtocol&) = delete;
    virtual ~PaletteProtocol() = default;

    /// How many entries there are.
    virtual std::size_t count() const = 0;

    /// The entry at `index`, which is below count(); black ($0F) for any other.
    virtual ColorEntry entry(std::size_t index) const = 0;

    /// Replaces one entry. False, without a change, when there is none at `index` or the palette
    /// cannot be changed.
    virtual bool setEntry(std::size_t index, const ColorEntry& entry) = 0;
};

/// The palettes of a file or a selector, in order.
using Palettes = std::vector<std::shared_ptr<PaletteProtocol>>;

} // namespace kestrel
