// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/reading/FileFinder.h"
#include "assembler/reading/FileStore.h"
#include "assembler/state/Frames.h"
#include "assembler/state/ImageWriter.h"
#include "assembler/state/Reporter.h"
#include "assembler/text/Problem.h"

#include <optional>
#include <string>
#include <string_view>

namespace nesasm {

/// The directives that name files: .include .incbin .incchr; and the input file itself.
class FileDirectives {
public:
    FileDirectives(FileFinder& finder, FileStore& files, ExpressionParser& parser, Frames& frames,
                   ImageWriter& writer, Reporter& reporter);

    // `p` is at the operand.
    void include(Cursor p);
    void binary(Cursor p);
    void tiles(Cursor p);

    /// Begins with the file named on the command line, whose name must last.
    Problem openInput(const std::string& name);

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

    FileFinder& m_finder;
    FileStore& m_files;
    ExpressionParser& m_parser;
    Frames& m_frames;
    ImageWriter& m_writer;
    Reporter& m_reporter;
};

} // namespace nesasm
