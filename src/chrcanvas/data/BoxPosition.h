// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// The column and the row of a box in a selector's grid, from 0.
struct BoxPosition {
    int x = 0;
    int y = 0;

    bool operator==(const BoxPosition&) const = default;
};

} // namespace kestrel
