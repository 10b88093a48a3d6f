// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// A box of a selector by its place: column and row of the grid, from 0.
struct BoxPosition {
    int x = 0;
    int y = 0;

    bool operator==(const BoxPosition&) const = default;
};

} // namespace kestrel
