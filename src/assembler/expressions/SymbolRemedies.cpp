// SPDX-License-Identifier: MIT
#include "assembler/expressions/SymbolRemedies.h"

#include "assembler/text/Characters.h"
#include "assembler/text/NearNames.h"
#include "assembler/text/Text.h"

#include <algorithm>

namespace nesasm {

namespace {

/// For so many errors the whole symbol table is searched.
constexpr std::size_t MostSearches = 100;

std::string placeOf(const SymbolTable& symbols, SymbolId scope) {
    return scope == 0 ? std::string("before the first label")
                      : "under " + quoted(symbols[scope].name);
}

/// Says where a name is defined that is the same but for its dot or the label it belongs to.
std::string namesakeText(const SymbolTable& symbols, const Symbol& symbol) {
    const std::string_view bare = symbol.name.substr(symbol.name.starts_with('.') ? 1 : 0);
    const Symbol* other = nullptr;
    for (SymbolId id = 1; id < symbols.size(); ++id) {
        const Symbol& each = symbols[id];
        if (!each.isDefined) {
            continue;
        }
        if (each.name == symbol.name) {
            return "; it is defined " + placeOf(symbols, each.scope);
        }
        const bool isLocal = each.name.starts_with('.');
        if (other == nullptr && each.name.substr(isLocal ? 1 : 0) == bare) {
            other = &each;
        }
    }
    if (other == nullptr) {
        return {};
    }
    if (!other->name.starts_with('.')) {
        return "; there is " + quoted(other->name) + ", without the dot";
    }
    return "; there is the local label " + quoted(other->name) + " " +
           placeOf(symbols, other->scope);
}

bool isRegisterName(std::string_view name) {
    return equalsIgnoringCase(name, "a") || equalsIgnoringCase(name, "x") ||
           equalsIgnoringCase(name, "y");
}

/// Hexadecimal digits with an h after them, as other assemblers write numbers.
bool isHexadecimal(std::string_view name) {
    return name.size() > 1 && lowered(name.back()) == 'h' &&
           std::all_of(name.begin(), name.end() - 1, [](char c) { return hexDigit(c) >= 0; });
}

} // namespace

std::string noSizeText(const Symbol& symbol) {
    return quoted(symbol.name) +
           " is not a label, so it has no size; SIZEOF() gives the bytes on a label's own line";
}

std::string remedyForSymbol(const SymbolTable& symbols, const Symbol& symbol,
                            const Diagnostics& diagnostics) {
    if (isRegisterName(symbol.name)) {
        return "; a register cannot be used here: TAX, TXA, TAY and TYA copy between registers";
    }
    if (isHexadecimal(symbol.name)) {
        return "; a hexadecimal number begins with $, as in $1F";
    }
    if (symbol.macro != None) {
        return "; it is a macro, which has no value";
    }
    if (diagnostics.errorCount() > MostSearches) {
        return {};
    }
    if (std::string namesake = namesakeText(symbols, symbol); !namesake.empty()) {
        return namesake;
    }
    NearNames near(symbol.name);
    const bool isLocal = symbol.name.starts_with('.');
    for (SymbolId id = 1; id < symbols.size(); ++id) {
        const Symbol& each = symbols[id];
        if (each.isDefined && each.name.starts_with('.') == isLocal && each.scope == symbol.scope) {
            near.consider(each.name);
        }
    }
    return near.question();
}

} // namespace nesasm
