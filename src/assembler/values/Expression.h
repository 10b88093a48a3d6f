// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/values/SymbolTable.h"

#include <cstdint>
#include <span>
#include <string>

namespace nesasm {

/// The operations that expressions are made of.
enum class OpCode : std::uint8_t {
    literal, ///< `argument`, unsigned
    here,    ///< the address `argument` in the bank `bank`
    value,   ///< of the symbol `argument`
    sizeOf,  ///< of the label `argument`
    negate,
    complement,
    logicalNot,
    low,
    high,
    bank,
    page,
    multiply,
    divide,
    remainder,
    add,
    subtract,
    shiftLeft,
    shiftRight,
    less,
    lessEqual,
    greater,
    greaterEqual,
    equal,
    notEqual,
    bitAnd,
    bitXor,
    bitOr,
    logicalAnd,
    logicalOr
};

/// One step of an expression in reverse Polish notation.
struct Operation {
    OpCode code = OpCode::literal;
    std::uint16_t bank = 0;
    std::uint32_t argument = 0;
    std::uint32_t column = 0; ///< in its line, in bytes from 0
};

/// The deepest stack that computing an expression may need.
inline constexpr std::size_t LargestStack = 256;

/// The result of computing an expression.
struct Evaluation {
    enum class Status : std::uint8_t {
        known,
        unknown, ///< `symbol`, used at `column`, has no value yet
        failed,  ///< `problem`, at `column`
        broken   ///< it needs a symbol whose definition has been reported as wrong
    };

    Status status = Status::known;
    std::int32_t value = 0;
    std::int32_t bank = NoBank;
    std::uint32_t column = 0;
    SymbolId symbol = 0;
    const char* problem = nullptr;
    bool showsValue = false; ///< the message ends with `value`, which was found instead
};

/// Computes an expression as far as its symbols are known: in 64 bits, the result wrapped to 32
/// signed. The operations must be well formed and need at most LargestStack values at once.
Evaluation evaluate(std::span<const Operation> operations, const SymbolTable& symbols);

/// The problem of a failed evaluation, for a message.
std::string problemText(const Evaluation& evaluation);

} // namespace nesasm
