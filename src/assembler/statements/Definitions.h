// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

#include <string_view>

namespace nesasm {

/// Gives names their values: labels, assigned symbols and reserved variables.
class Definitions {
public:
    Definitions(Assembly& assembly, ExpressionParser& parser);

    /// A label for the present place, named at `at`.
    void label(std::string_view name, Cursor at);

    /// NAME = expression, with `p` behind the equals sign.
    void assign(std::string_view name, Cursor at, Cursor p);

    /// .equ without a name before it.
    void assignNothing(Cursor at, Cursor p);

    /// NAME .rs count, with `p` behind the directive; an empty name only reserves.
    void reserve(std::string_view name, Cursor at, Cursor p);
    void reserveUnnamed(Cursor at, Cursor p) { reserve({}, at, p); }

    /// A symbol of the command line.
    void predefine(std::string_view name, std::int32_t value);

private:
    void define(SymbolId id, std::int32_t value, std::int32_t bank, Cursor at);
    void markDefined(SymbolId id, Cursor at);
    void warnIfShadowing(std::string_view name, Cursor at);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

/// Reports that a symbol got a second, different value.
void reportSecondValue(Assembly& assembly, const Position& position, const Symbol& symbol,
                       std::int32_t value);

} // namespace nesasm
