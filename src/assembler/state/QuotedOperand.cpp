// SPDX-License-Identifier: MIT
#include "assembler/state/QuotedOperand.h"

#include "assembler/text/FoundText.h"

#include <string>

namespace nesasm {

std::optional<QuotedText> readQuotedOperand(QuotedKind kind, Cursor& p, Reporter& reporter) {
    const bool isText = kind == QuotedKind::text;
    if (*p != '"') {
        reporter.error(p, std::string(isText ? "expected a string" : "expected a file name") +
                              " in double quotes, found " + foundText(p));
        return std::nullopt;
    }
    const QuotedText quoted =
        readQuoted(p, isText ? QuotedText::Backslash::escapes : QuotedText::Backslash::isPlain);
    if (!quoted.isClosed) {
        reportUnclosed(kind, p, reporter);
        return std::nullopt;
    }
    p = quoted.end;
    return quoted;
}

void reportUnclosed(QuotedKind kind, Cursor start, Reporter& reporter) {
    reporter.error(start, std::string(kind == QuotedKind::text ? "this string" : "this file name") +
                              " has no closing '\"'");
}

} // namespace nesasm
