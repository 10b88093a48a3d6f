// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// A box of a selector by its content: the number of its palette, and its own within it.
struct PaletteBox {
    int number = 0;
    int box = 0;

    bool operator==(const PaletteBox&) const = default;
};

} // namespace kestrel
