#include "assembler/Resolver.h"

#include "assembler/Definitions.h"
#include "assembler/FieldWriter.h"
#include "assembler/Text.h"

namespace nesasm {

Resolver::Resolver(Assembly& assembly)
    : m_assembly(assembly) {}

void Resolver::run() {
    const auto count = static_cast<std::uint32_t>(m_assembly.deferred.symbols.size());
    m_visits.assign(count, Visit::New);
    for (std::uint32_t i = 0; i < count; ++i)
        settle(i);
    settleFields();
    settleAssertions();
}

/// Settles one symbol after all those that it is made from, however long the chain is.
void Resolver::settle(std::uint32_t first) {
    m_waiting.assign(1, first);
    while (!m_waiting.empty()) {
        const std::uint32_t index = m_waiting.back();
        if (m_visits[index] == Visit::New) {
            m_visits[index] = Visit::Waiting;
            if (waitForOthers(m_assembly.deferred.symbols[index].expression))
                continue;
        }
        m_waiting.pop_back();
        if (m_visits[index] == Visit::Done)
            continue;
        m_visits[index] = Visit::Done;
        settleOne(index);
    }
}

bool Resolver::waitForOthers(const DeferredExpression& expression) {
    const std::size_t before = m_waiting.size();
    for (const Operation& operation : m_assembly.deferred.operations(expression)) {
        if (operation.code != OpCode::Value)
            continue;
        const Symbol& symbol = m_assembly.symbols[operation.argument];
        if (!symbol.isKnown && symbol.deferred != kNone && m_visits[symbol.deferred] == Visit::New)
            m_waiting.push_back(symbol.deferred);
    }
    return m_waiting.size() > before;
}

void Resolver::settleOne(std::uint32_t index) {
    const DeferredSymbol& deferred = m_assembly.deferred.symbols[index];
    Evaluation result;
    const bool isKnown = compute(deferred.expression, result);
    Symbol& symbol = m_assembly.symbols[deferred.symbol];
    if (deferred.isSecond) {
        if (!symbol.isKnown && !symbol.isBroken && symbol.deferred != kNone &&
            m_visits[symbol.deferred] != Visit::Done)
            return; // found broken further on
        if (isKnown && symbol.isKnown && symbol.value != result.value)
            reportSecondValue(m_assembly, deferred.expression.position, symbol, result.value);
        return;
    }
    symbol.isKnown = isKnown;
    symbol.isBroken = !isKnown;
    symbol.value = result.value;
    symbol.bank = result.bank;
}

bool Resolver::compute(const DeferredExpression& expression, Evaluation& result) {
    result = evaluate(m_assembly.deferred.operations(expression), m_assembly.symbols);
    Position position = expression.position;
    position.column = result.column;
    switch (result.status) {
    case Evaluation::Status::Known:
        return true;
    case Evaluation::Status::Failed:
        m_assembly.diagnostics.error(position, result.problem);
        return false;
    case Evaluation::Status::Broken:
        return false;
    case Evaluation::Status::Unknown:
        break;
    }
    const Symbol& symbol = m_assembly.symbols[result.symbol];
    const std::string name = quoted(symbol.name);
    if (symbol.isKnown)
        m_assembly.diagnostics.error(position, name + " is no label: it has no size");
    else if (symbol.isDefined)
        m_assembly.diagnostics.error(position, name + " is defined by itself");
    else if (!m_assembly.isIncomplete)
        m_assembly.diagnostics.error(position, "the symbol " + name + " is not defined anywhere");
    return false;
}

void Resolver::settleFields() {
    for (const DeferredField& field : m_assembly.deferred.fields) {
        if (m_assembly.diagnostics.limitReached())
            return;
        Evaluation result;
        if (!compute(field.expression, result))
            continue;
        checkField(m_assembly.diagnostics, field.expression.position, field.field, result.value,
                   field.next);
        const auto bytes = encoded(field.field, result.value, field.next);
        m_assembly.image.patch(field.number, field.bank, field.offset, bytes.data(),
                               sizeOf(field.field));
    }
}

void Resolver::settleAssertions() {
    for (const DeferredAssertion& assertion : m_assembly.deferred.assertions) {
        Evaluation result;
        if (compute(assertion.expression, result) && result.value == 0)
            m_assembly.diagnostics.error(assertion.expression.position,
                                         std::string(assertion.text));
    }
}

} // namespace nesasm
