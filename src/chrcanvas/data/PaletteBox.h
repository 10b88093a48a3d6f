// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// A box of a selector: the number of its palette, and its own number within that.
struct PaletteBox {
    int number = 0;
    int box = 0;

    bool operator==(const PaletteBox&) const = default;
};

} // namespace kestrel
