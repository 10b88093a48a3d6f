#include "assembler/StatementAssembler.h"

#include "assembler/Characters.h"

#include <utility>

namespace nesasm {

namespace {

std::string_view view(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// True when the word at `p` is that directive and no label.
bool isDirectiveAt(const char* p, Directive directive) {
    const char* const end = wordEnd(p);
    const Keyword keyword = findKeyword(view(p, end));
    return keyword.kind == Keyword::Kind::Directive &&
           keyword.id == static_cast<std::uint8_t>(directive) && *end != ':';
}

} // namespace

StatementAssembler::StatementAssembler(Assembly& assembly)
    : m_assembly(assembly)
    , m_parser(assembly)
    , m_definitions(assembly, m_parser)
    , m_data(assembly, m_parser)
    , m_places(assembly, m_parser)
    , m_files(assembly, m_parser)
    , m_macros(assembly, m_parser)
    , m_flow(assembly, m_parser)
    , m_instructions(assembly, m_parser) {}

void StatementAssembler::run() {
    while (!m_assembly.sources.empty() && !m_assembly.diagnostics.limitReached()) {
        switch (const auto next = m_assembly.sources.next(m_assembly.line)) {
        case SourceStack::Next::Line:
            line();
            break;
        case SourceStack::Next::EndOfFrame:
            endFrame();
            break;
        default:
            reportRunaway(m_assembly, next);
            break;
        }
    }
}

void StatementAssembler::endFrame() {
    m_flow.closeFrame();
    const Frame& frame = m_assembly.sources.top();
    if (frame.label != 0)
        m_assembly.symbols[frame.label].size =
            static_cast<std::uint32_t>(m_assembly.image.total() - frame.totalBefore);
    m_assembly.sources.pop();
    m_assembly.origins.release(frame.origin);
}

void StatementAssembler::line() {
    if (m_assembly.conditionals.skips()) {
        skippedLine();
        return;
    }
    const char* const begin = m_assembly.line.begin;
    const char* const p = skipBlanks(begin);
    if (endsStatement(*p))
        return;
    m_assembly.here = m_assembly.image.address();
    m_assembly.sizedLabel = 0;
    statement(p, p == begin);
    if (m_assembly.sizedLabel != 0)
        m_assembly.symbols[m_assembly.sizedLabel].size =
            static_cast<std::uint32_t>(m_assembly.image.total() - m_assembly.sizedFrom);
}

void StatementAssembler::skippedLine() {
    const char* at = nullptr;
    const auto directive = m_macros.directiveOf(m_assembly.line.begin, at);
    if (!directive)
        return;
    if (*directive == Directive::Macro)
        m_macros.skipBody(at);
    else if (FlowDirectives::isConditional(*directive))
        m_flow.condition(*directive, at, wordEnd(at));
}

void StatementAssembler::statement(const char* p, bool isFirstColumn) {
    for (; !endsStatement(*p); isFirstColumn = false) {
        if (!startsName(p)) {
            m_assembly.error(p, "a label, an instruction or a directive was expected, but " +
                                    foundText(p) + " was found");
            return;
        }
        const char* const end = wordEnd(p);
        const std::string_view word = view(p, end);
        if (*end == ':') {
            const char* const next = skipBlanks(end + 1);
            if (isNamed(word, p, next))
                return;
            m_definitions.label(word, p);
            p = next;
            continue;
        }
        if (isKnownWord(word, p) || isNamed(word, p, skipBlanks(end)))
            return;
        if (!isFirstColumn) {
            reportUnknown(word, p);
            return;
        }
        m_definitions.label(word, p);
        p = skipBlanks(end);
    }
}

/// Assembles the statement when its first word, without a colon, is a directive, a macro or an
/// instruction.
bool StatementAssembler::isKnownWord(std::string_view word, const char* p) {
    const Keyword keyword = findKeyword(word);
    const char* const end = p + word.size();
    const char* const next = skipBlanks(end);
    const bool isKeyword = keyword.kind != Keyword::Kind::None;
    if ((*next == '.' || (!isKeyword && lowered(*next) == 'm')) &&
        isDirectiveAt(next, Directive::Macro)) {
        m_macros.define(word, p, wordEnd(next));
        return true;
    }
    if (keyword.kind == Keyword::Kind::Directive) {
        directive(static_cast<Directive>(keyword.id), p, end);
        return true;
    }
    if (!isKeyword || m_assembly.macroHidesKeyword) {
        if (const std::uint32_t macro = m_macros.find(word); macro != kNone) {
            m_macros.call(macro, p, end);
            return true;
        }
    }
    if (isKeyword)
        m_instructions.assemble(instructionTable[keyword.id], p, end);
    return isKeyword;
}

/// Assembles the statement when `next`, behind the name, gives it a value of another kind than a
/// label's: NAME = e, .equ, .rs or .macro.
bool StatementAssembler::isNamed(std::string_view name, const char* at, const char* next) {
    if (*next == '=' && next[1] != '=') {
        m_definitions.assign(name, at, next + 1);
        return true;
    }
    if (!startsName(next))
        return false;
    const char* const end = wordEnd(next);
    if (isDirectiveAt(next, Directive::Equ))
        m_definitions.assign(name, at, end);
    else if (isDirectiveAt(next, Directive::Rs))
        m_definitions.reserve(name, at, end);
    else if (isDirectiveAt(next, Directive::Macro))
        m_macros.define(name, at, end);
    else
        return false;
    return true;
}

void StatementAssembler::directive(Directive directive, const char* at, const char* p) {
    if (FlowDirectives::isConditional(directive)) {
        m_flow.condition(directive, at, p);
        return;
    }
    switch (directive) {
    case Directive::Byte:
    case Directive::Word:
    case Directive::Ds:
    case Directive::Align:
    case Directive::Pad:
        m_data.run(directive, p);
        break;
    case Directive::Include:
    case Directive::IncBin:
    case Directive::IncChr:
        m_files.run(directive, p);
        break;
    case Directive::Macro:
        m_macros.defineNamedBehind(p);
        break;
    case Directive::Repeat:
        m_macros.repeat(at, p);
        break;
    case Directive::EndMacro:
    case Directive::EndRepeat:
        m_assembly.error(at, directive == Directive::EndMacro ? ".endm without a .macro before it"
                                                              : ".endr without a .rept before it");
        break;
    case Directive::Equ:
        m_assembly.error(at, ".equ needs a name before it, as in NAME .equ 5");
        break;
    case Directive::Rs:
        m_definitions.reserve({}, at, p);
        break;
    case Directive::Assert:
    case Directive::Fail:
    case Directive::Error:
    case Directive::Warning:
        m_flow.message(directive, at, p);
        break;
    case Directive::List:
    case Directive::NoList:
        m_assembly.expectEnd(p);
        break;
    default:
        m_places.run(directive, p);
        break;
    }
}

void StatementAssembler::reportUnknown(std::string_view word, const char* p) {
    // A macro may be what is missing; a directive or an instruction is not.
    constexpr std::size_t kMnemonicLength = 3;
    if (m_assembly.isIncomplete && !word.starts_with('.') && word.size() != kMnemonicLength)
        return;
    const std::string name(word);
    if (word.starts_with('.'))
        m_assembly.error(p, "there is no directive '" + name +
                                "'; a local label that is indented needs a colon");
    else
        m_assembly.error(p, "there is no instruction, directive or macro '" + name +
                                "'; a label that is indented needs a colon");
}

} // namespace nesasm
