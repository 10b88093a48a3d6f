// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Functions.h"
#include "assembler/state/Names.h"
#include "assembler/state/Reporter.h"
#include "assembler/state/Statement.h"
#include "assembler/values/Deferred.h"
#include "assembler/values/Expression.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace nesasm {

/// Reads expressions from the present line.
class ExpressionParser {
public:
    /// What a < or > where an operand is expected means.
    enum class Prefix {
        none,   ///< nothing: an error
        lowHigh ///< LOW() or HIGH() of all that follows
    };

    ExpressionParser(const Statement& statement, Names& names, Reporter& reporter,
                     Deferred& deferred);

    /// Reads one expression at `p`, which is moved to its end. False when an error was reported.
    bool parse(Cursor& p, Prefix prefix = Prefix::none);

    /// Goes on reading an expression of which the part that is in parentheses has just been parsed.
    bool parseRest(Cursor& p);

    /// What was read last.
    std::span<const Operation> operations() const { return m_operations; }

    /// Computes what was read last; an error in it is reported. `start` is where it began.
    Evaluation evaluateNow() {
        Evaluation result = peek();
        if (result.status == Evaluation::Status::failed) {
            reportFailed(result);
            result.status = Evaluation::Status::broken;
        }
        return result;
    }

    /// The same, but an error in it is not reported.
    Evaluation peek() const { return evaluate(m_operations, m_names.table()); }

    /// What was read last is an address: when it is a symbol alone, that symbol is one.
    void noteAddress() {
        if (m_operations.size() == 1 && m_operations[0].code == OpCode::value) {
            m_names[m_operations[0].argument].isAddress = true;
        }
    }

    /// Keeps what was read last until all symbols are known.
    DeferredExpression defer(Cursor start);

    /// Reads an expression whose value is needed at once; `what` names it in messages, such as
    /// "the address of .org".
    std::optional<std::int32_t> parseKnown(Cursor& p, const char* what);
    /// The same, within bounds.
    std::optional<std::int32_t> parseKnown(Cursor& p, const char* what, std::int32_t least,
                                           std::int32_t most);

private:
    struct Binary {
        OpCode code;
        int precedence = 0;
        int length = 0;
    };

    static Binary binaryAt(Cursor p);
    bool binary(int precedence);
    bool unary(bool lowHigh);
    bool applyPrefix(OpCode code);
    bool primary();
    bool parenthesized();
    bool word();
    bool function(Function function, Cursor at);
    bool sizeOfLabel();
    bool number();
    void reportFailed(const Evaluation& result);
    std::string unknownText(const Evaluation& result, const char* what) const;
    bool push(OpCode code, std::uint32_t argument, Cursor at);
    bool fail(Cursor at, std::string text);

    const Statement& m_statement;
    Names& m_names;
    Reporter& m_reporter;
    Deferred& m_deferred;
    std::vector<Operation> m_operations;
    Cursor m_p;
    bool m_lowHigh = false;
    std::size_t m_stack = 0;
    int m_nesting = 0;
};

} // namespace nesasm
