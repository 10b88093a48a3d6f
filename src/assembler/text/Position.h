// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace nesasm {

/// Identifies the include, macro call or repetition that a line came from; see Origins.
using OriginId = std::uint32_t;
inline constexpr OriginId NoOrigin = 0xFFFFFFFFU;

/// A place in the source. `line` points to the text of the line, which ends at its line end.
struct Position {
    const char* line = nullptr;
    std::uint32_t number = 0; ///< of the line in its file, from 1; 0 for a place that is no line
    std::uint32_t column = 0; ///< in bytes, from 0
    OriginId origin = NoOrigin;
    std::uint32_t order = 0; ///< counts the lines in the order in which they were assembled
};

} // namespace nesasm
