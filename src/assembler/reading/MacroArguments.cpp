// SPDX-License-Identifier: MIT
#include "assembler/reading/MacroArguments.h"

#include "assembler/text/Characters.h"
#include "assembler/text/QuotedText.h"
#include "assembler/text/Text.h"

#include <algorithm>

namespace nesasm {

namespace {

/// No line of a macro may grow beyond this.
constexpr std::size_t LongestLine = std::size_t{1} << 20U;

/// The end of the argument at `p`: a comma outside of brackets and quotes, or the statement's end.
Cursor argumentEnd(Cursor p) {
    int depth = 0;
    while (!p.isAtStatementEnd()) {
        if (*p == ',' && depth <= 0) {
            break;
        }
        if (*p == '(' || *p == '[') {
            ++depth;
        } else if (*p == ')' || *p == ']') {
            --depth;
        }
        p = afterQuoted(p);
    }
    return p;
}

/// When `p` is at ", x" or ", y" and nothing else comes before the next comma: the place after it.
Cursor afterIndex(Cursor p) {
    if (*p != ',') {
        return p;
    }
    const Cursor letter = (p + 1).afterBlanks();
    if (lowered(*letter) != 'x' && lowered(*letter) != 'y') {
        return p;
    }
    const Cursor after = (letter + 1).afterBlanks();
    return *after == ',' || after.isAtStatementEnd() ? after : p;
}

std::string_view trimmed(Cursor begin, Cursor end) {
    std::string_view text = begin.upTo(end);
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool isName(std::string_view text) {
    if (text.starts_with('.') ? text.size() == 1 : text.empty() || !isWordStart(text[0])) {
        return false;
    }
    return std::all_of(text.begin(), text.end(), isWordPart);
}

/// True when the parenthesis that `text` begins with closes at its end, right before ",y", or after
/// ",x": then it is not only grouping.
bool isIndirect(std::string_view text) {
    int depth = 0;
    std::size_t close = 0;
    for (; close < text.size(); ++close) {
        depth += text[close] == '(' ? 1 : text[close] == ')' ? -1 : 0;
        if (depth == 0) {
            break;
        }
    }
    std::string after;
    for (const char c : text.substr(std::min(close + 1, text.size()))) {
        if (!isBlank(c)) {
            after += lowered(c);
        }
    }
    return after.empty() || after == ",y";
}

} // namespace

Cursor afterQuoted(Cursor p) {
    if (*p == '\'' && !isLineEnd(p[1]) && p[2] == '\'') {
        return p + 3;
    }
    return *p == '"' ? readQuoted(p, QuotedText::Backslash::escapes).end : p + 1;
}

bool MacroArguments::read(Cursor& p) {
    m_count = 0;
    p.skipBlanks();
    if (p.isAtStatementEnd()) {
        return true;
    }
    for (;;) {
        const Cursor begin = p;
        p = argumentEnd(p);
        if (!trimmed(begin, p).empty()) {
            for (Cursor after = afterIndex(p); after != p; after = afterIndex(p)) {
                p = after;
            }
        }
        if (m_count == LargestCount) {
            p = begin.afterBlanks();
            return false;
        }
        m_texts[m_count++] = trimmed(begin, p);
        if (*p != ',') {
            return true;
        }
        ++p;
    }
}

std::string_view MacroArguments::operator[](std::size_t number) const {
    return number >= 1 && number <= m_count ? m_texts[number - 1] : std::string_view();
}

unsigned kindOfArgument(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    if (text.size() == 1 &&
        (lowered(text[0]) == 'a' || lowered(text[0]) == 'x' || lowered(text[0]) == 'y')) {
        return 1;
    }
    switch (text[0]) {
    case '#':
        return 2;
    case '[':
        return 4;
    case '(':
        return isIndirect(text) ? 4 : 3;
    case '"':
        return 5;
    default:
        return isName(text) ? 6 : 3;
    }
}

bool expandLine(std::string_view line, const MacroArguments& arguments, std::uint32_t number,
                std::string& out) {
    while (!line.empty()) {
        const std::size_t mark = std::min(line.find('\\'), line.size());
        out.append(line.substr(0, mark));
        line.remove_prefix(mark);
        if (line.empty()) {
            break;
        }
        const char second = line.size() > 1 ? line[1] : '\n';
        const char third = line.size() > 2 ? line[2] : '\n';
        std::size_t used = 2;
        if (second >= '1' && second <= '9') {
            out.append(arguments[static_cast<std::size_t>(second - '0')]);
        } else if (second == '@') {
            const std::string digits = std::to_string(number);
            out.append(digits.size() < 5 ? 5 - digits.size() : 0, '0').append(digits);
        } else if (second == '#') {
            out += std::to_string(arguments.count());
        } else if (second == '?' && third >= '1' && third <= '9') {
            out += std::to_string(kindOfArgument(arguments[static_cast<std::size_t>(third - '0')]));
            used = 3;
        } else {
            out += '\\';
            used = 1;
        }
        line.remove_prefix(used);
        if (out.size() > LongestLine) {
            return false;
        }
    }
    return true;
}

} // namespace nesasm
