// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace nesasm {

/// The classes that a byte of source text can belong to, as bits; see CharacterClasses.
enum CharacterClass : std::uint8_t {
    blankClass = 1,
    lineEndClass = 2,
    statementEndClass = 4, ///< a line end or the comment mark
    wordStartClass = 8,
    wordPartClass = 16,
    digitClass = 32
};

constexpr std::array<std::uint8_t, 256> makeCharacterClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (const char c : {' ', '\t', '\v', '\f'}) {
        classes[static_cast<unsigned char>(c)] = blankClass;
    }
    for (const char c : {'\n', '\r'}) {
        classes[static_cast<unsigned char>(c)] = lineEndClass | statementEndClass;
    }
    classes[static_cast<unsigned char>(';')] = statementEndClass;
    for (unsigned c = 0; c < 26; ++c) {
        classes['a' + c] = classes['A' + c] = wordStartClass | wordPartClass;
    }
    classes['_'] = wordStartClass | wordPartClass;
    classes['.'] = wordPartClass;
    for (unsigned c = '0'; c <= '9'; ++c) {
        classes[c] = wordPartClass | digitClass;
    }
    return classes;
}

inline constexpr std::array<std::uint8_t, 256> CharacterClasses = makeCharacterClasses();

constexpr bool isOfClass(char c, unsigned classes) {
    return (CharacterClasses[static_cast<unsigned char>(c)] & classes) != 0;
}
constexpr bool isBlank(char c) {
    return isOfClass(c, blankClass);
}
constexpr bool isLineEnd(char c) {
    return isOfClass(c, lineEndClass);
}
constexpr bool endsStatement(char c) {
    return isOfClass(c, statementEndClass);
}
constexpr bool isWordStart(char c) {
    return isOfClass(c, wordStartClass);
}
constexpr bool isWordPart(char c) {
    return isOfClass(c, wordPartClass);
}
constexpr bool isDigit(char c) {
    return isOfClass(c, digitClass);
}

/// A letter in lower case or in capitals; other bytes stay as they are.
constexpr char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

constexpr char raised(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c & ~0x20) : c;
}

/// The value of a hexadecimal digit, -1 for any other byte.
constexpr int hexDigit(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char l = lowered(c);
    return l >= 'a' && l <= 'f' ? l - 'a' + 10 : -1;
}

} // namespace nesasm
