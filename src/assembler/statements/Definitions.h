// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/reading/Origins.h"
#include "assembler/state/Names.h"
#include "assembler/state/Reporter.h"
#include "assembler/state/Statement.h"
#include "assembler/values/Deferred.h"
#include "assembler/values/Image.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace nesasm {

/// Where a symbol was defined.
struct Definition {
    SymbolId symbol = 0;
    Position position;
};

/// Gives names their values: labels, assigned symbols and reserved variables.
class Definitions {
public:
    Definitions(Statement& statement, ExpressionParser& parser, Names& names, const Image& image,
                Reporter& reporter, Deferred& deferred, Origins& origins);

    /// A label for the present place, named at `at`.
    void label(std::string_view name, Cursor at);

    /// NAME = expression, with `p` after the equals sign.
    void assign(std::string_view name, Cursor at, Cursor p);

    /// .equ without a name before it.
    void assignNothing(Cursor at, Cursor p);

    /// NAME .rs count, with `p` after the directive; an empty name only reserves.
    void reserve(std::string_view name, Cursor at, Cursor p);
    void reserveUnnamed(Cursor at, Cursor p) { reserve({}, at, p); }

    /// .rsset address, with `p` at its operand.
    void reserveFrom(Cursor p);

    /// Where symbols were defined; noted only when unused ones are to be reported.
    std::span<const Definition> definitions() const { return m_definitions; }

private:
    void define(SymbolId id, std::int32_t value, std::int32_t bank, Cursor at);
    void markDefined(SymbolId id, Cursor at);
    void warnIfShadowing(std::string_view name, Cursor at);

    Statement& m_statement;
    ExpressionParser& m_parser;
    Names& m_names;
    const Image& m_image;
    Reporter& m_reporter;
    Deferred& m_deferred;
    Origins& m_origins;
    std::vector<Definition> m_definitions;
    std::int32_t m_reserveCounter = 0; ///< of .rs
};

/// Reports that a symbol got a second, different value.
void reportSecondValue(Diagnostics& diagnostics, const Origins& origins, const Position& position,
                       const Symbol& symbol, std::int32_t value);

} // namespace nesasm
