// SPDX-License-Identifier: MIT
#include "assembler/text/QuotedText.h"

namespace nesasm {

namespace {

bool isEscape(char first, char second) {
    return first == '\\' && second == '"';
}

} // namespace

std::string QuotedText::text() const {
    if (!hasEscapes) {
        return std::string(written);
    }
    std::string result;
    for (std::size_t i = 0; i < written.size(); ++i) {
        const bool isEscaped = i + 1 < written.size() && isEscape(written[i], written[i + 1]);
        result += written[isEscaped ? ++i : i];
    }
    return result;
}

QuotedText readQuoted(Cursor quote, QuotedText::Backslash backslash) {
    QuotedText result;
    const Cursor begin = quote + 1;
    Cursor p = begin;
    for (; *p != '"' && !p.isAtLineEnd(); ++p) {
        if (backslash == QuotedText::Backslash::escapes && isEscape(*p, p[1])) {
            result.hasEscapes = true;
            ++p;
        }
    }
    result.written = begin.upTo(p);
    result.isClosed = *p == '"';
    result.end = result.isClosed ? p + 1 : p;
    return result;
}

} // namespace nesasm
