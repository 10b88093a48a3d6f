// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Arena.h"
#include "assembler/text/Position.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace nesasm {

using SymbolId = std::uint32_t;
inline constexpr std::uint32_t None = 0xFFFFFFFFU;

/// The bank of the label that a value is computed from, for BANK(): its number, or one of these.
inline constexpr std::int32_t NoBank = -1;       ///< no label in it
inline constexpr std::int32_t SeveralBanks = -2; ///< more than one label in it

/// A name and what is known about it.
struct Symbol {
    std::string_view name;
    SymbolId scope = 0;         ///< of a local name: the label it belongs to, 0 before the first
    std::int32_t value = 0;     ///< while `isKnown`
    std::int32_t bank = NoBank; ///< while `isKnown`
    std::uint32_t size = None;  ///< bytes on the label's own line, None when there is no such line
    std::uint32_t macro = None; ///< index of the macro of this name
    std::uint32_t deferred = None; ///< index of the expression that will give the value
    std::uint32_t line = 0;        ///< where it was defined
    OriginId origin = NoOrigin;
    std::uint32_t uses = 0;
    bool isDefined = false;
    bool isKnown = false;
    bool isBroken = false; ///< its definition was an error that has been reported
    bool isLabel = false;
    bool isReserved = false;  ///< by .rs
    bool isAddress = false;   ///< an instruction uses it alone as an address
    bool isAtBankEnd = false; ///< a label after the last byte of a full bank
};

/// All names, local ones with the label they belong to. Ids stay valid; id 0 is no symbol.
class SymbolTable {
public:
    SymbolTable();

    /// The symbol of this name, made when it is new. A name that begins with a dot belongs to
    /// `scope`. `keeper` copies the name of a new symbol when it is not null (the text is
    /// short-lived).
    SymbolId intern(std::string_view name, SymbolId scope, Arena* keeper);

    /// The symbol of this name, or 0.
    SymbolId find(std::string_view name, SymbolId scope) const;

    Symbol& operator[](SymbolId id) { return m_symbols[id]; }
    const Symbol& operator[](SymbolId id) const { return m_symbols[id]; }
    std::size_t size() const { return m_symbols.size(); }

private:
    struct Slot {
        std::uint32_t hash = 0;
        SymbolId id = 0;
    };

    std::size_t slotOf(std::string_view name, SymbolId scope, std::uint32_t hash) const;
    void grow();

    std::vector<Symbol> m_symbols;
    std::vector<Slot> m_slots; ///< open addressing, a power of two, at most half full
};

} // namespace nesasm
