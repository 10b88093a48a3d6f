// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Cursor.h"

#include <cstdint>
#include <string>

namespace nesasm {

/// A number as it is written: decimal, $ hexadecimal, % binary, or a character between quotes.
struct Number {
    enum class Problem : std::uint8_t { none, noBinaryDigit, noCharacter, strangeLetter, tooLarge };

    std::uint32_t value = 0;
    Cursor begin;
    Cursor end; ///< after the number; with a problem, where reading stopped
    Problem problem = Problem::none;
    bool isOdd = false; ///< a $ without a digit: it counts as 0, with what is written after it

    bool isFine() const { return problem == Problem::none; }
    /// Where the problem stands, and what it is.
    Cursor problemPlace() const { return problem == Problem::strangeLetter ? end : begin; }
    std::string problemText() const;
};

/// True when a number begins with `c`.
constexpr bool startsNumber(char c) {
    return isDigit(c) || c == '$' || c == '%' || c == '\'';
}

/// Reads the number that begins at `begin`.
Number readNumber(Cursor begin);

} // namespace nesasm
