// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/InstructionTable.h"
#include "assembler/statements/Assembly.h"

#include <span>

namespace nesasm {

/// Warns of operands that are legal but may be meant otherwise. Does nothing unless one of its
/// warnings is on.
class OperandHints {
public:
    explicit OperandHints(Assembly& assembly);

    bool areWanted() const { return m_zeroPage || m_hash; }

    /// An instruction that is being assembled, with its operand (at `operand`) as it was read.
    void look(const Instruction& instruction, Mode mode, std::span<const Operation> operations,
              Cursor operand);

    /// A field whose value was not known when it was assembled.
    void lookLate(const DeferredField& field, std::int32_t value);

private:
    void warnOfZeroPage(const Instruction& instruction, Mode mode, std::int32_t value,
                        const Position& position);

    Assembly& m_assembly;
    bool m_zeroPage;
    bool m_hash;
};

} // namespace nesasm
