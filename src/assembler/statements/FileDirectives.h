// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

#include <optional>
#include <string>
#include <string_view>

namespace nesasm {

/// The directives that name files: .include .incbin .incchr; and the input file itself.
class FileDirectives {
public:
    FileDirectives(Assembly& assembly, ExpressionParser& parser);

    // `p` is at the operand.
    void include(Cursor p);
    void binary(Cursor p);
    void tiles(Cursor p);

    /// Begins with the file named on the command line. Returns "" or why it cannot be read.
    std::string openInput(const std::string& name);

private:
    std::optional<std::string_view> fileName(Cursor& p);
    std::optional<std::string> find(std::string_view name, Cursor at, bool isSource);
    bool countWork(std::uint64_t work, Cursor at);
    bool isTooDeep(std::string_view name, Cursor at);
    void enter(const SourceFile& file, std::string_view name, bool wasRead);
    void putPart(const DataFile& file, std::size_t offset, std::size_t count, std::string_view name,
                 Cursor at);
    void put(const std::uint8_t* bytes, std::size_t count, Cursor at);
    void reportBeyondLastBank(std::size_t count, Cursor at);
    void missing(std::string_view name, const std::string& why, Cursor at);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
};

} // namespace nesasm
