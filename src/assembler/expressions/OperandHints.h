// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/InstructionTable.h"
#include "assembler/messages/Diagnostics.h"
#include "assembler/values/Deferred.h"
#include "assembler/values/Image.h"
#include "assembler/values/SymbolTable.h"

#include <span>

namespace nesasm {

/// Warns of operands that are legal but may be meant otherwise. Does nothing unless one of its
/// warnings is on.
class OperandHints {
public:
    OperandHints(Diagnostics& diagnostics, const SymbolTable& symbols, const Image& image);

    bool areWanted() const { return m_zeroPage || m_hash; }

    /// An instruction that is being assembled, with its operand as it was read.
    void look(const Instruction& instruction, Mode mode, std::span<const Operation> operations,
              const Position& operand);

    /// A field whose value was not known when it was assembled.
    void lookLate(const DeferredField& field, std::int32_t value);

private:
    void warnOfZeroPage(const Instruction& instruction, Mode mode, std::int32_t value,
                        const Position& position);

    Diagnostics& m_diagnostics;
    const SymbolTable& m_symbols;
    const Image& m_image;
    bool m_zeroPage;
    bool m_hash;
};

} // namespace nesasm
