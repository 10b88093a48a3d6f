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
    void bytes(const char* p) { data(Field::byte, p); }
    void words(const char* p) { data(Field::word, p); }
    void space(const char* p);
    void align(const char* p);
    void pad(const char* p);

private:
    void data(Field field, const char* p);
    bool item(Field field, const char*& p);
    bool string(const char*& p);
    void alignOrPadTo(std::int64_t count, const char* start, const char* p);
    void fill(std::size_t count, std::uint8_t byte, const char* start);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
