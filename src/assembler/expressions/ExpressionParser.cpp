// SPDX-License-Identifier: MIT
#include "assembler/expressions/ExpressionParser.h"

#include "assembler/expressions/Number.h"
#include "assembler/expressions/SymbolRemedies.h"
#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <utility>

namespace nesasm {

namespace {

constexpr int DeepestNesting = 100;
constexpr const char* TooDeep =
    "the expression is nested more than 100 deep; give a part of it a name with =";

} // namespace

ExpressionParser::ExpressionParser(const Statement& statement, Names& names, Reporter& reporter,
                                   Deferred& deferred)
    : m_statement(statement)
    , m_names(names)
    , m_reporter(reporter)
    , m_deferred(deferred) {}

bool ExpressionParser::parse(Cursor& p, Prefix prefix) {
    m_operations.clear();
    m_stack = 0;
    m_nesting = 0;
    m_lowHigh = prefix == Prefix::lowHigh;
    m_p = p;
    const bool fine = binary(1);
    p = m_p;
    return fine;
}

bool ExpressionParser::parseRest(Cursor& p) {
    m_p = p;
    bool fine = true;
    for (Binary next = binaryAt(m_p); fine && next.precedence != 0; next = binaryAt(m_p)) {
        const Cursor at = m_p;
        m_p += next.length;
        fine = binary(next.precedence + 1) && push(next.code, 0, at);
        m_p.skipBlanks();
    }
    p = m_p;
    return fine;
}

ExpressionParser::Binary ExpressionParser::binaryAt(Cursor p) {
    switch (*p) {
    case '|':
        return p[1] == '|' ? Binary{OpCode::logicalOr, 1, 2} : Binary{OpCode::bitOr, 3, 1};
    case '&':
        return p[1] == '&' ? Binary{OpCode::logicalAnd, 2, 2} : Binary{OpCode::bitAnd, 5, 1};
    case '^':
        return {OpCode::bitXor, 4, 1};
    case '=':
        return {OpCode::equal, 6, p[1] == '=' ? 2 : 1};
    case '!':
        return p[1] == '=' ? Binary{OpCode::notEqual, 6, 2} : Binary{};
    case '<':
        switch (p[1]) {
        case '<':
            return {OpCode::shiftLeft, 8, 2};
        case '=':
            return {OpCode::lessEqual, 7, 2};
        case '>':
            return {OpCode::notEqual, 6, 2};
        default:
            return {OpCode::less, 7, 1};
        }
    case '>':
        if (p[1] == '>') {
            return {OpCode::shiftRight, 8, 2};
        }
        return p[1] == '=' ? Binary{OpCode::greaterEqual, 7, 2} : Binary{OpCode::greater, 7, 1};
    case '+':
        return {OpCode::add, 9, 1};
    case '-':
        return {OpCode::subtract, 9, 1};
    case '*':
        return {OpCode::multiply, 10, 1};
    case '/':
        return {OpCode::divide, 10, 1};
    case '%':
        return {OpCode::remainder, 10, 1};
    default:
        return {};
    }
}

bool ExpressionParser::binary(int precedence) {
    if (!unary(std::exchange(m_lowHigh, false))) {
        return false;
    }
    for (;;) {
        m_p.skipBlanks();
        const Binary next = binaryAt(m_p);
        if (next.precedence == 0 || next.precedence < precedence) {
            return true;
        }
        const Cursor at = m_p;
        m_p += next.length;
        if (!binary(next.precedence + 1) || !push(next.code, 0, at)) {
            return false;
        }
    }
}

bool ExpressionParser::unary(bool lowHigh) {
    m_p.skipBlanks();
    // A macro argument may bring its #; what stands after it is an immediate value.
    while (*m_p == '#') {
        m_p = (m_p + 1).afterBlanks();
        lowHigh = true;
    }
    switch (*m_p) {
    case '-':
        return applyPrefix(OpCode::negate);
    case '~':
        return applyPrefix(OpCode::complement);
    case '!':
        return applyPrefix(OpCode::logicalNot);
    case '+':
    case '<':
    case '>': {
        const Cursor at = m_p;
        if (*at != '+' && !lowHigh) {
            return fail(at, "expected a value, found '" + std::string(1, *at) +
                                "'; LOW() and HIGH() take a byte of a value");
        }
        if (++m_nesting > DeepestNesting) {
            return fail(at, TooDeep);
        }
        ++m_p;
        const bool fine = *at == '+'
                              ? unary(false)
                              : binary(1) && push(*at == '<' ? OpCode::low : OpCode::high, 0, at);
        --m_nesting;
        return fine;
    }
    default:
        return primary();
    }
}

bool ExpressionParser::applyPrefix(OpCode code) {
    const Cursor at = m_p++;
    if (++m_nesting > DeepestNesting) {
        return fail(at, TooDeep);
    }
    const bool fine = unary(false) && push(code, 0, at);
    --m_nesting;
    return fine;
}

bool ExpressionParser::primary() {
    const char c = *m_p;
    if (isWordStart(c) || c == '.') {
        return word();
    }
    if (startsNumber(c)) {
        return number();
    }
    switch (c) {
    case '(':
        return parenthesized();
    case '*':
        ++m_p;
        return push(OpCode::here, m_statement.address, m_p - 1);
    case '"':
        return fail(m_p, "a string is allowed only in .db and as a file name; a single character "
                         "is written 'c'");
    default:
        // The operator before it may be half of a comment's mark.
        return fail(
            m_p, "expected a value, found " + foundText(m_p) +
                     (*m_p == '/' && m_p != m_statement.line.begin ? commentRemedy(m_p - 1) : ""));
    }
}

bool ExpressionParser::parenthesized() {
    const Cursor at = m_p++;
    if (++m_nesting > DeepestNesting) {
        return fail(at, TooDeep);
    }
    if (!binary(1)) {
        return false;
    }
    --m_nesting;
    if (*m_p != ')') {
        return fail(m_p, "expected ')', found " + foundText(m_p));
    }
    ++m_p;
    return true;
}

bool ExpressionParser::word() {
    const Cursor begin = m_p;
    m_p = begin.wordEnd();
    const std::string_view name = begin.upTo(m_p);
    if (name == ".") {
        return fail(begin, "expected a value, found '.'");
    }
    if (name.size() >= 3 && name.size() <= 6) {
        const Cursor next = m_p.afterBlanks();
        const bool isCall = *next == '(';
        // Two values side by side: the parentheses have been forgotten.
        const bool lacksParentheses = next.isAtName() || isDigit(*next) || *next == '$';
        const auto which = isCall || lacksParentheses ? findFunction(name) : std::nullopt;
        if (which && isCall) {
            return function(*which, begin);
        }
        if (which) {
            return fail(begin, std::string(name) + " needs its operand in parentheses");
        }
    }
    if (*m_p == '(' && *begin != '.') {
        return fail(begin, "there is no function " + quoted(name) +
                               "; there are LOW, HIGH, BANK, PAGE and SIZEOF");
    }
    const SymbolId id = m_names.intern(name);
    m_names.use(id, begin);
    return push(OpCode::value, id, begin);
}

bool ExpressionParser::function(Function function, Cursor at) {
    m_p.skipBlanks();
    switch (function) {
    case Function::low:
        return parenthesized() && push(OpCode::low, 0, at);
    case Function::high:
        return parenthesized() && push(OpCode::high, 0, at);
    case Function::bank:
        return parenthesized() && push(OpCode::bank, 0, at);
    case Function::page:
        return parenthesized() && push(OpCode::page, 0, at);
    case Function::sizeOf:
        break;
    }
    return sizeOfLabel();
}

bool ExpressionParser::sizeOfLabel() {
    for (m_p = (m_p + 1).afterBlanks(); *m_p == '#';) {
        m_p = (m_p + 1).afterBlanks();
    }
    const Cursor begin = m_p;
    if (!begin.isAtName()) {
        return fail(begin, "SIZEOF() needs the name of a label, found " + foundText(begin));
    }
    m_p = begin.wordEnd();
    const SymbolId id = m_names.intern(begin.upTo(m_p));
    m_names.use(id, begin);
    m_p.skipBlanks();
    if (*m_p != ')') {
        return fail(m_p, "expected ')', found " + foundText(m_p));
    }
    ++m_p;
    return push(OpCode::sizeOf, id, begin);
}

bool ExpressionParser::number() {
    const Number number = readNumber(m_p);
    m_p = number.end;
    if (!number.isFine()) {
        return fail(number.problemPlace(), number.problemText());
    }
    if (number.isOdd) {
        m_reporter.warn(Warning::oddNumber, number.begin,
                        "there is no hexadecimal digit after this $: '" +
                            std::string(number.begin.upTo(number.end)) + "' counts as 0");
    }
    return push(OpCode::literal, number.value, number.begin);
}

bool ExpressionParser::push(OpCode code, std::uint32_t argument, Cursor at) {
    if (code <= OpCode::sizeOf && ++m_stack > LargestStack) {
        return fail(at, "the expression is too complicated; give a part of it a name with =");
    }
    if (code >= OpCode::multiply) {
        --m_stack;
    }
    const auto column = static_cast<std::uint32_t>(at - m_statement.line.begin);
    m_operations.push_back({code, static_cast<std::uint16_t>(m_statement.bank), argument, column});
    return true;
}

bool ExpressionParser::fail(Cursor at, std::string text) {
    m_reporter.error(at, std::move(text));
    return false;
}

void ExpressionParser::reportFailed(const Evaluation& result) {
    m_reporter.error(m_statement.line.begin + result.column, problemText(result));
}

DeferredExpression ExpressionParser::defer(Cursor start) {
    return m_deferred.keep(m_operations, m_reporter.keep(start));
}

std::optional<std::int32_t> ExpressionParser::parseKnown(Cursor& p, const char* what) {
    if (!parse(p)) {
        return std::nullopt;
    }
    const Evaluation result = evaluateNow();
    if (result.status == Evaluation::Status::known) {
        return result.value;
    }
    if (result.status == Evaluation::Status::unknown && !m_reporter.isPartMissing()) {
        m_reporter.error(m_statement.line.begin + result.column,
                         [&] { return unknownText(result, what); });
    }
    return std::nullopt;
}

/// Why the symbol that `result` names has no value, or no size, where `what` needs it.
std::string ExpressionParser::unknownText(const Evaluation& result, const char* what) const {
    const Symbol& symbol = m_names[result.symbol];
    const bool isSize =
        std::any_of(m_operations.begin(), m_operations.end(), [&](const auto& each) {
            return each.code == OpCode::sizeOf && each.column == result.column;
        });
    if (isSize && symbol.isDefined && !symbol.isLabel) {
        return noSizeText(symbol);
    }
    std::string text = isSize ? "the size of " : "the value of ";
    text.append(quoted(symbol.name)).append(" is not known here, but ").append(what);
    text += " needs it at once: ";
    if (!symbol.isDefined) {
        return text.append("define it further up")
            .append(remedyForSymbol(m_names.table(), symbol, m_reporter.diagnostics()));
    }
    return text += isSize
                       ? "it is known only after the label's own line"
                       : "it is made from a symbol that is not known yet; define that one above it";
}

std::optional<std::int32_t> ExpressionParser::parseKnown(Cursor& p, const char* what,
                                                         std::int32_t least, std::int32_t most) {
    const Cursor start = p.afterBlanks();
    const auto value = parseKnown(p, what);
    if (!value || (*value >= least && *value <= most)) {
        return value;
    }
    m_reporter.error(start, std::string(what) + " must be " + std::to_string(least) + " to " +
                                std::to_string(most) + ", but it is " + std::to_string(*value));
    return std::nullopt;
}

} // namespace nesasm
