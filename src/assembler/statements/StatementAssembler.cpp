// SPDX-License-Identifier: MIT
#include "assembler/statements/StatementAssembler.h"

#include "assembler/language/ForeignWords.h"
#include "assembler/statements/Remedies.h"
#include "assembler/text/Characters.h"
#include "assembler/text/Text.h"

#include <array>
#include <utility>

namespace nesasm {

namespace {

/// True when the word at `p` is that directive and no label.
bool isDirectiveAt(Cursor p, DirectiveRole role) {
    const Cursor end = p.wordEnd();
    return *end != ':' && Directives::vocabulary().find(p.upTo(end)).isDirective(role);
}

/// True when an instruction or a directive with its dot stands at `p`: what comes before it is
/// meant as a label.
bool isStatementAt(Cursor p) {
    const Keyword::Kind kind =
        p.isAtName() ? Directives::vocabulary().find(p.word()).kind : Keyword::Kind::none;
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

/// True when what stands at `next`, behind a keyword, can only mean that the keyword was taken for
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
    // An operand of that name would have an operator, a comma or nothing behind it.
    const Cursor value = next.afterBlanks();
    return value != next && (isWordStart(*value) || isDigit(*value) || *value == '$' ||
                             *value == '\'' || *value == '(');
}

/// What helps somebody who began a statement with the sign at `p`, as other assemblers have it.
std::string_view signRemedy(Cursor p) {
    if (isDigit(*p)) {
        return "; a name does not begin with a digit";
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

StatementAssembler::StatementAssembler(Assembly& assembly)
    : m_assembly(assembly)
    , m_parser(assembly)
    , m_directives(assembly, m_parser)
    , m_instructions(assembly, m_parser) {}

void StatementAssembler::run() {
    while (!m_assembly.sources.empty() && !m_assembly.diagnostics.limitReached()) {
        switch (const auto next = m_assembly.sources.next(m_assembly.line)) {
        case SourceStack::Next::line:
            line();
            break;
        case SourceStack::Next::endOfFrame:
            endFrame();
            break;
        case SourceStack::Next::tooLong:
        case SourceStack::Next::tooMuch:
            reportRunaway(m_assembly, m_assembly.line, next);
            break;
        }
    }
}

void StatementAssembler::endFrame() {
    m_directives.flow().closeFrame();
    const Frame& frame = m_assembly.sources.top();
    if (frame.label != 0) {
        m_assembly.symbols[frame.label].size =
            static_cast<std::uint32_t>(m_assembly.image.total() - frame.totalBefore);
    }
    m_assembly.sources.pop();
    m_assembly.origins.release(frame.origin);
}

void StatementAssembler::line() {
    if (!m_assembly.recordsLines) {
        assembleLine();
        return;
    }
    const SourceFile* const file = m_assembly.sources.top().passage.file;
    if (m_assembly.conditionals.skips()) {
        m_assembly.records.add(m_assembly.line, file);
        assembleLine();
        return;
    }
    m_assembly.records.begin(m_assembly.line, file, m_assembly.image);
    assembleLine();
    m_assembly.records.end(m_assembly.image);
}

void StatementAssembler::assembleLine() {
    if (m_assembly.conditionals.skips()) {
        skippedLine();
        return;
    }
    const Cursor begin = m_assembly.line.begin;
    const Cursor p = begin.afterBlanks();
    if (p.isAtStatementEnd()) {
        return;
    }
    m_assembly.here = m_assembly.image.address();
    m_assembly.sizedLabel = 0;
    statement(p, p == begin);
    if (m_assembly.image.hasOverwritten()) {
        m_assembly.noteOverwriting();
    }
    if (m_assembly.sizedLabel != 0) {
        m_assembly.symbols[m_assembly.sizedLabel].size =
            static_cast<std::uint32_t>(m_assembly.image.total() - m_assembly.sizedFrom);
    }
}

void StatementAssembler::skippedLine() {
    const auto directive = m_directives.macros().directiveOf(m_assembly.line.begin);
    if (!directive) {
        return;
    }
    switch (directive->keyword.role) {
    case DirectiveRole::macro:
        m_directives.macros().skipBody(directive->at);
        break;
    case DirectiveRole::conditional:
        m_directives.run(directive->keyword.index, directive->at, directive->at.wordEnd());
        break;
    case DirectiveRole::ordinary:
    case DirectiveRole::equ:
    case DirectiveRole::rs:
    case DirectiveRole::endMacro:
    case DirectiveRole::repeat:
    case DirectiveRole::endRepeat:
        break;
    }
}

void StatementAssembler::statement(Cursor p, bool isFirstColumn) {
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
            m_directives.definitions().label(word, p);
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
        m_directives.definitions().label(word, p);
        bareLabel = word;
        p = end.afterBlanks();
    }
}

/// Assembles the statement when its first word, without a colon, is a directive, a macro or an
/// instruction.
bool StatementAssembler::isKnownWord(std::string_view word, Cursor p) {
    const Keyword keyword = Directives::vocabulary().find(word);
    const Cursor end = p + word.size();
    const Cursor next = end.afterBlanks();
    const bool isKeyword = keyword.kind != Keyword::Kind::none;
    const bool mayGiveValue = MayGiveValue[static_cast<unsigned char>(*next)];
    if ((*next == '.' || (!isKeyword && lowered(*next) == 'm')) &&
        isDirectiveAt(next, DirectiveRole::macro)) {
        m_directives.macros().define(word, p, next.wordEnd());
        return true;
    }
    if (keyword.isDirective()) {
        if (mayGiveValue && namesSymbol(p, next)) {
            reportKeyword(word, p, true);
        } else {
            m_directives.run(keyword.index, p, end);
        }
        return true;
    }
    if (!isKeyword || m_assembly.macroHidesKeyword) {
        if (const std::uint32_t macro = m_directives.macros().find(word); macro != None) {
            m_directives.macros().call(macro, p, end);
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

/// True when the keyword at `p`, with `next` behind it, was taken for the name of a symbol, unless
/// a forgotten value explains it better: behind a dot, or where a macro's argument may be empty.
bool StatementAssembler::namesSymbol(Cursor p, Cursor next) const {
    return *p != '.' && !m_assembly.line.isShortLived && givesValue(next);
}

/// `word` is a directive or an instruction and was taken for the name of a symbol.
void StatementAssembler::reportKeyword(std::string_view word, Cursor p, bool isDirective) {
    m_assembly.markBroken(word);
    m_assembly.error(p, quoted(word) + (isDirective ? " is a directive" : " is an instruction") +
                            "; as a symbol it needs a colon directly behind it, or another name");
}

/// Assembles the statement when `next`, behind the name, gives it a value of another kind than a
/// label's: NAME = e, .equ, .rs or .macro.
bool StatementAssembler::isNamed(std::string_view name, Cursor at, Cursor next) {
    if (*next == '=' && next[1] != '=') {
        m_directives.definitions().assign(name, at, next + 1);
        return true;
    }
    if (!next.isAtName()) {
        return false;
    }
    const Cursor end = next.wordEnd();
    if (isDirectiveAt(next, DirectiveRole::equ)) {
        m_directives.definitions().assign(name, at, end);
    } else if (isDirectiveAt(next, DirectiveRole::rs)) {
        m_directives.definitions().reserve(name, at, end);
    } else if (isDirectiveAt(next, DirectiveRole::macro)) {
        m_directives.macros().define(name, at, end);
    } else {
        return false;
    }
    return true;
}

void StatementAssembler::reportUnknown(std::string_view word, Cursor p, std::string_view label) {
    const bool isDotted = word.starts_with('.');
    // A macro may be what is missing; a directive or an instruction is not.
    constexpr std::size_t MnemonicLength = 3;
    if (m_assembly.isIncomplete && !isDotted && word.size() != MnemonicLength) {
        return;
    }
    m_assembly.error(p, [&] { return unknownText(word, p, label); });
    if (label.empty()) {
        m_assembly.markBroken(word);
    }
}

std::string StatementAssembler::unknownText(std::string_view word, Cursor p,
                                            std::string_view label) const {
    const bool isDotted = word.starts_with('.');
    std::string text =
        isDotted ? "there is no directive " : "there is no instruction, directive or macro ";
    text += quoted(word);
    const SymbolId id = m_assembly.symbols.find(word, m_assembly.scope);
    const bool isSymbol = id != 0 && m_assembly.symbols[id].isDefined;
    const std::string remedy =
        isSymbol ? "" : remedyForWord(m_assembly, Directives::vocabulary(), word);
    const std::string labelRemedy =
        label.empty() ? "" : remedyForWord(m_assembly, Directives::vocabulary(), label);
    const Cursor next = (p + static_cast<std::ptrdiff_t>(word.size())).afterBlanks();
    if (label.empty() && (next.isAtStatementEnd() || isStatementAt(next))) {
        const bool isForeign = isDotted && !isSymbol && !foreignWordAdvice(word.substr(1)).empty();
        if (remedy.starts_with(Advice)) {
            text += remedy;
        } else if (isForeign) {
            text += remedy + "; an indented local label of this name needs a colon behind it";
        } else {
            text.append(isDotted ? "; an indented local label needs a colon behind it"
                                 : "; an indented label needs a colon behind it")
                .append(remedy);
        }
    } else if (!remedy.empty()) {
        text += remedy;
    } else if (!labelRemedy.empty()) {
        text += "; " + quoted(label) + " before it was taken for a label" + labelRemedy;
    } else if (!isDotted) {
        text += "; a macro is defined before it is called, and an indented label needs a colon";
    }
    return text;
}

/// `label`, without a colon, stands before what is wrong; it may be a misspelled word.
void StatementAssembler::reportUnexpected(Cursor p, std::string_view label) {
    if (label.empty()) {
        m_assembly.error(p, "a label, an instruction or a directive was expected, but " +
                                foundText(p) + " was found" + std::string(signRemedy(p)));
        return;
    }
    if (m_assembly.isIncomplete) {
        return;
    }
    m_assembly.error(p, [&] {
        return quoted(label) +
               " at the start of the line is a label here, so an "
               "instruction or a directive was expected, but " +
               foundText(p) + " was found" +
               (*p == ':' ? "; a label's colon stands directly behind its name"
                          : remedyForWord(m_assembly, Directives::vocabulary(), label));
    });
}

} // namespace nesasm
