// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/expressions/FieldWriter.h"
#include "assembler/state/ImageWriter.h"
#include "assembler/state/Reporter.h"
#include "assembler/state/Statement.h"

#include <optional>

namespace nesasm {

/// The directives that put data into the image: .db .dw .ds .align .pad.
class DataDirectives {
public:
    DataDirectives(const Statement& statement, ExpressionParser& parser, FieldWriter& fields,
                   ImageWriter& writer, Reporter& reporter);

    // `p` is at the operand.
    void bytes(Cursor p) { data(Field::byte, p); }
    void words(Cursor p) { data(Field::word, p); }
    void space(Cursor p);
    void align(Cursor p);
    void pad(Cursor p);

private:
    void data(Field field, Cursor p);
    bool item(Field field, Cursor& p);
    bool string(Cursor& p);
    void alignOrPadTo(std::int64_t count, Cursor start, Cursor p);
    void fill(std::size_t count, std::uint8_t byte, Cursor start);

    const Statement& m_statement;
    ExpressionParser& m_parser;
    FieldWriter& m_fields;
    ImageWriter& m_writer;
    Reporter& m_reporter;
};

} // namespace nesasm
