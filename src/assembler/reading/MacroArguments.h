// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Cursor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace nesasm {

/// Splits a macro call's line into its arguments, kept as views into the line.
class MacroArguments {
public:
    static constexpr std::size_t LargestCount = 9;

    /// Splits the text from `p` to the end of the statement. False when there are more than nine
    /// arguments; `p` is then at the tenth.
    bool read(Cursor& p);

    std::size_t count() const { return m_count; }
    /// The text of argument `number` (from 1), "" when it is missing.
    std::string_view operator[](std::size_t number) const;

private:
    std::array<std::string_view, LargestCount> m_texts;
    std::size_t m_count = 0;
};

/// What \?n gives: 0 absent, 1 register, 2 immediate, 3 absolute or indexed, 4 indirect, 5 string,
/// 6 plain label.
unsigned kindOfArgument(std::string_view text);

/// The place after the quoted text, character or single byte at `p`, so that marks inside quotes
/// are skipped: a string up to its closing quote or the line's end, a character as three bytes.
Cursor afterQuoted(Cursor p);

/// Appends a macro's line to `out` with its arguments filled in. False when it got too long.
bool expandLine(std::string_view line, const MacroArguments& arguments, std::uint32_t number,
                std::string& out);

} // namespace nesasm
