// SPDX-License-Identifier: MIT
#include "assembler/statements/MacroDirectives.h"

#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

#include <utility>

namespace nesasm {

namespace {

constexpr std::size_t DeepestNesting = 256;
constexpr std::int32_t MostRepetitions = 65535;

/// The end of a word of a macro's body, which may hold arguments to be put in.
Cursor bodyWordEnd(Cursor p) {
    while (isWordPart(*p) || (*p == '\\' && !isLineEnd(p[1]))) {
        p += *p == '\\' ? 2 : 1;
    }
    return p;
}

} // namespace

MacroDirectives::MacroDirectives(const Vocabulary& vocabulary, ExpressionParser& parser,
                                 Names& names, Frames& frames, LineRecords& records,
                                 Reporter& reporter, Arena& arena)
    : m_vocabulary(vocabulary)
    , m_parser(parser)
    , m_names(names)
    , m_frames(frames)
    , m_records(records)
    , m_reporter(reporter)
    , m_arena(arena) {}

std::uint32_t MacroDirectives::find(std::string_view name) const {
    const SymbolId id = m_names.find(name);
    return id == 0 ? None : m_names[id].macro;
}

void MacroDirectives::defineNamed(Cursor p) {
    p.skipBlanks();
    if (!isWordStart(*p)) {
        m_reporter.error(p, "expected the macro's name, found " + foundText(p));
        skipBody(p);
        return;
    }
    define(p.word(), p, p.wordEnd());
}

void MacroDirectives::define(std::string_view name, Cursor at, Cursor p) {
    const std::string_view remedy = p.afterBlanks().isAtName()
                                        ? "; a macro's arguments have no names, they are \\1 to \\9"
                                        : "";
    if (!m_reporter.expectEnd(p, remedy)) {
        markArgumentNames(p);
    }
    const bool isFine = mayDefine(name, at);
    if (m_reporter.line().isShortLived) {
        name = m_arena.keepLine(name);
    }
    Macro macro{name, {}};
    if (!collect(DirectiveRole::macro, DirectiveRole::endMacro, at, macro.body) || !isFine) {
        return;
    }
    const SymbolId id = m_names.intern(name);
    m_names[id].macro = static_cast<std::uint32_t>(m_macros.size());
    if (ProgramNotes* const notes = m_names.notes()) {
        notes->addMacro(id, m_reporter.line());
    }
    m_macros.push_back(macro);
    if (m_vocabulary.find(name).kind != Keyword::Kind::none) {
        m_hidesKeywords = true;
    }
}

/// The words after a macro's name were meant as names of its arguments: that the body uses them is
/// no further mistake.
void MacroDirectives::markArgumentNames(Cursor p) {
    for (p.skipBlanks(); *p == ',' || p.isAtName(); p = p.afterBlanks()) {
        if (*p == ',') {
            ++p;
            continue;
        }
        m_names.markBroken(p.word());
        p = p.wordEnd();
    }
}

bool MacroDirectives::mayDefine(std::string_view name, Cursor at) {
    const std::string shown = quoted(name);
    if (name.starts_with('.')) {
        m_reporter.error(at,
                         shown + " cannot name a macro: a name that begins with a dot is local");
        return false;
    }
    if (m_vocabulary.find(name).isDirective()) {
        m_reporter.error(at, shown + " cannot name a macro: it is a directive");
        return false;
    }
    if (const std::uint32_t former = find(name); former != None) {
        const Passage& body = m_macros[former].body;
        m_reporter.error(at, "the macro " + shown + " has already been defined at " +
                                 std::string(body.fileName) + ":" +
                                 std::to_string(body.firstLine - 1));
        return false;
    }
    return true;
}

void MacroDirectives::skipBody(Cursor at) {
    Passage body;
    collect(DirectiveRole::macro, DirectiveRole::endMacro, at, body);
}

std::optional<MacroDirectives::Found> MacroDirectives::directiveOf(Cursor begin) const {
    for (Cursor p = begin;;) {
        const bool isFirst = p == begin && !isBlank(*p);
        p.skipBlanks();
        if (!p.isAtName() && *p != '\\') {
            return std::nullopt;
        }
        const Cursor end = bodyWordEnd(p);
        if (end == p) {
            return std::nullopt; // a backslash at the end of the line
        }
        if (*end == ':') {
            p = end + 1;
            continue;
        }
        const std::string_view word = p.upTo(end);
        const Keyword keyword = m_vocabulary.find(word);
        const Cursor next = end.afterBlanks();
        if (*next == '.' || keyword.kind == Keyword::Kind::none) {
            const Keyword second = m_vocabulary.find(next.word());
            if (second.isDirective(DirectiveRole::macro)) {
                return Found{second, next};
            }
        }
        if (keyword.isDirective() && !keyword.isLateLabel(isFirst, *next)) {
            return Found{keyword, p};
        }
        if (!isFirst || keyword.isInstruction() || find(word) != None) {
            return std::nullopt;
        }
        p = next; // a label
    }
}

bool MacroDirectives::collect(DirectiveRole opening, DirectiveRole closing, Cursor at,
                              Passage& body) {
    SourceStack& sources = m_frames.sources();
    const Frame& frame = sources.top();
    const Cursor first(frame.cursor);
    body = {{}, frame.line + 1, frame.passage.file, frame.passage.fileName};
    const bool isCopied = frame.kind == Origin::Kind::macro;
    std::string copy;
    for (std::size_t nesting = 0;;) {
        if (sources.isAtEnd()) {
            const bool isMacro = closing == DirectiveRole::endMacro;
            m_reporter.notePartMissing();
            m_reporter.error(
                at, isMacro ? "this macro has no .endm before the end of the file"
                            : "this .rept has no .endr before the end of the file or macro");
            return false;
        }
        Line line;
        if (m_frames.next(line) != SourceStack::Next::line) {
            return false;
        }
        if (m_records.isOn()) {
            m_records.add(line, frame.passage.file);
        }
        const auto directive = directiveOf(line.begin);
        if (directive && directive->keyword.role == opening) {
            ++nesting;
        }
        if (directive && directive->keyword.role == closing && nesting-- == 0) {
            // A label before the end belongs to the body.
            const bool hasLabel = line.begin.afterBlanks() != directive->at;
            if (isCopied || hasLabel) {
                copy = isCopied ? copy : std::string(first.upTo(line.begin));
                if (hasLabel) {
                    copy.append(line.begin.upTo(directive->at));
                }
                body.text = m_arena.keepLine(copy);
            } else {
                body.text = first.upTo(line.begin);
            }
            return true;
        }
        if (isCopied) {
            copy.append(line.begin.upTo(line.begin.lineEnd())) += '\n';
        }
    }
}

bool MacroDirectives::isTooDeep(Cursor at) {
    if (m_frames.sources().depth() < DeepestNesting) {
        return false;
    }
    m_reporter.fatal(at, "macros and repetitions are nested more than " +
                             std::to_string(DeepestNesting) +
                             " deep: does this macro call itself without end?");
    return true;
}

Frame& MacroDirectives::enter(Origin::Kind kind, const Passage& body, std::string_view name) {
    Origin origin;
    origin.kind = kind;
    origin.file = body.fileName;
    origin.source = body.file;
    origin.macro = name;
    return m_frames.enter(origin, body);
}

void MacroDirectives::call(std::uint32_t macro, Cursor at, Cursor p) {
    if (isTooDeep(at)) {
        return;
    }
    MacroArguments arguments;
    if (!arguments.read(p)) {
        m_reporter.error(p, "a macro takes at most nine arguments; this is the tenth");
        return;
    }
    if (ProgramNotes* const notes = m_names.notes()) {
        notes->addUse(m_names.find(m_macros[macro].name), m_reporter.line(), at);
    }
    Frame& frame = enter(Origin::Kind::macro, m_macros[macro].body, m_macros[macro].name);
    frame.arguments = arguments;
    frame.number = ++m_expansions;
}

void MacroDirectives::repeat(Cursor at, Cursor p) {
    p.skipBlanks();
    const auto count = m_parser.parseKnown(p, "the count of .rept", 0, MostRepetitions);
    if (count) {
        m_reporter.expectEnd(p);
    }
    Passage body;
    if (!collect(DirectiveRole::repeat, DirectiveRole::endRepeat, at, body) || !count ||
        *count == 0 || isTooDeep(at)) {
        return;
    }
    enter(Origin::Kind::repeat, body, {}).repetitions = static_cast<std::uint32_t>(*count) - 1;
}

void MacroDirectives::strayEndOfMacro(Cursor at, Cursor /*p*/) {
    m_reporter.error(at, ".endm without a .macro before it");
}

void MacroDirectives::strayEndOfRepeat(Cursor at, Cursor /*p*/) {
    m_reporter.error(at, ".endr without a .rept before it");
}

} // namespace nesasm
