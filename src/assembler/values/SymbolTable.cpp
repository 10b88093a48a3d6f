// SPDX-License-Identifier: MIT
#include "assembler/values/SymbolTable.h"

#include <cstring>
#include <utility>

namespace nesasm {

namespace {

/// Small, since most programs are, and clearing memory is a good part of assembling a small one.
constexpr std::size_t FirstSlotCount = 512;
constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15U;

std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * Factor;
    return hash ^ (hash >> 32U);
}

std::uint64_t wordAt(const char* text, std::size_t length) {
    std::uint64_t word = 0;
    std::memcpy(&word, text, length);
    return word;
}

std::uint32_t hashOf(std::string_view name, SymbolId scope) {
    std::uint64_t hash = (std::uint64_t{scope} << 32U) ^ name.size();
    const char* p = name.data();
    std::size_t left = name.size();
    for (; left >= 8; p += 8, left -= 8) {
        hash = mixed(hash, wordAt(p, 8));
    }
    if (left >= 4) {
        hash = mixed(hash, wordAt(p, 4) | (wordAt(p + left - 4, 4) << 32U));
    } else if (left != 0) {
        std::uint64_t word = 0;
        for (std::size_t i = 0; i < left; ++i) {
            word = (word << 8U) | static_cast<unsigned char>(p[i]);
        }
        hash = mixed(hash, word);
    }
    return static_cast<std::uint32_t>(mixed(hash, 0) >> 16U);
}

SymbolId scopeOf(std::string_view name, SymbolId scope) {
    return name.starts_with('.') ? scope : 0;
}

} // namespace

SymbolTable::SymbolTable()
    : m_symbols(1)
    , m_slots(FirstSlotCount) {}

std::size_t SymbolTable::slotOf(std::string_view name, SymbolId scope, std::uint32_t hash) const {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = hash & mask;
    for (;; index = (index + 1) & mask) {
        const Slot& slot = m_slots[index];
        if (slot.id == 0) {
            return index;
        }
        if (slot.hash != hash) {
            continue;
        }
        const Symbol& symbol = m_symbols[slot.id];
        if (symbol.scope == scope && symbol.name == name) {
            return index;
        }
    }
}

SymbolId SymbolTable::intern(std::string_view name, SymbolId scope, Arena* keeper) {
    scope = scopeOf(name, scope);
    const std::uint32_t hash = hashOf(name, scope);
    const std::size_t index = slotOf(name, scope, hash);
    if (m_slots[index].id != 0) {
        return m_slots[index].id;
    }
    const auto id = static_cast<SymbolId>(m_symbols.size());
    m_slots[index] = {hash, id};
    Symbol& symbol = m_symbols.emplace_back();
    symbol.name = keeper != nullptr ? keeper->keepLine(name) : name;
    symbol.scope = scope;
    if (m_symbols.size() * 2 > m_slots.size()) {
        grow();
    }
    return id;
}

SymbolId SymbolTable::find(std::string_view name, SymbolId scope) const {
    scope = scopeOf(name, scope);
    return m_slots[slotOf(name, scope, hashOf(name, scope))].id;
}

void SymbolTable::grow() {
    std::vector<Slot> slots(m_slots.size() * 2);
    const std::size_t mask = slots.size() - 1;
    for (const Slot& slot : m_slots) {
        if (slot.id == 0) {
            continue;
        }
        std::size_t index = slot.hash & mask;
        while (slots[index].id != 0) {
            index = (index + 1) & mask;
        }
        slots[index] = slot;
    }
    m_slots = std::move(slots);
}

} // namespace nesasm
