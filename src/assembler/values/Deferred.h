// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Position.h"
#include "assembler/values/Expression.h"
#include "assembler/values/Field.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace nesasm {

/// An expression that had symbols without a value when it was read.
struct DeferredExpression {
    std::uint32_t first = 0; ///< operation in the store
    std::uint32_t count = 0;
    Position position; ///< of the expression; its operations' columns count in the same line
};

/// A field of the image that waits for its value.
struct DeferredField {
    DeferredExpression expression;
    std::uint32_t number = 0; ///< from Image::nextPatch
    std::uint32_t next = 0;   ///< the address after a branch
    std::uint16_t bank = 0;
    std::uint16_t offset = 0;
    Field field = Field::byte;
};

/// A symbol whose value is computed later (a second value must be the same as the first).
struct DeferredSymbol {
    DeferredExpression expression;
    SymbolId symbol = 0;
    bool isSecond = false;
};

/// An .assert whose condition is computed later.
struct DeferredAssertion {
    DeferredExpression expression;
    std::string text;
};

/// Fields, symbols and assertions that can be computed only after the whole source was read.
class Deferred {
public:
    DeferredExpression keep(std::span<const Operation> operations, const Position& position) {
        const auto first = static_cast<std::uint32_t>(m_operations.size());
        m_operations.insert(m_operations.end(), operations.begin(), operations.end());
        return {first, static_cast<std::uint32_t>(operations.size()), position};
    }
    std::span<const Operation> operations(const DeferredExpression& expression) const {
        return std::span(m_operations).subspan(expression.first, expression.count);
    }

    std::vector<DeferredField> fields;
    std::vector<DeferredSymbol> symbols;
    std::vector<DeferredAssertion> assertions;

private:
    std::vector<Operation> m_operations;
};

} // namespace nesasm
