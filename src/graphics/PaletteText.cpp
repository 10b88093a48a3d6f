// SPDX-License-Identifier: MIT
#include "graphics/PaletteText.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kestrel {

namespace {

constexpr std::string_view Separators = " \t\r\n,";

bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
    const auto lower = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return text.size() >= start.size() && std::equal(start.begin(), start.end(), text.begin(),
                                                     [&](char a, char b) { return a == lower(b); });
}

/// What follows the first of the directives that `text` begins with.
std::string_view afterDirective(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    for (const std::string_view directive : {".db ", ".byte "}) {
        if (startsWithIgnoringCase(text, directive)) {
            return text.substr(directive.size());
        }
    }
    return text;
}

std::optional<std::uint8_t> byteOf(std::string_view word) {
    if (word.starts_with('$')) {
        word.remove_prefix(1);
    } else if (startsWithIgnoringCase(word, "0x")) {
        word.remove_prefix(2);
    } else {
        return std::nullopt;
    }
    if (word.empty() || word.size() > 2) {
        return std::nullopt;
    }
    std::uint8_t value = 0;
    const char* end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, value, 16);
    if (read.ec != std::errc() || read.ptr != end) {
        return std::nullopt;
    }
    return value;
}

} // namespace

std::string paletteText(const PaletteProtocol& palette) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t index = 0; index < palette.count(); ++index) {
        const std::uint8_t key = palette.entry(index).key;
        text += index == 0 ? "$" : ",$";
        text += Digits[key >> 4U];
        text += Digits[key & 0x0FU];
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> paletteBytes(std::string_view text, std::size_t count) {
    std::vector<std::uint8_t> bytes;
    text = text.substr(0, text.find(';'));
    text = afterDirective(text);
    for (std::size_t start = text.find_first_not_of(Separators); start < text.size();
         start = text.find_first_not_of(Separators, start)) {
        const std::size_t end = std::min(text.find_first_of(Separators, start), text.size());
        const auto byte = byteOf(text.substr(start, end - start));
        if (!byte || bytes.size() == count) {
            return std::nullopt;
        }
        bytes.push_back(*byte);
        start = end;
    }
    if (bytes.size() != count) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace kestrel
