// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/values/SymbolTable.h"

#include <cstdint>
#include <span>
#include <string>

namespace nesasm {

enum class OpCode : std::uint8_t {
    Literal, ///< `argument`, unsigned
    Here,    ///< the address `argument` in the bank `bank`
    Value,   ///< of the symbol `argument`
    SizeOf,  ///< of the label `argument`
    Negate,
    Complement,
    Not,
    Low,
    High,
    Bank,
    Page,
    Multiply,
    Divide,
    Remainder,
    Add,
    Subtract,
    ShiftLeft,
    ShiftRight,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Equal,
    NotEqual,
    And,
    Xor,
    Or,
    LogicalAnd,
    LogicalOr
};

/// One step of an expression in reverse Polish notation.
struct Operation {
    OpCode code = OpCode::Literal;
    std::uint16_t bank = 0;
    std::uint32_t argument = 0;
    std::uint32_t column = 0; ///< where it stands in its line, in bytes from 0
};

/// The most values that may wait at once while an expression is computed.
inline constexpr std::size_t kLargestStack = 256;

/// What computing an expression came to.
struct Evaluation {
    enum class Status : std::uint8_t {
        Known,
        Unknown, ///< `symbol`, used at `column`, has no value yet
        Failed,  ///< `problem`, at `column`
        Broken   ///< it needs a symbol whose definition has been reported as wrong
    };

    Status status = Status::Known;
    std::int32_t value = 0;
    std::int32_t bank = kNoBank;
    std::uint32_t column = 0;
    SymbolId symbol = 0;
    const char* problem = nullptr;
    bool showsValue = false; ///< `value` is what was found instead of what the problem asks for
};

/// Computes an expression as far as its symbols are known: in 64 bits, the result wrapped to 32
/// signed. The operations must be well formed and need at most kLargestStack values at once.
Evaluation evaluate(std::span<const Operation> operations, const SymbolTable& symbols);

/// The problem of a failed evaluation, for a message.
std::string problemText(const Evaluation& evaluation);

} // namespace nesasm
