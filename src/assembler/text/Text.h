// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace nesasm {

/// `bytes` as text that can be shown: valid UTF-8 without control characters. Every byte that is
/// not part of valid UTF-8 and every control character becomes U+FFFD; tabs stay when `keepTabs` is
/// set.
std::string printable(std::string_view bytes, bool keepTabs = false);

/// The number of bytes of the character that `bytes` (not empty) begins with: 1 for a byte that is
/// not part of valid UTF-8.
std::size_t characterLength(std::string_view bytes);

/// The number of characters in `bytes`, as characterLength counts them.
std::size_t countCharacters(std::string_view bytes);

/// True when both texts are the same but for the case of ASCII letters.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

/// The path with everything before its last separator ('/' only), "" when there is none.
std::string folderOf(std::string_view path);

/// `name` below `folder`, with one separator; `name` alone for an empty folder.
std::string joinPath(std::string_view folder, std::string_view name);

/// The text between single quotes.
std::string quoted(std::string_view text);

/// "1 error", "3 errors": `count` and the noun with its plural ending.
std::string counted(std::size_t count, std::string_view noun);

/// `value` as "$" and at least `digits` hexadecimal digits.
std::string hexText(unsigned value, unsigned digits = 4);

/// `value` in decimal and, when it has more than one digit and no sign, also in hexadecimal.
std::string valueText(std::int32_t value);

} // namespace nesasm
