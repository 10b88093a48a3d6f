// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/state/Reporter.h"
#include "assembler/text/QuotedText.h"

#include <optional>

namespace nesasm {

/// What an operand in double quotes is.
enum class QuotedKind {
    text,    ///< a quote in it is written \"
    fileName ///< a backslash in it is a separator
};

/// Reads the operand in double quotes at `p`, which is moved to its end. Nothing when there is none
/// or when it is not closed; that is reported.
std::optional<QuotedText> readQuotedOperand(QuotedKind kind, Cursor& p, Reporter& reporter);

/// Reports that the operand at `start` has no closing quote.
void reportUnclosed(QuotedKind kind, Cursor start, Reporter& reporter);

} // namespace nesasm
