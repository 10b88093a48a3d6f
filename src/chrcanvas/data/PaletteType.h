// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// The kinds of palette file that are known.
enum class PaletteType {
    nes,
};

} // namespace kestrel
