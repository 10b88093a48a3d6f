// SPDX-License-Identifier: MIT
#include "assembler/statements/StatementAssembler.h"

#include "assembler/language/ForeignWords.h"
#include "assembler/statements/WordRemedies.h"
#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

#include <array>
#include <utility>

namespace nesasm {

namespace {

/// True when the word at `p` is that directive and no label.
bool isDirectiveAt(const Vocabulary& vocabulary, Cursor p, DirectiveRole role) {
    const Cursor end = p.wordEnd();
    return *end != ':' && vocabulary.find(p.upTo(end)).isDirective(role);
}

/// True when an instruction or a directive with its dot stands at `p`: what comes before it is
/// meant as a label.
bool isStatementAt(const Vocabulary& vocabulary, Cursor p) {
    const Keyword::Kind kind = p.isAtName() ? vocabulary.find(p.word()).kind : Keyword::Kind::none;
    return kind == Keyword::Kind::instruction || (kind == Keyword::Kind::directive && *p == '.');
}

/// Whether givesValue() can hold where this byte stands. It is asked for every instruction.
constexpr std::array<bool, 256> MayGiveValue = [] {
    std::array<bool, 256> table{};
    for (const char c : {'=', '.', 'e', 'E', 'r', 'R'}) {
        table[static_cast<unsigned char>(c)] = true;
    }
    return table;
}();

/// True when what stands at `next`, after a keyword, can only mean that the keyword was taken for
/// the name of a symbol: = e, .equ e, .rs e.
bool givesValue(Cursor next) {
    if (*next == '=') {
        return next[1] != '=';
    }
    next += *next == '.' ? 1 : 0;
    if (lowered(next[0]) == 'e' && lowered(next[1]) == 'q' && lowered(next[2]) == 'u') {
        next += 3;
    } else if (lowered(next[0]) == 'r' && lowered(next[1]) == 's') {
        next += 2;
    } else {
        return false;
    }
    // An operand of that name would have an operator, a comma or nothing after it.
    const Cursor value = next.afterBlanks();
    return value != next && (isWordStart(*value) || isDigit(*value) || *value == '$' ||
                             *value == '\'' || *value == '(');
}

/// What helps somebody who began a statement with the sign at `p`, as other assemblers have it.
std::string_view signRemedy(Cursor p) {
    if (isDigit(*p)) {
        return "; a name cannot begin with a digit";
    }
    if (*p == '*' && *(p + 1).afterBlanks() == '=') {
        return "; .org sets the address";
    }
    if (*p == '#' && isWordStart(p[1])) {
        return "; a directive begins with a dot";
    }
    return commentRemedy(p);
}

/// How a remedy begins that leaves no doubt about what was meant.
constexpr std::string_view Advice = "; use ";

} // namespace

StatementAssembler::StatementAssembler(Names& names, Reporter& reporter,
                                       InstructionAssembler& instructions, Directives& directives,
                                       Definitions& definitions, MacroDirectives& macros)
    : m_vocabulary(Directives::vocabulary())
    , m_names(names)
    , m_reporter(reporter)
    , m_instructions(instructions)
    , m_directives(directives)
    , m_definitions(definitions)
    , m_macros(macros) {}

void StatementAssembler::assemble(Cursor p, bool isFirstColumn) {
    std::string_view bareLabel; // one without a colon, which may be a misspelled word
    for (; !p.isAtStatementEnd(); isFirstColumn = false) {
        if (!p.isAtName()) {
            reportUnexpected(p, bareLabel);
            return;
        }
        const Cursor end = p.wordEnd();
        const std::string_view word = p.upTo(end);
        if (*end == ':') {
            const Cursor next = (end + 1).afterBlanks();
            if (isNamed(word, p, next)) {
                return;
            }
            m_definitions.label(word, p);
            p = next;
            continue;
        }
        if (isKnownWord(word, p) || isNamed(word, p, end.afterBlanks())) {
            return;
        }
        if (!isFirstColumn) {
            reportUnknown(word, p, bareLabel);
            return;
        }
        m_definitions.label(word, p);
        bareLabel = word;
        p = end.afterBlanks();
    }
}

/// Assembles the statement when its first word, without a colon, is a directive, a macro or an
/// instruction.
bool StatementAssembler::isKnownWord(std::string_view word, Cursor p) {
    const Keyword keyword = m_vocabulary.find(word);
    const Cursor end = p + static_cast<std::ptrdiff_t>(word.size());
    const Cursor next = end.afterBlanks();
    const bool isKeyword = keyword.kind != Keyword::Kind::none;
    const bool mayGiveValue = MayGiveValue[static_cast<unsigned char>(*next)];
    if ((*next == '.' || (!isKeyword && lowered(*next) == 'm')) &&
        isDirectiveAt(m_vocabulary, next, DirectiveRole::macro)) {
        m_macros.define(word, p, next.wordEnd());
        return true;
    }
    if (keyword.isDirective()) {
        if (keyword.role == DirectiveRole::late && *next != '"' && isNamed(word, p, next)) {
            return true;
        }
        if (keyword.isLateLabel(p == m_reporter.line().begin, *next)) {
            return false;
        }
        if (mayGiveValue && namesSymbol(p, next)) {
            reportKeyword(word, p, true);
        } else {
            m_directives.run(keyword.index, p, end);
        }
        return true;
    }
    if (!isKeyword || m_macros.hidesKeywords()) {
        if (const std::uint32_t macro = m_macros.find(word); macro != None) {
            m_macros.call(macro, p, end);
            return true;
        }
    }
    if (isKeyword && mayGiveValue && namesSymbol(p, next)) {
        reportKeyword(word, p, false);
    } else if (isKeyword) {
        m_instructions.assemble(InstructionTable[keyword.index], p, end);
    }
    return isKeyword;
}

/// True when the keyword at `p`, with `next` after it, was taken for the name of a symbol, unless
/// a forgotten value explains it better: after a dot, or where a macro's argument may be empty.
bool StatementAssembler::namesSymbol(Cursor p, Cursor next) const {
    return *p != '.' && !m_reporter.line().isShortLived && givesValue(next);
}

/// `word` is a directive or an instruction and was taken for the name of a symbol.
void StatementAssembler::reportKeyword(std::string_view word, Cursor p, bool isDirective) {
    m_names.markBroken(word);
    m_reporter.error(p, quoted(word) + (isDirective ? " is a directive" : " is an instruction") +
                            "; as a symbol it needs a colon directly after it, or another name");
}

/// Assembles the statement when `next`, after the name, gives it a value of another kind than a
/// label's: NAME = e, .equ, .rs or .macro.
bool StatementAssembler::isNamed(std::string_view name, Cursor at, Cursor next) {
    if (*next == '=' && next[1] != '=') {
        m_definitions.assign(name, at, next + 1);
        return true;
    }
    if (!next.isAtName()) {
        return false;
    }
    const Cursor end = next.wordEnd();
    if (isDirectiveAt(m_vocabulary, next, DirectiveRole::equ)) {
        m_definitions.assign(name, at, end);
    } else if (isDirectiveAt(m_vocabulary, next, DirectiveRole::rs)) {
        m_definitions.reserve(name, at, end);
    } else if (isDirectiveAt(m_vocabulary, next, DirectiveRole::macro)) {
        m_macros.define(name, at, end);
    } else {
        return false;
    }
    return true;
}

void StatementAssembler::reportUnknown(std::string_view word, Cursor p, std::string_view label) {
    const bool isDotted = word.starts_with('.');
    // A macro may be what is missing; a directive or an instruction is not.
    constexpr std::size_t MnemonicLength = 3;
    if (m_reporter.isPartMissing() && !isDotted && word.size() != MnemonicLength) {
        return;
    }
    m_reporter.error(p, [&] { return unknownText(word, p, label); });
    if (label.empty()) {
        m_names.markBroken(word);
    }
}

std::string StatementAssembler::unknownText(std::string_view word, Cursor p,
                                            std::string_view label) const {
    const bool isDotted = word.starts_with('.');
    std::string text =
        isDotted ? "there is no directive " : "there is no instruction, directive or macro ";
    text += quoted(word);
    const SymbolId id = m_names.find(word);
    const bool isSymbol = id != 0 && m_names[id].isDefined;
    const std::string remedy = isSymbol ? "" : remedyForWord(m_macros.all(), m_vocabulary, word);
    const std::string labelRemedy =
        label.empty() ? "" : remedyForWord(m_macros.all(), m_vocabulary, label);
    const Cursor next = (p + static_cast<std::ptrdiff_t>(word.size())).afterBlanks();
    if (label.empty() && (next.isAtStatementEnd() || isStatementAt(m_vocabulary, next))) {
        const bool isForeign = isDotted && !isSymbol && !foreignWordAdvice(word.substr(1)).empty();
        if (remedy.starts_with(Advice)) {
            text += remedy;
        } else if (isForeign) {
            text += remedy + "; an indented local label of this name needs a colon after it";
        } else {
            text.append(isDotted ? "; an indented local label needs a colon after it"
                                 : "; an indented label needs a colon after it")
                .append(remedy);
        }
    } else if (!remedy.empty()) {
        text += remedy;
    } else if (m_vocabulary.find(label).isDirective(DirectiveRole::late)) {
        text += "; " + quoted(label) +
                " before it was taken as a label: as a directive it needs its operand in double "
                "quotes";
    } else if (!labelRemedy.empty()) {
        text += "; " + quoted(label) + " before it was taken as a label" + labelRemedy;
    } else if (!isDotted) {
        text +=
            "; a macro must be defined before it is called, and an indented label needs a colon";
    }
    return text;
}

/// `label`, without a colon, stands before what is wrong; it may be a misspelled word.
void StatementAssembler::reportUnexpected(Cursor p, std::string_view label) {
    if (label.empty()) {
        m_reporter.error(p, "expected a label, an instruction or a directive, found " +
                                foundText(p) + std::string(signRemedy(p)));
        return;
    }
    if (m_reporter.isPartMissing()) {
        return;
    }
    m_reporter.error(p, [&] {
        return "expected an instruction or a directive after the label " + quoted(label) +
               ", found " + foundText(p) +
               (*p == ':' ? "; a label's colon comes directly after its name"
                          : remedyForWord(m_macros.all(), m_vocabulary, label));
    });
}

} // namespace nesasm
