// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

#include <optional>

namespace nesasm {

/// The directives that put data into the image: .db .dw .ds .align .pad.
class DataDirectives {
public:
    DataDirectives(Assembly& assembly, ExpressionParser& parser);

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

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
