// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// A rectangle of whole cells or whole pixels: its first column and row, and how many it has.
struct GridRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const GridRect&) const = default;
};

} // namespace kestrel
