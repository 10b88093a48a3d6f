// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/FinishedProgram.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <tuple>
#include <vector>

namespace nesasm {

/// A place in a file of SourceLines.
struct SourcePlace {
    std::size_t file = 0;
    std::uint32_t line = 0;
    std::uint32_t column = 0; ///< in bytes, from 1

    bool operator<(const SourcePlace& other) const {
        return std::tie(file, line, column) < std::tie(other.file, other.line, other.column);
    }
};

/// The source files of a run as they were written, for finding where a name stands.
class SourceLines {
public:
    /// `program` must outlive this.
    explicit SourceLines(const FinishedProgram& program);

    /// The files in the order in which they were begun.
    const std::vector<const SourceFile*>& files() const { return m_files; }
    std::size_t indexOf(const SourceFile* file) const { return m_indices.at(file); }

    /// Where a name stands that was defined or used on this line. Of a line of a macro it is the
    /// body's line when the name stands there, each time it does; else it came with an argument,
    /// and it is the call's line, of a call in a macro again that one's. Where it is nowhere to be
    /// found it was put together, and the place is the line's first word. Never empty.
    std::vector<SourcePlace> placesOf(std::string_view name, std::uint32_t line,
                                      OriginId origin) const;

private:
    std::string_view text(const SourceFile* file, std::uint32_t line) const;

    const FinishedProgram& m_program;
    std::vector<const SourceFile*> m_files;
    std::map<const SourceFile*, std::size_t> m_indices;
    std::vector<std::vector<std::string_view>> m_texts; ///< of each file; those not read are empty
};

} // namespace nesasm
