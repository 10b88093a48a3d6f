// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/ProgramNotes.h"
#include "assembler/reading/SourceStack.h"
#include "assembler/text/Arena.h"
#include "assembler/values/SymbolTable.h"

#include <string_view>

namespace nesasm {

/// The symbols by the names that the line being assembled has for them: local names belong to the
/// last label that is not local.
class Names {
public:
    /// Uses are noted in `notes` unless that is null.
    Names(const Line& line, SymbolTable& symbols, Arena& arena, ProgramNotes* notes = nullptr)
        : m_line(line)
        , m_symbols(symbols)
        , m_arena(arena)
        , m_notes(notes) {}

    /// The symbol of this name, made when it is new.
    SymbolId intern(std::string_view name) {
        return m_symbols.intern(name, m_scope, m_line.isShortLived ? &m_arena : nullptr);
    }
    /// The symbol of this name, or 0.
    SymbolId find(std::string_view name) const { return m_symbols.find(name, m_scope); }

    /// Counts that the symbol is used at `place`.
    void use(SymbolId id, Cursor place) {
        ++m_symbols[id].uses;
        if (m_notes != nullptr) {
            m_notes->addUse(id, m_line, place);
        }
    }
    /// Where what the run does not need is noted; null when nobody asks for it.
    ProgramNotes* notes() const { return m_notes; }

    Symbol& operator[](SymbolId id) { return m_symbols[id]; }
    const Symbol& operator[](SymbolId id) const { return m_symbols[id]; }
    const SymbolTable& table() const { return m_symbols; }

    /// Local names belong to `label` from now on.
    void openScope(SymbolId label) { m_scope = label; }

    /// A symbol of this name was meant to be defined, but that was an error, which is reported: it
    /// is not reported again where the symbol is used.
    void markBroken(std::string_view name) {
        Symbol& symbol = m_symbols[intern(name)];
        if (!symbol.isDefined) {
            symbol.isDefined = symbol.isBroken = true;
        }
    }

    /// Defines a symbol of the command line.
    void predefine(std::string_view name, std::int32_t value) {
        Symbol& symbol = m_symbols[m_symbols.intern(name, 0, &m_arena)];
        symbol.isDefined = symbol.isKnown = true;
        symbol.value = value;
    }

private:
    const Line& m_line;
    SymbolTable& m_symbols;
    Arena& m_arena;
    ProgramNotes* m_notes;
    SymbolId m_scope = 0;
};

} // namespace nesasm
