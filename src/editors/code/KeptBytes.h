// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace kestrel {

// A byte of a UTF-8 file that is part of no character is carried through the text as a lone low
// surrogate, U+DC80 to U+DCFF for the bytes 0x80 to 0xFF, which no valid text contains. An encoded
// surrogate is no character either, so every text has one way to be written.

/// What a file in UTF-8 holds besides ASCII.
struct Utf8Content {
    std::size_t characters = 0; ///< each of several bytes
    std::size_t keptBytes = 0;  ///< part of no character
};

Utf8Content contentOfUtf8(std::string_view bytes);

/// The text of `bytes`, which need not be valid.
QString textWithKeptBytes(std::string_view bytes);

/// The bytes of such a text.
std::string bytesWithKeptBytes(QStringView text);

/// Whether a surrogate without its partner stands for a byte.
constexpr bool isKeptByte(char16_t loneSurrogate) {
    return loneSurrogate >= 0xdc80 && loneSurrogate <= 0xdcff;
}

/// How many bytes a text carries that are part of no character.
qsizetype keptByteCount(QStringView text);

} // namespace kestrel
