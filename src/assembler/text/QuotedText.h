// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Cursor.h"

#include <string>
#include <string_view>

namespace nesasm {

/// A text in double quotes as it stands in a line.
struct QuotedText {
    /// What a backslash before a quote means.
    enum class Backslash {
        escapes, ///< the quote belongs to the text, the backslash does not
        isPlain  ///< nothing: file names have backslashes as separators
    };

    std::string_view written; ///< between the quotes; up to the line's end when it is not closed
    Cursor end;               ///< after the closing quote, or at the line's end
    bool isClosed = false;
    bool hasEscapes = false;

    /// The text that is meant.
    std::string text() const;
};

/// Reads the text whose opening quote is at `quote`.
QuotedText readQuoted(Cursor quote, QuotedText::Backslash backslash);

} // namespace nesasm
