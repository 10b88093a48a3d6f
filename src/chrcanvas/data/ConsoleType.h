// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// The consoles whose tile data is known.
enum class ConsoleType {
    nes,
};

} // namespace kestrel
