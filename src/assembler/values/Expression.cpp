// SPDX-License-Identifier: MIT
#include "assembler/values/Expression.h"

#include <array>

namespace nesasm {

namespace {

struct Value {
    std::int64_t number;
    std::int32_t bank;
};

std::int32_t wrapped(std::int64_t number) {
    return static_cast<std::int32_t>(
        static_cast<std::uint32_t>(static_cast<std::uint64_t>(number)));
}

std::int32_t mergedBank(std::int32_t a, std::int32_t b) {
    if (a == NoBank) {
        return b;
    }
    return b == NoBank ? a : SeveralBanks;
}

/// Sums, differences and products wrap at 64 bits, which unsigned arithmetic gives.
std::int64_t wrapping(std::uint64_t number) {
    return static_cast<std::int64_t>(number);
}

std::int64_t quotient(std::int64_t left, std::int64_t right) {
    return right == -1 ? wrapping(0 - static_cast<std::uint64_t>(left)) : left / right;
}

std::int64_t remainder(std::int64_t left, std::int64_t right) {
    return right == -1 ? 0 : left % right;
}

constexpr std::int64_t truth(bool isTrue) {
    return isTrue ? 1 : 0;
}

/// What keeps an operator from being applied, nullptr for nothing. `right` is the second operand of
/// those that have two.
const char* problemOf(OpCode code, const Value& left, const Value& right) {
    if (code == OpCode::divide || code == OpCode::remainder) {
        return right.number == 0 ? "division by zero" : nullptr;
    }
    if (code == OpCode::shiftLeft || code == OpCode::shiftRight) {
        return right.number < 0 || right.number > 31 ? "a shift count must be 0 to 31" : nullptr;
    }
    if (code == OpCode::bank && left.bank == NoBank) {
        return "BANK() needs a label in a bank; there is none in this expression";
    }
    if (code == OpCode::bank && left.bank == SeveralBanks) {
        return "BANK() needs one label; there are several in this expression";
    }
    return nullptr;
}

/// The result of an operator that has no problem with its operands.
std::int64_t applied(OpCode code, const Value& left, const Value& right) {
    const std::int64_t a = left.number;
    const std::int64_t b = right.number;
    const auto bitsOfA = static_cast<std::uint64_t>(a);
    const auto bitsOfB = static_cast<std::uint64_t>(b);
    switch (code) {
    case OpCode::literal:
    case OpCode::here:
    case OpCode::value:
    case OpCode::sizeOf:
        break; // no operators
    case OpCode::negate:
        return wrapping(0 - bitsOfA);
    case OpCode::complement:
        return ~a;
    case OpCode::logicalNot:
        return truth(a == 0);
    case OpCode::low:
        return a & 0xFF;
    case OpCode::high:
        return (a >> 8) & 0xFF;
    case OpCode::bank:
        return left.bank;
    case OpCode::page:
        return a >> 13;
    case OpCode::multiply:
        return wrapping(bitsOfA * bitsOfB);
    case OpCode::divide:
        return quotient(a, b);
    case OpCode::remainder:
        return remainder(a, b);
    case OpCode::add:
        return wrapping(bitsOfA + bitsOfB);
    case OpCode::subtract:
        return wrapping(bitsOfA - bitsOfB);
    case OpCode::shiftLeft:
        return wrapping(bitsOfA << bitsOfB);
    case OpCode::shiftRight:
        return a >> b;
    case OpCode::less:
        return truth(a < b);
    case OpCode::lessEqual:
        return truth(a <= b);
    case OpCode::greater:
        return truth(a > b);
    case OpCode::greaterEqual:
        return truth(a >= b);
    case OpCode::equal:
        return truth(a == b);
    case OpCode::notEqual:
        return truth(a != b);
    case OpCode::bitAnd:
        return a & b;
    case OpCode::bitXor:
        return a ^ b;
    case OpCode::bitOr:
        return a | b;
    case OpCode::logicalAnd:
        return truth(a != 0 && b != 0);
    case OpCode::logicalOr:
        return truth(a != 0 || b != 0);
    }
    return a;
}

/// Fetches an operand; returns why its value is not known.
Evaluation::Status fetch(const Operation& operation, const SymbolTable& symbols, Value& value) {
    using Status = Evaluation::Status;
    if (operation.code == OpCode::literal || operation.code == OpCode::here) {
        value.number = operation.argument;
        value.bank = operation.code == OpCode::here ? operation.bank : NoBank;
        return Status::known;
    }
    const Symbol& symbol = symbols[operation.argument];
    if (symbol.isBroken) {
        return Status::broken;
    }
    if (operation.code == OpCode::sizeOf) {
        if (symbol.size == None) {
            return Status::unknown;
        }
        value = {symbol.size, NoBank};
        return Status::known;
    }
    if (!symbol.isKnown) {
        return Status::unknown;
    }
    value = {symbol.value, symbol.bank};
    return Status::known;
}

/// An expression that is one operand.
Evaluation evaluateOperand(const Operation& operation, const SymbolTable& symbols) {
    Value value{0, NoBank};
    Evaluation result;
    result.status = fetch(operation, symbols, value);
    result.value = wrapped(value.number);
    result.bank = value.bank;
    result.symbol = operation.argument;
    result.column = operation.column;
    return result;
}

} // namespace

Evaluation evaluate(std::span<const Operation> operations, const SymbolTable& symbols) {
    if (operations.size() == 1) { // as most are
        return evaluateOperand(operations.front(), symbols);
    }
    std::array<Value, LargestStack> stack;
    std::size_t depth = 0;
    Evaluation result;
    for (const Operation& operation : operations) {
        if (operation.code <= OpCode::sizeOf) {
            result.status = fetch(operation, symbols, stack[depth++]);
            if (result.status != Evaluation::Status::known) {
                result.symbol = operation.argument;
                result.column = operation.column;
                return result;
            }
            continue;
        }
        const bool hasTwoOperands = operation.code >= OpCode::multiply;
        depth -= hasTwoOperands ? 1 : 0;
        Value& left = stack[depth - 1];
        const Value right = hasTwoOperands ? stack[depth] : Value{0, NoBank};
        result.problem = problemOf(operation.code, left, right);
        if (result.problem != nullptr) {
            result.showsValue =
                operation.code == OpCode::shiftLeft || operation.code == OpCode::shiftRight;
            result.value = wrapped(right.number);
            result.status = Evaluation::Status::failed;
            result.column = operation.column;
            return result;
        }
        left = {applied(operation.code, left, right), mergedBank(left.bank, right.bank)};
    }
    result.value = wrapped(stack[0].number);
    result.bank = stack[0].bank;
    return result;
}

std::string problemText(const Evaluation& evaluation) {
    std::string text = evaluation.problem;
    if (evaluation.showsValue) {
        text += ", but it is " + std::to_string(evaluation.value);
    }
    return text;
}

} // namespace nesasm
