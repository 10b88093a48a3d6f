// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/BoxPosition.h"
#include "chrcanvas/data/PaletteBox.h"

namespace kestrel {

class BoxSelectorProtocol;

/// Receives the user's choice of a box in a selector.
class BoxSelectorDelegate {
public:
    BoxSelectorDelegate() = default;
    BoxSelectorDelegate(const BoxSelectorDelegate&) = delete;
    BoxSelectorDelegate& operator=(const BoxSelectorDelegate&) = delete;
    virtual ~BoxSelectorDelegate() = default;

    /// The user chose a box by mouse or keyboard. The selector has moved its own mark before.
    virtual void selected(BoxSelectorProtocol& boxSelector, PaletteBox palette,
                          BoxPosition boxSelected) = 0;
};

} // namespace kestrel
