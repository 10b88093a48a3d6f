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

/// Where what stands at `begin` of a line ends when names in it are none: a text in double quotes,
/// a character in single ones, a comment. `begin` itself when it is something else.
inline std::size_t endOfOther(std::string_view line, std::size_t begin) {
    if (line[begin] == ';') {
        return line.size();
    }
    if (line[begin] == '\'') {
        return begin + (line.size() - begin > 2 && line[begin + 2] == '\'' ? 3 : 1);
    }
    if (line[begin] != '"') {
        return begin;
    }
    for (std::size_t i = begin + 1; i < line.size(); ++i) {
        if (line[i] == '"') {
            return i + 1;
        }
        i += line.substr(i).starts_with("\\\"") ? 1 : 0;
    }
    return line.size();
}

/// Calls `use` with each name, and each word like one, of a line: outside of its comment and of
/// texts in quotes. Numbers after $ are none.
template<typename Use> void forEachWord(std::string_view line, const Use& use) {
    for (std::size_t i = 0; i < line.size();) {
        if (!isNameByte(line[i])) {
            const std::size_t end = endOfOther(line, i);
            i = end == i ? i + 1 : end;
            continue;
        }
        const std::size_t begin = i;
        while (i < line.size() && isNameByte(line[i])) {
            ++i;
        }
        if (begin == 0 || line[begin - 1] != '$') {
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
