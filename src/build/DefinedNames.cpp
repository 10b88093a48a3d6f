// SPDX-License-Identifier: MIT
#include "build/DefinedNames.h"

#include "build/SourcePieces.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>

namespace kestrel {

namespace {

/// The instructions, and the directives that work without a dot.
constexpr std::array<std::string_view, 83> Words{
    "adc",    "and",    "asl",    "bank",   "bcc",     "bcs",     "beq",     "bit",     "bmi",
    "bne",    "bpl",    "brk",    "bvc",    "bvs",     "byte",    "clc",     "cld",     "cli",
    "clv",    "cmp",    "cpx",    "cpy",    "db",      "dec",     "dex",     "dey",     "ds",
    "dw",     "else",   "elseif", "endif",  "endm",    "eor",     "equ",     "if",      "ifdef",
    "ifndef", "inc",    "incbin", "incchr", "include", "ineschr", "inesmap", "inesmir", "inesprg",
    "inx",    "iny",    "jmp",    "jsr",    "lda",     "ldx",     "ldy",     "list",    "lsr",
    "macro",  "nolist", "nop",    "ora",    "org",     "pha",     "php",     "pla",     "plp",
    "rol",    "ror",    "rs",     "rsset",  "rti",     "rts",     "sbc",     "sec",     "sed",
    "sei",    "sta",    "stx",    "sty",    "tax",     "tay",     "tsx",     "txa",     "txs",
    "tya",    "word",
};
/// The directives that work with one. ".labels" is a label unless a quote follows.
constexpr std::array<std::string_view, 39> DottedWords{
    "align",   "assert",  "bank",    "bss",     "byte",    "code",   "data",   "db",
    "ds",      "dw",      "else",    "elseif",  "endif",   "endm",   "endr",   "equ",
    "error",   "fail",    "if",      "ifdef",   "ifndef",  "incbin", "incchr", "include",
    "ineschr", "inesmap", "inesmir", "inesprg", "list",    "macro",  "nolist", "org",
    "pad",     "rept",    "rs",      "rsset",   "warning", "word",   "zp",
};

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isAlike(std::string_view word, std::string_view keyword) {
    return std::ranges::equal(word, keyword, {}, lowered);
}

/// Whether a word begins a statement that is no macro's call.
bool isKeyword(std::string_view word) {
    const auto matches = [](std::string_view name) {
        return [name](std::string_view keyword) { return isAlike(name, keyword); };
    };
    return word.starts_with('.') ? std::ranges::any_of(DottedWords, matches(word.substr(1)))
                                 : std::ranges::any_of(Words, matches(word));
}

/// Whether a word is one of these directives, with a dot or without.
bool isOneOf(std::string_view word, std::initializer_list<std::string_view> names) {
    word.remove_prefix(word.starts_with('.') ? 1 : 0);
    return std::ranges::any_of(names, [&](std::string_view name) { return isAlike(word, name); });
}

/// Goes through the beginning of a line.
class LineStart {
public:
    explicit LineStart(std::string_view line)
        : m_rest(line) {}

    bool isFirstColumn() const { return m_isFirstColumn; }

    /// The name that comes next; empty when there is none.
    std::string_view name() const {
        const auto* const end = std::ranges::find_if_not(m_rest, isNameByte);
        const std::string_view word =
            m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
        const std::size_t first = word.find_first_not_of('.');
        const bool isName = first == 0 ? word[0] < '0' || word[0] > '9' : first == 1;
        return isName ? word : std::string_view();
    }

    bool isAt(char c) const { return m_rest.starts_with(c); }

    /// Whether what comes next gives the name before it another value than a label's.
    bool givesValue() const {
        return (isAt('=') && !m_rest.starts_with("==")) || isOneOf(name(), {"equ", "rs", "macro"});
    }

    void skip(std::size_t count) {
        m_isFirstColumn = m_isFirstColumn && count == 0;
        m_rest.remove_prefix(count);
    }

    void skipBlanks() { skip(std::min(m_rest.find_first_not_of(" \t\v\f"), m_rest.size())); }

private:
    std::string_view m_rest;
    bool m_isFirstColumn = true;
};

} // namespace

std::vector<DefinedName> definedNames(std::string_view line) {
    std::vector<DefinedName> names;
    LineStart at(line);
    at.skipBlanks();
    while (true) {
        const bool isFirstColumn = at.isFirstColumn();
        const std::string_view name = at.name();
        if (name.empty()) {
            return names;
        }
        at.skip(name.size());
        const bool hasColon = at.isAt(':');
        at.skip(hasColon ? 1 : 0);
        at.skipBlanks();
        if (!hasColon && isOneOf(name, {"macro"})) {
            if (const std::string_view macro = at.name(); !macro.empty()) {
                names.push_back({macro, false});
            }
            return names;
        }
        if (at.givesValue() && (hasColon || !isKeyword(name))) {
            names.push_back({name, false});
            return names;
        }
        if (!hasColon && (!isFirstColumn || isKeyword(name))) {
            return names;
        }
        names.push_back({name, true});
    }
}

} // namespace kestrel
