// SPDX-License-Identifier: MIT
#include "assembler/values/Expression.h"

#include <array>

namespace nesasm {

namespace {

/// An operand on the stack of evaluate().
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
std::int64_t wrapping(OpCode code, std::int64_t left, std::int64_t right) {
    const auto a = static_cast<std::uint64_t>(left);
    const auto b = static_cast<std::uint64_t>(right);
    switch (code) {
    case OpCode::multiply:
        return static_cast<std::int64_t>(a * b);
    case OpCode::add:
        return static_cast<std::int64_t>(a + b);
    case OpCode::subtract:
        return static_cast<std::int64_t>(a - b);
    default:
        return static_cast<std::int64_t>(a << b);
    }
}

const char* divide(OpCode code, std::int64_t& left, std::int64_t right) {
    if (right == 0) {
        return "division by zero";
    }
    if (right == -1) {
        left = code == OpCode::divide ? wrapping(OpCode::subtract, 0, left) : 0;
    } else {
        left = code == OpCode::divide ? left / right : left % right;
    }
    return nullptr;
}

const char* shift(OpCode code, std::int64_t& left, std::int64_t right) {
    if (right < 0 || right > 31) {
        return "a shift count must be 0 to 31";
    }
    left = code == OpCode::shiftLeft ? wrapping(code, left, right) : left >> right;
    return nullptr;
}

std::int64_t compared(OpCode code, std::int64_t left, std::int64_t right) {
    switch (code) {
    case OpCode::less:
        return left < right ? 1 : 0;
    case OpCode::lessEqual:
        return left <= right ? 1 : 0;
    case OpCode::greater:
        return left > right ? 1 : 0;
    case OpCode::greaterEqual:
        return left >= right ? 1 : 0;
    case OpCode::equal:
        return left == right ? 1 : 0;
    case OpCode::notEqual:
        return left != right ? 1 : 0;
    case OpCode::logicalAnd:
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
    case OpCode::multiply:
    case OpCode::add:
    case OpCode::subtract:
        a = wrapping(code, a, b);
        return nullptr;
    case OpCode::divide:
    case OpCode::remainder:
        return divide(code, a, b);
    case OpCode::shiftLeft:
    case OpCode::shiftRight:
        return shift(code, a, b);
    case OpCode::bitAnd:
        a &= b;
        return nullptr;
    case OpCode::bitXor:
        a ^= b;
        return nullptr;
    case OpCode::bitOr:
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
    case OpCode::negate:
        number = wrapping(OpCode::subtract, 0, number);
        break;
    case OpCode::complement:
        number = ~number;
        break;
    case OpCode::logicalNot:
        number = number == 0 ? 1 : 0;
        break;
    case OpCode::low:
        number &= 0xFF;
        break;
    case OpCode::high:
        number = (number >> 8) & 0xFF;
        break;
    case OpCode::page:
        number >>= 13;
        break;
    default:
        if (value.bank == NoBank) {
            return "BANK() needs a label in a bank; there is none in this expression";
        }
        if (value.bank == SeveralBanks) {
            return "BANK() needs one label; there are several in this expression";
        }
        number = value.bank;
        break;
    }
    return nullptr;
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

} // namespace

Evaluation evaluate(std::span<const Operation> operations, const SymbolTable& symbols) {
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
        if (operation.code >= OpCode::multiply) {
            --depth;
        }
        result.problem = operation.code >= OpCode::multiply
                             ? applyBinary(operation.code, stack[depth - 1], stack[depth])
                             : applyUnary(operation.code, stack[depth - 1]);
        if (result.problem != nullptr) {
            result.showsValue =
                operation.code == OpCode::shiftLeft || operation.code == OpCode::shiftRight;
            result.value = wrapped(stack[depth].number);
            result.status = Evaluation::Status::failed;
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
    if (evaluation.showsValue) {
        text += ", but it is " + std::to_string(evaluation.value);
    }
    return text;
}

} // namespace nesasm
