// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/OperandHints.h"

#include <string>
#include <vector>

namespace nesasm {

/// Settles what had to wait for the end of the source: symbols made from later ones, fields of the
/// image, assertions.
class Resolver {
public:
    explicit Resolver(Assembly& assembly);

    void run();

private:
    enum class Visit : std::uint8_t { fresh, waiting, done };

    void settle(std::uint32_t first);
    bool waitForOthers(const DeferredExpression& expression);
    void settleOne(std::uint32_t index);
    void settleFields();
    void settleAssertions();
    bool compute(const DeferredExpression& expression, Evaluation& result);
    void reportUnknown(const Position& position, const Symbol& symbol);
    std::string undefinedText(const Symbol& symbol) const;
    void reportUnused();
    bool isAccumulator(const DeferredField& field);

    Assembly& m_assembly;
    OperandHints m_hints;
    std::vector<std::uint32_t> m_wrongLines; ///< those with errors before this began
    std::vector<Visit> m_visits;
    std::vector<std::uint32_t> m_waiting;
};

} // namespace nesasm
