// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kestrel {

/// Calls `use` with each line of a source text, without its end: a line feed, a carriage return, or
/// both.
template<typename Use> void forEachLine(std::string_view text, const Use& use) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        use(text.substr(0, end));
        const bool isPair = text.substr(end).starts_with("\r\n");
        text.remove_prefix(std::min(end + (isPair ? 2 : 1), text.size()));
    }
}

/// Whether a byte can be in a name of a program.
constexpr bool isNameByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.';
}

/// Calls `use` with each name, and each word like one, of a line: outside of its comment and of
/// texts in quotes. Numbers after $ and % are none.
template<typename Use> void forEachWord(std::string_view line, const Use& use) {
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size() && (isQuoted || line[i] != ';');) {
        if (line[i] == '"') {
            isQuoted = !isQuoted;
        }
        if (isQuoted || !isNameByte(line[i])) {
            ++i;
            continue;
        }
        const std::size_t begin = i;
        while (i < line.size() && isNameByte(line[i])) {
            ++i;
        }
        if (begin == 0 || (line[begin - 1] != '$' && line[begin - 1] != '%')) {
            use(line.substr(begin, i - begin));
        }
    }
}

/// The Unicode characters of a text; a byte that is part of none counts as one.
inline int charactersIn(std::string_view text) {
    int count = 0;
    for (std::size_t i = 0; i < text.size(); ++count) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
        std::size_t end = i + 1;
        while (end < text.size() && end < i + length &&
               (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
            ++end;
        }
        i = end == i + length ? end : i + 1;
    }
    return count;
}

} // namespace kestrel
