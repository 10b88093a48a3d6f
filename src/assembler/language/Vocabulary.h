// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/InstructionTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace nesasm {

/// What a directive means to those who only look at its word: to a name before it, or to lines that
/// are passed over.
enum class DirectiveRole : std::uint8_t {
    ordinary,
    conditional, ///< counts in a branch that is not taken, too
    equ,         ///< gives the name before it a value
    rs,          ///< gives the name before it an address
    macro,
    endMacro,
    repeat,
    endRepeat,
    late ///< came later to the language: older sources may have local labels of this name
};

/// One word for a directive.
struct DirectiveWord {
    std::string_view word; ///< without its dot, in lower case
    bool worksWithoutDot = false;
    DirectiveRole role = DirectiveRole::ordinary;
};

/// What a word means to the assembler; letter case does not matter.
struct alignas(std::uint32_t) Keyword { // handed over as one word
    enum class Kind : std::uint8_t { none, directive, instruction };

    Kind kind = Kind::none;
    std::uint8_t index = 0; ///< in the words of the directives, or in InstructionTable
    DirectiveRole role = DirectiveRole::ordinary; ///< of a directive

    bool isDirective() const { return kind == Kind::directive; }
    bool isInstruction() const { return kind == Kind::instruction; }
    bool isDirective(DirectiveRole which) const { return isDirective() && role == which; }
    /// True when this late directive is a label after all: it stands in the first column, and
    /// `next`, what follows it, is no quote, which its operand begins with.
    bool isLateLabel(bool isFirstColumn, char next) const {
        return role == DirectiveRole::late && isFirstColumn && next != '"';
    }
};

/// Knows the words that begin statements: directives and instructions, hashed by their letters.
class Vocabulary {
public:
    static constexpr std::size_t LongestWord = 7;

    /// `directives` must outlive this.
    constexpr explicit Vocabulary(std::span<const DirectiveWord> directives)
        : m_directives(directives) {
        for (std::size_t i = 0; i < directives.size(); ++i) {
            put({keyOf(directives[i].word),
                 {Keyword::Kind::directive, static_cast<std::uint8_t>(i), directives[i].role},
                 true,
                 directives[i].worksWithoutDot});
        }
        for (std::size_t i = 0; i < InstructionTable.size(); ++i) {
            put({keyOf(InstructionTable[i].name),
                 {Keyword::Kind::instruction, static_cast<std::uint8_t>(i)},
                 false,
                 true});
        }
    }

    /// The meaning of a word as it stands in the source, with its leading dot if it has one. Some
    /// directives are known without the dot, instructions never have one.
    Keyword find(std::string_view word) const;

    std::span<const DirectiveWord> directives() const { return m_directives; }

private:
    static constexpr std::size_t SlotCount = 512;

    struct Entry {
        std::uint64_t key = 0;
        Keyword keyword;
        bool worksWithDot = false;
        bool worksWithoutDot = false;
    };

    /// The word's letters in lower case, one a byte. Distinct words of at most seven word
    /// characters have distinct keys: setting bit 5 changes no digit, and no other character
    /// becomes a letter.
    static constexpr std::uint64_t keyOf(std::string_view word) {
        std::uint64_t key = 0;
        for (const char c : word) {
            key = (key << 8U) | (static_cast<unsigned char>(c) | 0x20U);
        }
        return key;
    }
    static constexpr std::size_t slotOf(std::uint64_t key) {
        return (key * 0x9E3779B97F4A7C15U) >> 55U;
    }
    constexpr void put(const Entry& entry) {
        std::size_t slot = slotOf(entry.key);
        while (m_entries[slot].key != 0) {
            slot = (slot + 1) % SlotCount;
        }
        m_entries[slot] = entry;
    }

    std::span<const DirectiveWord> m_directives;
    std::array<Entry, SlotCount> m_entries{};
};

} // namespace nesasm
