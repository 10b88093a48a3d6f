// SPDX-License-Identifier: MIT
#include "assembler/statements/Resolver.h"

#include "assembler/expressions/FieldWriter.h"
#include "assembler/expressions/SymbolRemedies.h"
#include "assembler/expressions/WrittenOperand.h"
#include "assembler/statements/Definitions.h"
#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

#include <algorithm>

namespace nesasm {

Resolver::Resolver(SymbolTable& symbols, Deferred& deferred, Image& image, const Origins& origins,
                   OperandHints& hints, Reporter& reporter)
    : m_symbols(symbols)
    , m_deferred(deferred)
    , m_image(image)
    , m_origins(origins)
    , m_hints(hints)
    , m_reporter(reporter) {}

void Resolver::run() {
    m_wrongLines = m_reporter.diagnostics().linesWithErrors();
    const auto count = static_cast<std::uint32_t>(m_deferred.symbols.size());
    m_visits.assign(count, Visit::fresh);
    for (std::uint32_t i = 0; i < count; ++i) {
        settle(i);
    }
    settleFields();
    settleAssertions();
}

/// Settles one symbol after all those that it is made from, however long the chain is.
void Resolver::settle(std::uint32_t first) {
    m_waiting.assign(1, first);
    while (!m_waiting.empty()) {
        const std::uint32_t index = m_waiting.back();
        if (m_visits[index] == Visit::fresh) {
            m_visits[index] = Visit::waiting;
            if (waitForOthers(m_deferred.symbols[index].expression)) {
                continue;
            }
        }
        m_waiting.pop_back();
        if (m_visits[index] == Visit::done) {
            continue;
        }
        m_visits[index] = Visit::done;
        settleOne(index);
    }
}

bool Resolver::waitForOthers(const DeferredExpression& expression) {
    const std::size_t before = m_waiting.size();
    for (const Operation& operation : m_deferred.operations(expression)) {
        if (operation.code != OpCode::value) {
            continue;
        }
        const Symbol& symbol = m_symbols[operation.argument];
        if (!symbol.isKnown && symbol.deferred != None &&
            m_visits[symbol.deferred] == Visit::fresh) {
            m_waiting.push_back(symbol.deferred);
        }
    }
    return m_waiting.size() > before;
}

void Resolver::settleOne(std::uint32_t index) {
    const DeferredSymbol& deferred = m_deferred.symbols[index];
    Evaluation result;
    const bool isKnown = compute(deferred.expression, result);
    Symbol& symbol = m_symbols[deferred.symbol];
    if (deferred.isSecond) {
        if (!symbol.isKnown && !symbol.isBroken && symbol.deferred != None &&
            m_visits[symbol.deferred] != Visit::done) {
            return; // found broken further on
        }
        if (isKnown && symbol.isKnown && symbol.value != result.value) {
            reportSecondValue(m_reporter.diagnostics(), m_origins, deferred.expression.position,
                              symbol, result.value);
        }
        return;
    }
    symbol.isKnown = isKnown;
    symbol.isBroken = !isKnown;
    symbol.value = result.value;
    symbol.bank = result.bank;
}

bool Resolver::compute(const DeferredExpression& expression, Evaluation& result) {
    result = evaluate(m_deferred.operations(expression), m_symbols);
    Position position = expression.position;
    position.column = result.column;
    switch (result.status) {
    case Evaluation::Status::known:
        return true;
    case Evaluation::Status::failed:
        m_reporter.diagnostics().error(position, problemText(result));
        return false;
    case Evaluation::Status::broken:
        return false;
    case Evaluation::Status::unknown:
        break;
    }
    reportUnknown(position, m_symbols[result.symbol]);
    return false;
}

void Resolver::reportUnknown(const Position& position, const Symbol& symbol) {
    Diagnostics& diagnostics = m_reporter.diagnostics();
    if (symbol.isKnown) {
        diagnostics.error(position, noSizeText(symbol));
    } else if (symbol.isDefined) {
        diagnostics.error(position, quoted(symbol.name) + " is defined in terms of itself");
    } else if (!m_reporter.isPartMissing() &&
               !std::binary_search(m_wrongLines.begin(), m_wrongLines.end(), position.order)) {
        diagnostics.error(position, [&] { return undefinedText(symbol); });
    }
}

std::string Resolver::undefinedText(const Symbol& symbol) const {
    const bool isLocal = symbol.name.starts_with('.');
    std::string text = isLocal ? "the local label " : "the symbol ";
    text.append(quoted(symbol.name)).append(" is not defined");
    if (!isLocal) {
        text += " anywhere";
    } else if (symbol.scope == 0) {
        text += " before the first label";
    } else {
        text.append(" under ").append(quoted(m_symbols[symbol.scope].name));
    }
    return text + remedyForSymbol(m_symbols, symbol, m_reporter.diagnostics());
}

/// An undefined A after an instruction that does not work on the accumulator: reported as such.
bool Resolver::isAccumulator(const DeferredField& field) {
    const auto operations = m_deferred.operations(field.expression);
    if (field.field != Field::absolute || operations.size() != 1 ||
        operations[0].code != OpCode::value) {
        return false;
    }
    const Symbol& symbol = m_symbols[operations[0].argument];
    if (symbol.isDefined || !equalsIgnoringCase(symbol.name, "a")) {
        return false;
    }
    const Position& position = field.expression.position;
    const Instruction* const instruction = instructionBefore(position);
    if (instruction == nullptr) {
        return false;
    }
    const std::string name(instruction->name);
    m_reporter.diagnostics().error(
        position,
        name + " does not work on the accumulator; it can be written: " + modesText(*instruction) +
            (name == "INC"   ? "; for A use CLC and ADC #1"
             : name == "DEC" ? "; for A use SEC and SBC #1"
                             : ""));
    return true;
}

void Resolver::settleFields() {
    for (const DeferredField& field : m_deferred.fields) {
        if (m_reporter.diagnostics().limitReached()) {
            return;
        }
        Evaluation result;
        if (isAccumulator(field) || !compute(field.expression, result)) {
            continue;
        }
        checkField(m_reporter.diagnostics(), field.expression.position, field.field, result.value,
                   field.next);
        if (m_hints.areWanted()) {
            m_hints.lookLate(field, result.value);
        }
        const auto bytes = encoded(field.field, result.value, field.next);
        m_image.patch(field.number, field.bank, field.offset, bytes.data(), sizeOf(field.field));
    }
}

void Resolver::settleAssertions() {
    for (const DeferredAssertion& assertion : m_deferred.assertions) {
        Evaluation result;
        if (compute(assertion.expression, result) && result.value == 0) {
            m_reporter.diagnostics().error(assertion.expression.position, assertion.text);
        }
    }
}

void Resolver::reportUnused(std::span<const Definition> definitions) {
    for (const Definition& definition : definitions) {
        const Symbol& symbol = m_symbols[definition.symbol];
        if (symbol.uses == 0 && !symbol.isBroken) {
            m_reporter.diagnostics().warning(Warning::unusedSymbol, definition.position,
                                             quoted(symbol.name) + " is never used");
        }
    }
}

} // namespace nesasm
