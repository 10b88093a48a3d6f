// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/Origins.h"
#include "assembler/text/Position.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace nesasm {

/// The column of a place, from 1, in characters; a tab is one.
std::size_t columnOf(const Position& position);

/// The column behind the word, number or quoted text that begins at a place, perhaps with a #;
/// nothing when none does.
std::optional<std::size_t> endColumnOf(const Position& position);

/// The part of a line that is shown: the whole line, or of a long one the neighbourhood of a place.
struct Excerpt {
    std::string_view text;
    std::size_t column = 0; ///< of the place, in bytes of the text
    bool isCutAtStart = false;
};

/// Of a place in a line.
Excerpt excerptAt(const Position& position);

/// One of the includes, calls and repetitions that led to a line, or a number of them that are left
/// out.
struct Step {
    const Origin* origin = nullptr;
    std::size_t omitted = 0;
};

/// The steps that led to a place, innermost first; of a long way only both ends.
std::vector<Step> wayTo(const Position& position, const Origins& origins);

} // namespace nesasm
