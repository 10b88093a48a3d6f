// SPDX-License-Identifier: MIT
#include "assembler/statements/Definitions.h"

#include "assembler/language/Functions.h"
#include "assembler/language/InstructionTable.h"
#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

namespace nesasm {

Definitions::Definitions(Statement& statement, ExpressionParser& parser, Names& names,
                         const Image& image, Reporter& reporter, Deferred& deferred,
                         Origins& origins)
    : m_statement(statement)
    , m_parser(parser)
    , m_names(names)
    , m_image(image)
    , m_reporter(reporter)
    , m_deferred(deferred)
    , m_origins(origins) {}

void Definitions::label(std::string_view name, Cursor at) {
    const SymbolId id = m_names.intern(name);
    const auto value = static_cast<std::int32_t>(m_image.address());
    const std::int32_t bank = m_image.isRam() ? NoBank : static_cast<std::int32_t>(m_image.bank());
    define(id, value, bank, at);
    m_names[id].isLabel = true;
    m_names[id].isAtBankEnd = bank >= 0 && m_image.offset() == BankSize;
    if (!name.starts_with('.')) {
        m_names.openScope(id);
    }
    m_statement.label = id;
    m_statement.totalAtLabel = m_image.total();
}

void Definitions::assign(std::string_view name, Cursor at, Cursor p) {
    const SymbolId id = m_names.intern(name);
    const Cursor start = p.afterBlanks();
    p = start;
    if (!m_parser.parse(p)) {
        m_names.markBroken(name);
        return;
    }
    if (!m_reporter.expectEnd(p)) {
        m_names.markBroken(name);
        return;
    }
    const Evaluation result = m_parser.evaluateNow();
    if (result.status == Evaluation::Status::known) {
        define(id, result.value, result.bank, at);
        return;
    }
    Symbol& symbol = m_names[id];
    if (result.status == Evaluation::Status::broken) {
        m_names.markBroken(name);
        return;
    }
    const DeferredExpression expression = m_parser.defer(start);
    const bool isSecond = symbol.isDefined;
    if (!isSecond) {
        warnIfShadowing(symbol.name, at);
        symbol.deferred = static_cast<std::uint32_t>(m_deferred.symbols.size());
        markDefined(id, at);
    }
    m_deferred.symbols.push_back({expression, id, isSecond});
}

void Definitions::assignNothing(Cursor at, Cursor /*p*/) {
    m_reporter.error(at, ".equ needs a name before it, as in NAME .equ 5");
}

void Definitions::reserve(std::string_view name, Cursor at, Cursor p) {
    const auto count = m_parser.parseKnown(p, "the count of .rs", 0, 0x10000);
    if (!count || !m_reporter.expectEnd(p)) {
        if (!name.empty()) {
            m_names.markBroken(name);
        }
        return;
    }
    if (!name.empty()) {
        const SymbolId id = m_names.intern(name);
        define(id, m_reserveCounter, NoBank, at);
        m_names[id].size = static_cast<std::uint32_t>(*count);
        m_names[id].isReserved = true;
    }
    if (m_reserveCounter + *count > 0x10000) {
        m_reporter.error(at, "the variables reserved with .rs go beyond the address $FFFF");
    } else {
        if (ProgramNotes* const notes = m_names.notes()) {
            notes->addReservation(static_cast<std::uint32_t>(m_reserveCounter),
                                  static_cast<std::uint32_t>(*count));
        }
        m_reserveCounter += *count;
    }
}

void Definitions::reserveFrom(Cursor p) {
    const auto value = m_parser.parseKnown(p, "the address of .rsset", 0, 0xFFFF);
    if (value && m_reporter.expectEnd(p)) {
        m_reserveCounter = *value;
    }
}

void Definitions::define(SymbolId id, std::int32_t value, std::int32_t bank, Cursor at) {
    Symbol& symbol = m_names[id];
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
            reportSecondValue(m_reporter.diagnostics(), m_origins, m_reporter.at(at), symbol,
                              value);
        }
        return;
    }
    // The first value is not known yet: compared when it is.
    const Operation literal{OpCode::literal, 0, static_cast<std::uint32_t>(value), 0};
    m_deferred.symbols.push_back({m_deferred.keep({&literal, 1}, m_reporter.keep(at)), id, true});
}

void Definitions::markDefined(SymbolId id, Cursor at) {
    Symbol& symbol = m_names[id];
    symbol.isDefined = true;
    symbol.line = m_reporter.line().number;
    symbol.origin = m_reporter.line().origin;
    m_origins[symbol.origin].kept = true;
    if (m_reporter.diagnostics().isOn(Warning::unusedSymbol)) {
        m_definitions.push_back({id, m_reporter.keep(at)});
    }
}

void Definitions::warnIfShadowing(std::string_view name, Cursor at) {
    if (name.size() < 3 || name.size() > 6) {
        return;
    }
    if (findInstruction(name) != nullptr) {
        m_reporter.warn(Warning::shadowedSymbol, at,
                        quoted(name) + " is also the name of an instruction");
    } else if (findFunction(name)) {
        m_reporter.warn(Warning::shadowedSymbol, at,
                        quoted(name) + " is also the name of a function");
    }
}

void reportSecondValue(Diagnostics& diagnostics, const Origins& origins, const Position& position,
                       const Symbol& symbol, std::int32_t value) {
    std::string text = quoted(symbol.name) + " already has the value " + valueText(symbol.value);
    if (symbol.origin != NoOrigin) {
        text +=
            " from " + std::string(origins[symbol.origin].file) + ":" + std::to_string(symbol.line);
    } else {
        text += " from the command line";
    }
    text += "; here it would get " + valueText(value);
    const bool isInMacro =
        position.origin != NoOrigin && origins[position.origin].kind == Origin::Kind::macro;
    if (symbol.isLabel && isInMacro) {
        text += ": \\@ in the name makes another one of it in each expansion";
    } else if (symbol.isLabel) {
        text += symbol.name.starts_with('.')
                    ? ": give one of them another name"
                    : ": give one of them another name, or a local one that begins with a dot";
    }
    diagnostics.error(position, std::move(text));
}

} // namespace nesasm
