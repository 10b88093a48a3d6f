// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"
#include "assembler/values/Field.h"

namespace nesasm {

/// A field that is to be written, with the opcode before it if it has one.
struct FieldToWrite {
    Field field = Field::byte;
    Cursor start;           ///< where its expression begins
    std::uint32_t next = 0; ///< the address behind a branch
    std::uint8_t opcode = 0;
    bool hasOpcode = false;
};

/// Writes the expression that `parser` read last into the image: at once when it is known, else as
/// zeros that are filled in when the source has ended. A value that does not fit is reported.
void emitField(Assembly& assembly, ExpressionParser& parser, const FieldToWrite& what);

/// Reports a value that does not fit its field, or that is a trap.
void checkField(Diagnostics& diagnostics, const Position& position, Field field, std::int32_t value,
                std::uint32_t next);

} // namespace nesasm
