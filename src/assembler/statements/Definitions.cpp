// SPDX-License-Identifier: MIT
#include "assembler/statements/Definitions.h"

#include "assembler/language/Functions.h"
#include "assembler/language/InstructionTable.h"
#include "assembler/text/Characters.h"
#include "assembler/text/Text.h"

namespace nesasm {

Definitions::Definitions(Assembly& assembly, ExpressionParser& parser)
    : m_assembly(assembly)
    , m_parser(parser) {}

void Definitions::label(std::string_view name, Cursor at) {
    const SymbolId id = m_assembly.intern(name);
    const auto value = static_cast<std::int32_t>(m_assembly.image.address());
    const std::int32_t bank =
        m_assembly.image.isRam() ? NoBank : static_cast<std::int32_t>(m_assembly.image.bank());
    define(id, value, bank, at);
    m_assembly.symbols[id].isLabel = true;
    m_assembly.symbols[id].isAtBankEnd = bank >= 0 && m_assembly.image.offset() == BankSize;
    if (!name.starts_with('.')) {
        m_assembly.scope = id;
    }
    m_assembly.sizedLabel = id;
    m_assembly.sizedFrom = m_assembly.image.total();
}

void Definitions::assign(std::string_view name, Cursor at, Cursor p) {
    const SymbolId id = m_assembly.intern(name);
    const Cursor start = p.afterBlanks();
    p = start;
    if (!m_parser.parse(p)) {
        m_assembly.markBroken(name);
        return;
    }
    if (!m_assembly.expectEnd(p)) {
        m_assembly.markBroken(name);
        return;
    }
    const Evaluation result = m_parser.evaluateNow();
    if (result.status == Evaluation::Status::known) {
        define(id, result.value, result.bank, at);
        return;
    }
    Symbol& symbol = m_assembly.symbols[id];
    if (result.status == Evaluation::Status::broken) {
        m_assembly.markBroken(name);
        return;
    }
    const DeferredExpression expression = m_parser.defer(start);
    const bool isSecond = symbol.isDefined;
    if (!isSecond) {
        warnIfShadowing(symbol.name, at);
        symbol.deferred = static_cast<std::uint32_t>(m_assembly.deferred.symbols.size());
        markDefined(id, at);
    }
    m_assembly.deferred.symbols.push_back({expression, id, isSecond});
}

void Definitions::assignNothing(Cursor at, Cursor /*p*/) {
    m_assembly.error(at, ".equ needs a name before it, as in NAME .equ 5");
}

void Definitions::reserve(std::string_view name, Cursor at, Cursor p) {
    const auto count = m_parser.parseKnown(p, "the count of .rs", 0, 0x10000);
    if (!count || !m_assembly.expectEnd(p)) {
        if (!name.empty()) {
            m_assembly.markBroken(name);
        }
        return;
    }
    if (!name.empty()) {
        const SymbolId id = m_assembly.intern(name);
        define(id, m_assembly.reserveCounter, NoBank, at);
        m_assembly.symbols[id].size = static_cast<std::uint32_t>(*count);
        m_assembly.symbols[id].isReserved = true;
    }
    if (m_assembly.reserveCounter + *count > 0x10000) {
        m_assembly.error(at, "the variables reserved with .rs go beyond the address $FFFF");
    } else {
        m_assembly.reserveCounter += *count;
    }
}

void Definitions::predefine(std::string_view name, std::int32_t value) {
    Symbol& symbol = m_assembly.symbols[m_assembly.symbols.intern(name, 0, &m_assembly.arena)];
    symbol.isDefined = symbol.isKnown = true;
    symbol.value = value;
}

void Definitions::define(SymbolId id, std::int32_t value, std::int32_t bank, Cursor at) {
    Symbol& symbol = m_assembly.symbols[id];
    if (!symbol.isDefined) {
        warnIfShadowing(symbol.name, at);
        markDefined(id, at);
        symbol.isKnown = true;
        symbol.value = value;
        symbol.bank = bank;
        return;
    }
    if (symbol.isBroken) {
        return;
    }
    if (symbol.isKnown) {
        if (symbol.value != value) {
            reportSecondValue(m_assembly, m_assembly.at(at), symbol, value);
        }
        return;
    }
    // The first value is not known yet: compared when it is.
    const Operation literal{OpCode::literal, 0, static_cast<std::uint32_t>(value), 0};
    m_assembly.deferred.symbols.push_back(
        {m_assembly.deferred.keep({&literal, 1}, m_assembly.keep(at)), id, true});
}

void Definitions::markDefined(SymbolId id, Cursor at) {
    Symbol& symbol = m_assembly.symbols[id];
    symbol.isDefined = true;
    symbol.line = m_assembly.line.number;
    symbol.origin = m_assembly.line.origin;
    m_assembly.origins[symbol.origin].kept = true;
    if (m_assembly.diagnostics.isOn(Warning::unusedSymbol)) {
        m_assembly.definitions.push_back({id, m_assembly.keep(at)});
    }
}

void Definitions::warnIfShadowing(std::string_view name, Cursor at) {
    if (name.size() < 3 || name.size() > 6) {
        return;
    }
    if (findInstruction(name) != nullptr) {
        m_assembly.warn(Warning::shadowedSymbol, at,
                        quoted(name) + " is also the name of an instruction");
    } else if (findFunction(name)) {
        m_assembly.warn(Warning::shadowedSymbol, at,
                        quoted(name) + " is also the name of a function");
    }
}

void reportSecondValue(Assembly& assembly, const Position& position, const Symbol& symbol,
                       std::int32_t value) {
    std::string text = quoted(symbol.name) + " already has the value " + valueText(symbol.value);
    if (symbol.origin != NoOrigin) {
        text += " from " + std::string(assembly.origins[symbol.origin].file) + ":" +
                std::to_string(symbol.line);
    } else {
        text += " from the command line";
    }
    text += "; here it would get " + valueText(value);
    const bool isInMacro = position.origin != NoOrigin &&
                           assembly.origins[position.origin].kind == Origin::Kind::macro;
    if (symbol.isLabel && isInMacro) {
        text += ": \\@ in the name makes another one of it in each expansion";
    } else if (symbol.isLabel) {
        text += symbol.name.starts_with('.')
                    ? ": give one of them another name"
                    : ": give one of them another name, or a local one that begins with a dot";
    }
    assembly.diagnostics.error(position, std::move(text));
}

} // namespace nesasm
