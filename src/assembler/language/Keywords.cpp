// SPDX-License-Identifier: MIT
#include "assembler/language/Keywords.h"

#include "assembler/language/InstructionTable.h"
#include "assembler/text/Text.h"

#include <array>

namespace nesasm {

namespace {

constexpr std::size_t LongestKeyword = 7;
constexpr std::size_t SlotCount = 512;

/// The word's letters in lower case, one a byte. Distinct words of at most seven word characters
/// have distinct keys: setting bit 5 changes no digit, and no other character becomes a letter.
constexpr std::uint64_t keyOf(std::string_view word) {
    std::uint64_t key = 0;
    for (const char c : word) {
        key = (key << 8U) | (static_cast<unsigned char>(c) | 0x20U);
    }
    return key;
}

constexpr std::size_t slotOf(std::uint64_t key) {
    return (key * 0x9E3779B97F4A7C15U) >> 55U;
}

struct Entry {
    std::uint64_t key = 0;
    Keyword keyword;
    bool worksWithDot = false;
    bool worksWithoutDot = false;
};

constexpr void put(std::array<Entry, SlotCount>& table, const Entry& entry) {
    std::size_t slot = slotOf(entry.key);
    while (table[slot].key != 0) {
        slot = (slot + 1) % SlotCount;
    }
    table[slot] = entry;
}

constexpr std::array<Entry, SlotCount> makeTable() {
    std::array<Entry, SlotCount> table{};
    for (const DirectiveName& row : DirectiveTable) {
        put(table, {keyOf(row.name),
                    {Keyword::Kind::directive, static_cast<std::uint8_t>(row.directive)},
                    true,
                    row.worksWithoutDot});
    }
    for (std::size_t i = 0; i < InstructionTable.size(); ++i) {
        put(table, {keyOf(InstructionTable[i].name),
                    {Keyword::Kind::instruction, static_cast<std::uint8_t>(i)},
                    false,
                    true});
    }
    return table;
}

constexpr std::array<Entry, SlotCount> Table = makeTable();

} // namespace

Keyword findKeyword(std::string_view word) {
    const bool dotted = word.starts_with('.');
    if (dotted) {
        word.remove_prefix(1);
    }
    if (word.empty() || word.size() > LongestKeyword) {
        return {};
    }
    const std::uint64_t key = keyOf(word);
    for (std::size_t slot = slotOf(key); Table[slot].key != 0; slot = (slot + 1) % SlotCount) {
        const Entry& entry = Table[slot];
        if (entry.key == key) {
            return (dotted ? entry.worksWithDot : entry.worksWithoutDot) ? entry.keyword
                                                                         : Keyword{};
        }
    }
    return {};
}

std::optional<Function> findFunction(std::string_view word) {
    for (const FunctionName& row : FunctionTable) {
        if (equalsIgnoringCase(row.name, word)) {
            return row.function;
        }
    }
    return std::nullopt;
}

} // namespace nesasm
