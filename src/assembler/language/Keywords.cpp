// SPDX-License-Identifier: MIT
#include "assembler/language/Keywords.h"

#include "assembler/language/InstructionTable.h"
#include "assembler/text/Text.h"

#include <array>

namespace nesasm {

namespace {

constexpr std::size_t kLongestKeyword = 7;
constexpr std::size_t kSlotCount = 512;

/// The word's letters in lower case, one a byte. Distinct words of at most seven word characters
/// have distinct keys: setting bit 5 changes no digit, and no other character becomes a letter.
constexpr std::uint64_t keyOf(std::string_view word) {
    std::uint64_t key = 0;
    for (const char c : word)
        key = (key << 8U) | (static_cast<unsigned char>(c) | 0x20U);
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

constexpr void put(std::array<Entry, kSlotCount>& table, const Entry& entry) {
    std::size_t slot = slotOf(entry.key);
    while (table[slot].key != 0)
        slot = (slot + 1) % kSlotCount;
    table[slot] = entry;
}

constexpr std::array<Entry, kSlotCount> makeTable() {
    std::array<Entry, kSlotCount> table{};
    for (const DirectiveName& row : directiveTable)
        put(table, {keyOf(row.name),
                    {Keyword::Kind::Directive, static_cast<std::uint8_t>(row.directive)},
                    true,
                    row.worksWithoutDot});
    for (std::size_t i = 0; i < instructionTable.size(); ++i)
        put(table, {keyOf(instructionTable[i].name),
                    {Keyword::Kind::Instruction, static_cast<std::uint8_t>(i)},
                    false,
                    true});
    return table;
}

constexpr std::array<Entry, kSlotCount> kTable = makeTable();

} // namespace

Keyword findKeyword(std::string_view word) {
    const bool dotted = word.starts_with('.');
    if (dotted)
        word.remove_prefix(1);
    if (word.empty() || word.size() > kLongestKeyword)
        return {};
    const std::uint64_t key = keyOf(word);
    for (std::size_t slot = slotOf(key); kTable[slot].key != 0; slot = (slot + 1) % kSlotCount) {
        const Entry& entry = kTable[slot];
        if (entry.key == key)
            return (dotted ? entry.worksWithDot : entry.worksWithoutDot) ? entry.keyword
                                                                         : Keyword{};
    }
    return {};
}

bool findFunction(std::string_view word, Function& function) {
    for (const FunctionName& row : functionTable) {
        if (equalsIgnoringCase(row.name, word)) {
            function = row.function;
            return true;
        }
    }
    return false;
}

} // namespace nesasm
