// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Characters.h"

#include <cstddef>
#include <string_view>

namespace nesasm {

/// A place in a line of source text. Every line ends with a line end, so a cursor that moves by
/// what it sees never leaves the text; it must not be moved beyond the line end.
class Cursor {
public:
    constexpr Cursor() = default;
    constexpr explicit Cursor(const char* place)
        : m_place(place) {}

    /// The byte here, and the one `distance` bytes on.
    constexpr char operator*() const { return *m_place; }
    constexpr char operator[](std::ptrdiff_t distance) const { return m_place[distance]; }

    constexpr bool isBlank() const { return nesasm::isBlank(*m_place); }
    constexpr bool isAtLineEnd() const { return isLineEnd(*m_place); }
    /// At the line's end or at a comment.
    constexpr bool isAtStatementEnd() const { return endsStatement(*m_place); }
    /// At a letter, an underscore, or a dot with a word character after it.
    constexpr bool isAtName() const {
        return isWordStart(*m_place) ||
               (*m_place == '.' && (isWordStart(m_place[1]) || isDigit(m_place[1])));
    }

    constexpr Cursor& operator++() {
        ++m_place;
        return *this;
    }
    constexpr Cursor operator++(int) {
        const Cursor before = *this;
        ++m_place;
        return before;
    }
    constexpr Cursor& operator+=(std::ptrdiff_t distance) {
        m_place += distance;
        return *this;
    }
    constexpr Cursor operator+(std::ptrdiff_t distance) const { return Cursor(m_place + distance); }
    constexpr Cursor operator-(std::ptrdiff_t distance) const { return Cursor(m_place - distance); }
    /// The bytes from `from` to here.
    constexpr std::size_t operator-(Cursor from) const {
        return static_cast<std::size_t>(m_place - from.m_place);
    }
    constexpr bool operator==(const Cursor& other) const = default;

    constexpr Cursor afterBlanks() const {
        Cursor result = *this;
        result.skipBlanks();
        return result;
    }
    constexpr void skipBlanks() {
        while (isBlank()) {
            ++m_place;
        }
    }

    /// The end of the word that begins here; a leading dot belongs to it.
    constexpr Cursor wordEnd() const {
        Cursor end = *this;
        while (isWordPart(*end)) {
            ++end;
        }
        return end;
    }
    /// The word that begins here, empty for none.
    constexpr std::string_view word() const { return upTo(wordEnd()); }

    constexpr Cursor lineEnd() const {
        Cursor end = *this;
        while (!end.isAtLineEnd()) {
            ++end;
        }
        return end;
    }

    constexpr std::string_view upTo(Cursor end) const { return {m_place, end - *this}; }

    constexpr const char* data() const { return m_place; }

private:
    const char* m_place = nullptr;
};

} // namespace nesasm
