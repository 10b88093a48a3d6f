// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace nesasm {

/// What a byte of source text may be, as bits; see characterClasses.
enum CharacterClass : std::uint8_t {
    kBlank = 1,
    kLineEnd = 2,
    kStatementEnd = 4, ///< a line end or the comment mark
    kWordStart = 8,
    kWordPart = 16,
    kDigit = 32
};

constexpr std::array<std::uint8_t, 256> makeCharacterClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (const char c : {' ', '\t', '\v', '\f'})
        classes[static_cast<unsigned char>(c)] = kBlank;
    for (const char c : {'\n', '\r'})
        classes[static_cast<unsigned char>(c)] = kLineEnd | kStatementEnd;
    classes[static_cast<unsigned char>(';')] = kStatementEnd;
    for (unsigned c = 0; c < 26; ++c)
        classes['a' + c] = classes['A' + c] = kWordStart | kWordPart;
    classes['_'] = kWordStart | kWordPart;
    classes['.'] = kWordPart;
    for (unsigned c = '0'; c <= '9'; ++c)
        classes[c] = kWordPart | kDigit;
    return classes;
}

inline constexpr std::array<std::uint8_t, 256> characterClasses = makeCharacterClasses();

constexpr bool isOfClass(char c, unsigned classes) {
    return (characterClasses[static_cast<unsigned char>(c)] & classes) != 0;
}
constexpr bool isBlank(char c) {
    return isOfClass(c, kBlank);
}
constexpr bool isLineEnd(char c) {
    return isOfClass(c, kLineEnd);
}
constexpr bool endsStatement(char c) {
    return isOfClass(c, kStatementEnd);
}
constexpr bool isWordStart(char c) {
    return isOfClass(c, kWordStart);
}
constexpr bool isWordPart(char c) {
    return isOfClass(c, kWordPart);
}
constexpr bool isDigit(char c) {
    return isOfClass(c, kDigit);
}

/// The letter in lower case; other bytes below $80 stay recognisable as no letters.
constexpr char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

/// The value of a hexadecimal digit, -1 for any other byte.
constexpr int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    const char l = lowered(c);
    return l >= 'a' && l <= 'f' ? l - 'a' + 10 : -1;
}

// All source text ends with a line end, so none of the scanners below needs to know where it stops.

inline const char* skipBlanks(const char* p) {
    while (isBlank(*p))
        ++p;
    return p;
}

/// The end of the word that starts at `p`; a leading dot belongs to it.
inline const char* wordEnd(const char* p) {
    while (isWordPart(*p))
        ++p;
    return p;
}

inline const char* lineEnd(const char* p) {
    while (!isLineEnd(*p))
        ++p;
    return p;
}

/// True where a word can start: a letter, an underscore, or a dot with a word character behind it.
inline bool startsName(const char* p) {
    return isWordStart(*p) || (*p == '.' && (isWordStart(p[1]) || isDigit(p[1])));
}

} // namespace nesasm
