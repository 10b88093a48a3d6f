// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/OperandHints.h"
#include "assembler/reading/Origins.h"
#include "assembler/state/Reporter.h"
#include "assembler/statements/Definitions.h"
#include "assembler/values/Deferred.h"
#include "assembler/values/Image.h"
#include "assembler/values/SymbolTable.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace nesasm {

/// Settles what had to wait for the end of the source: symbols made from later ones, fields of the
/// image, assertions.
class Resolver {
public:
    Resolver(SymbolTable& symbols, Deferred& deferred, Image& image, const Origins& origins,
             OperandHints& hints, Reporter& reporter);

    void run();

    /// Warns of symbols that nothing uses.
    void reportUnused(std::span<const Definition> definitions);

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
    bool isAccumulator(const DeferredField& field);

    SymbolTable& m_symbols;
    Deferred& m_deferred;
    Image& m_image;
    const Origins& m_origins;
    OperandHints& m_hints;
    Reporter& m_reporter;
    std::vector<std::uint32_t> m_wrongLines; ///< those with errors before this began
    std::vector<Visit> m_visits;
    std::vector<std::uint32_t> m_waiting;
};

} // namespace nesasm
