// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace nesasm {

/// The warnings; WarningTable has their names.
enum class Warning : std::uint8_t {
    oddNumber,
    fileCase,
    valueTruncated,
    jmpIndirectPageEnd,
    unusedBankGap,
    shadowedSymbol,
    userWarning,
    oddChrSize,
    overwrite,
    zeroPagePossible,
    unusedSymbol,
    missingHash
};
inline constexpr std::size_t WarningCount = 12;

/// A row for each Warning, in its order: the name that is printed with it, whether it is on
/// without an option, and what it warns of.
struct WarningRow {
    std::string_view name;
    bool onByDefault;
    std::string_view text;
};

inline constexpr std::array<WarningRow, WarningCount> WarningTable{{
    {"odd-number", true, "a $ without a hexadecimal digit after it counts as 0"},
    {"file-case", true, "a file was found only by ignoring the case of letters"},
    {"value-truncated", true, "a value in .db or .dw does not fit and was truncated"},
    {"jmp-indirect-page-end", true,
     "JMP [$xxFF] takes its high byte from the start of the same page"},
    {"unused-bank-gap", true, "the header and the banks used disagree"},
    {"shadowed-symbol", true, "a symbol is named like an instruction or a function"},
    {"user-warning", true, "the source asked for it with .warning"},
    {"odd-chr-size", true, "a .chr file does not hold whole tiles"},
    {"overwrite", false, "bytes overwrite earlier ones"},
    {"zero-page-possible", false, "an absolute operand is in the zero page"},
    {"unused-symbol", false, "a symbol is defined and never used"},
    {"missing-hash", false, "an operand looks like a number whose # was forgotten"},
}};

constexpr const WarningRow& rowOf(Warning warning) {
    return WarningTable[static_cast<std::size_t>(warning)];
}

} // namespace nesasm
