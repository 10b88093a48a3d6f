// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/Origins.h"
#include "assembler/reading/SourceStack.h"
#include "assembler/values/SymbolTable.h"

#include <cstdint>
#include <vector>

namespace nesasm {

/// What a run does not need to know itself, noted for whoever asks for it: where names are used and
/// which memory .rs reserves. A run that nobody asks has none of these.
class ProgramNotes {
public:
    struct Use {
        SymbolId symbol = 0;
        std::uint32_t line = 0;
        std::uint32_t column = None; ///< in bytes, from 0; None in a line with arguments put in
        OriginId origin = NoOrigin;
    };
    /// The definition of a macro.
    struct MacroPlace {
        SymbolId symbol = 0;
        std::uint32_t line = 0;
        OriginId origin = NoOrigin;
    };
    struct Reservation {
        std::uint32_t address = 0;
        std::uint32_t count = 0;
    };

    /// The origins of all that is noted are kept in `origins`.
    explicit ProgramNotes(Origins& origins)
        : m_origins(origins) {}

    void addUse(SymbolId symbol, const Line& line, Cursor at) {
        m_origins[line.origin].kept = true;
        const auto column = static_cast<std::uint32_t>(at.data() - line.begin.data());
        m_uses.push_back({symbol, line.number, line.isShortLived ? None : column, line.origin});
    }
    void addMacro(SymbolId symbol, const Line& line) {
        m_origins[line.origin].kept = true;
        m_macros.push_back({symbol, line.number, line.origin});
    }
    void addReservation(std::uint32_t address, std::uint32_t count) {
        m_reservations.push_back({address, count});
    }

    const std::vector<Use>& uses() const { return m_uses; }
    const std::vector<MacroPlace>& macros() const { return m_macros; }
    const std::vector<Reservation>& reservations() const { return m_reservations; }

private:
    Origins& m_origins;
    std::vector<Use> m_uses;
    std::vector<MacroPlace> m_macros;
    std::vector<Reservation> m_reservations;
};

} // namespace nesasm
