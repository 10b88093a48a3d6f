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
    if (a == kNoBank)
        return b;
    return b == kNoBank ? a : kSeveralBanks;
}

/// Sums, differences and products wrap at 64 bits, which unsigned arithmetic gives.
std::int64_t wrapping(OpCode code, std::int64_t left, std::int64_t right) {
    const auto a = static_cast<std::uint64_t>(left);
    const auto b = static_cast<std::uint64_t>(right);
    switch (code) {
    case OpCode::Multiply:
        return static_cast<std::int64_t>(a * b);
    case OpCode::Add:
        return static_cast<std::int64_t>(a + b);
    case OpCode::Subtract:
        return static_cast<std::int64_t>(a - b);
    default:
        return static_cast<std::int64_t>(a << b);
    }
}

const char* divide(OpCode code, std::int64_t& left, std::int64_t right) {
    if (right == 0)
        return "division by zero";
    if (right == -1)
        left = code == OpCode::Divide ? wrapping(OpCode::Subtract, 0, left) : 0;
    else
        left = code == OpCode::Divide ? left / right : left % right;
    return nullptr;
}

const char* shift(OpCode code, std::int64_t& left, std::int64_t right) {
    if (right < 0 || right > 31)
        return "a shift count must be 0 to 31";
    left = code == OpCode::ShiftLeft ? wrapping(code, left, right) : left >> right;
    return nullptr;
}

std::int64_t compared(OpCode code, std::int64_t left, std::int64_t right) {
    switch (code) {
    case OpCode::Less:
        return left < right ? 1 : 0;
    case OpCode::LessEqual:
        return left <= right ? 1 : 0;
    case OpCode::Greater:
        return left > right ? 1 : 0;
    case OpCode::GreaterEqual:
        return left >= right ? 1 : 0;
    case OpCode::Equal:
        return left == right ? 1 : 0;
    case OpCode::NotEqual:
        return left != right ? 1 : 0;
    case OpCode::LogicalAnd:
        return left != 0 && right != 0 ? 1 : 0;
    default:
        return left != 0 || right != 0 ? 1 : 0;
    }
}

/// Puts the result in `left`; returns the problem or nullptr.
const char* applyBinary(OpCode code, Value& left, const Value& right) {
    left.bank = mergedBank(left.bank, right.bank);
    std::int64_t& a = left.number;
    const std::int64_t b = right.number;
    switch (code) {
    case OpCode::Multiply:
    case OpCode::Add:
    case OpCode::Subtract:
        a = wrapping(code, a, b);
        return nullptr;
    case OpCode::Divide:
    case OpCode::Remainder:
        return divide(code, a, b);
    case OpCode::ShiftLeft:
    case OpCode::ShiftRight:
        return shift(code, a, b);
    case OpCode::And:
        a &= b;
        return nullptr;
    case OpCode::Xor:
        a ^= b;
        return nullptr;
    case OpCode::Or:
        a |= b;
        return nullptr;
    default:
        a = compared(code, a, b);
        return nullptr;
    }
}

const char* applyUnary(OpCode code, Value& value) {
    std::int64_t& number = value.number;
    switch (code) {
    case OpCode::Negate:
        number = wrapping(OpCode::Subtract, 0, number);
        break;
    case OpCode::Complement:
        number = ~number;
        break;
    case OpCode::Not:
        number = number == 0 ? 1 : 0;
        break;
    case OpCode::Low:
        number &= 0xFF;
        break;
    case OpCode::High:
        number = (number >> 8) & 0xFF;
        break;
    case OpCode::Page:
        number >>= 13;
        break;
    default:
        if (value.bank == kNoBank)
            return "BANK() needs a label that lies in a bank; there is none in this expression";
        if (value.bank == kSeveralBanks)
            return "BANK() needs one label; there are several in this expression";
        number = value.bank;
        break;
    }
    return nullptr;
}

/// Fetches an operand; returns what keeps it from being known.
Evaluation::Status fetch(const Operation& operation, const SymbolTable& symbols, Value& value) {
    using Status = Evaluation::Status;
    if (operation.code == OpCode::Literal || operation.code == OpCode::Here) {
        value.number = operation.argument;
        value.bank = operation.code == OpCode::Here ? operation.bank : kNoBank;
        return Status::Known;
    }
    const Symbol& symbol = symbols[operation.argument];
    if (symbol.isBroken)
        return Status::Broken;
    if (operation.code == OpCode::SizeOf) {
        if (symbol.size == kNone)
            return Status::Unknown;
        value = {symbol.size, kNoBank};
        return Status::Known;
    }
    if (!symbol.isKnown)
        return Status::Unknown;
    value = {symbol.value, symbol.bank};
    return Status::Known;
}

} // namespace

Evaluation evaluate(std::span<const Operation> operations, const SymbolTable& symbols) {
    std::array<Value, kLargestStack> stack;
    std::size_t depth = 0;
    Evaluation result;
    for (const Operation& operation : operations) {
        if (operation.code <= OpCode::SizeOf) {
            result.status = fetch(operation, symbols, stack[depth++]);
            if (result.status != Evaluation::Status::Known) {
                result.symbol = operation.argument;
                result.column = operation.column;
                return result;
            }
            continue;
        }
        if (operation.code >= OpCode::Multiply)
            --depth;
        result.problem = operation.code >= OpCode::Multiply
                             ? applyBinary(operation.code, stack[depth - 1], stack[depth])
                             : applyUnary(operation.code, stack[depth - 1]);
        if (result.problem != nullptr) {
            result.showsValue =
                operation.code == OpCode::ShiftLeft || operation.code == OpCode::ShiftRight;
            result.value = wrapped(stack[depth].number);
            result.status = Evaluation::Status::Failed;
            result.column = operation.column;
            return result;
        }
    }
    result.value = wrapped(stack[0].number);
    result.bank = stack[0].bank;
    return result;
}

std::string problemText(const Evaluation& evaluation) {
    std::string text = evaluation.problem;
    if (evaluation.showsValue)
        text += ", but it is " + std::to_string(evaluation.value);
    return text;
}

} // namespace nesasm
