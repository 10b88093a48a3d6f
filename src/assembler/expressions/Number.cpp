// SPDX-License-Identifier: MIT
#include "assembler/expressions/Number.h"

#include "assembler/text/FoundText.h"

#include <cstdint>

namespace nesasm {

namespace {

using Problem = Number::Problem;

constexpr std::uint64_t LargestLiteral = 0xFFFFFFFFU;

constexpr bool isBinaryDigit(char c) {
    return c == '0' || c == '1';
}

bool endsOddNumber(char c) {
    switch (c) {
    case ',':
    case ')':
    case ']':
    case '+':
    case '-':
    case '*':
    case '/':
    case '&':
    case '|':
    case '^':
    case '<':
    case '>':
    case '=':
    case '!':
        return true;
    default:
        return isBlank(c) || endsStatement(c);
    }
}

/// What to do about a letter after the digits of a number.
std::string letterRemedy(char mark, char letter) {
    if (mark == '%') {
        return "; a binary number has only the digits 0 and 1";
    }
    if (mark == '$') {
        return "; a hexadecimal number has only the digits 0 to 9 and A to F";
    }
    if (lowered(letter) == 'b') {
        return "; a binary number begins with %, as in %1010";
    }
    const bool isHexadecimal =
        lowered(letter) == 'x' || lowered(letter) == 'h' || hexDigit(letter) >= 0;
    return isHexadecimal ? "; a hexadecimal number begins with $, as in $1F" : "";
}

/// Reads the digits at `p`.
Number readDigits(unsigned base, Cursor begin, Cursor p) {
    std::uint64_t value = 0;
    bool tooLarge = false;
    for (;; ++p) {
        // Underscores may stand between the digits of a binary number.
        if (base == 2 && *p == '_') {
            Cursor after = p;
            while (*after == '_') {
                ++after;
            }
            if (!isBinaryDigit(*after)) {
                break;
            }
            p = after;
        }
        const int digit = hexDigit(*p);
        if (digit < 0 || static_cast<unsigned>(digit) >= base) {
            break;
        }
        value = value * base + static_cast<unsigned>(digit);
        tooLarge = tooLarge || value > LargestLiteral;
        if (tooLarge) {
            value = 0;
        }
    }
    const Problem problem = isWordPart(*p) ? Problem::strangeLetter
                            : tooLarge     ? Problem::tooLarge
                                           : Problem::none;
    return {static_cast<std::uint32_t>(value), begin, p, problem, false};
}

Number readHexadecimal(Cursor begin) {
    Cursor p = begin + 1;
    if (hexDigit(*p) >= 0) {
        return readDigits(16, begin, p);
    }
    while (!endsOddNumber(*p)) {
        ++p;
    }
    return {0, begin, p, Problem::none, true};
}

Number readCharacter(Cursor begin) {
    if (isLineEnd(begin[1]) || begin[2] != '\'') {
        return {0, begin, begin, Problem::noCharacter, false};
    }
    return {static_cast<unsigned char>(begin[1]), begin, begin + 3, Problem::none, false};
}

} // namespace

std::string Number::problemText() const {
    switch (problem) {
    case Problem::none:
        break;
    case Problem::noBinaryDigit:
        return "a binary number needs digits 0 or 1 after its %";
    case Problem::noCharacter:
        return "expected one character between quotes, as in 'A'; strings are written in double "
               "quotes";
    case Problem::strangeLetter:
        return foundText(end) + " cannot be part of this number" + letterRemedy(*begin, *end);
    case Problem::tooLarge:
        return "the number does not fit into 32 bits";
    }
    return {};
}

Number readNumber(Cursor begin) {
    switch (*begin) {
    case '$':
        return readHexadecimal(begin);
    case '%':
        return isBinaryDigit(begin[1]) ? readDigits(2, begin, begin + 1)
                                       : Number{0, begin, begin + 1, Problem::noBinaryDigit, false};
    case '\'':
        return readCharacter(begin);
    default:
        return readDigits(10, begin, begin);
    }
}

} // namespace nesasm
