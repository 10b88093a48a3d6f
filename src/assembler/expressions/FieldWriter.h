// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/state/ImageWriter.h"
#include "assembler/state/Reporter.h"
#include "assembler/values/Deferred.h"
#include "assembler/values/Field.h"

#include <cstdint>

namespace nesasm {

/// A field that is to be written, with the opcode before it if it has one.
struct FieldToWrite {
    Field field = Field::byte;
    Cursor start;           ///< where its expression begins
    std::uint32_t next = 0; ///< the address after a branch
    std::uint8_t opcode = 0;
    bool hasOpcode = false;
};

/// Writes expressions into the image: at once when they are known, else as zeros that are filled in
/// when the source has ended.
class FieldWriter {
public:
    FieldWriter(ExpressionParser& parser, ImageWriter& writer, Reporter& reporter,
                Deferred& deferred);

    /// Writes the expression that was read last. A value that does not fit is reported.
    void write(const FieldToWrite& what);

private:
    ExpressionParser& m_parser;
    ImageWriter& m_writer;
    Reporter& m_reporter;
    Deferred& m_deferred;
};

/// Reports a value that does not fit its field, or that is a trap.
void checkField(Diagnostics& diagnostics, const Position& position, Field field, std::int32_t value,
                std::uint32_t next);

} // namespace nesasm
