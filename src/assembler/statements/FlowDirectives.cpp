// SPDX-License-Identifier: MIT
#include "assembler/statements/FlowDirectives.h"

#include "assembler/text/Characters.h"

#include <utility>

namespace nesasm {

FlowDirectives::FlowDirectives(Assembly& assembly, ExpressionParser& parser)
    : m_assembly(assembly)
    , m_parser(parser) {}

bool FlowDirectives::isConditional(Directive directive) {
    switch (directive) {
    case Directive::ifTrue:
    case Directive::ifDef:
    case Directive::ifNotDef:
    case Directive::elseIf:
    case Directive::elseBranch:
    case Directive::endIf:
        return true;
    default:
        return false;
    }
}

void FlowDirectives::condition(Directive directive, const char* at, const char* p) {
    p = skipBlanks(p);
    Conditionals& conditionals = m_assembly.conditionals;
    const std::size_t outer = m_assembly.sources.top().conditionals;
    switch (directive) {
    case Directive::elseIf:
        elseIf(at, p);
        return;
    case Directive::elseBranch:
        report(conditionals.otherwise(outer), ".else", at);
        m_assembly.expectEnd(p);
        return;
    case Directive::endIf:
        report(conditionals.close(outer), ".endif", at);
        m_assembly.expectEnd(p);
        return;
    default:
        break;
    }
    const Position position = m_assembly.at(at);
    std::string text;
    if (m_assembly.line.isShortLived) {
        text.assign(position.line, lineEnd(position.line)).append(1, '\n');
    }
    if (conditionals.skips()) {
        conditionals.openSkipped(position, std::move(text));
    } else {
        conditionals.open(isTrue(directive, p), position, std::move(text));
    }
}

bool FlowDirectives::isTrue(Directive directive, const char* p) {
    if (directive != Directive::ifTrue) {
        return isDefined(p) == (directive == Directive::ifDef);
    }
    const auto value = m_parser.parseKnown(p, "the condition of .if");
    return value && m_assembly.expectEnd(p) && *value != 0;
}

bool FlowDirectives::isDefined(const char* p) {
    if (!startsName(p)) {
        m_assembly.error(p, "expected a name, found " + foundText(p));
        return false;
    }
    const char* const end = wordEnd(p);
    const SymbolId id =
        m_assembly.symbols.find({p, static_cast<std::size_t>(end - p)}, m_assembly.scope);
    m_assembly.expectEnd(end);
    if (id == 0) {
        return false;
    }
    Symbol& symbol = m_assembly.symbols[id];
    ++symbol.uses;
    return symbol.isDefined || symbol.macro != None;
}

void FlowDirectives::elseIf(const char* at, const char* p) {
    const std::size_t outer = m_assembly.sources.top().conditionals;
    bool isTaken = false;
    if (m_assembly.conditionals.wantsCondition(outer)) {
        const auto value = m_parser.parseKnown(p, "the condition of .elseif");
        isTaken = value && m_assembly.expectEnd(p) && *value != 0;
    }
    report(m_assembly.conditionals.elseIf(isTaken, outer), ".elseif", at);
}

void FlowDirectives::report(Conditionals::Answer answer, const char* name, const char* at) {
    if (answer == Conditionals::Answer::noIf) {
        m_assembly.error(at, std::string(name) + " without an .if before it in this file or macro");
    } else if (answer == Conditionals::Answer::afterElse) {
        m_assembly.error(at, std::string(name) + " after the .else of the same .if");
    }
}

void FlowDirectives::closeFrame() {
    Conditionals& conditionals = m_assembly.conditionals;
    const std::size_t outer = m_assembly.sources.top().conditionals;
    while (conditionals.depth() > outer) {
        m_assembly.diagnostics.error(
            conditionals.innermost(),
            "this condition has no .endif before the end of its file or macro");
        conditionals.dropTo(conditionals.depth() - 1);
    }
}

void FlowDirectives::message(Directive directive, const char* at, const char* p) {
    p = skipBlanks(p);
    if (directive == Directive::assertion) {
        assertion(at, p);
        return;
    }
    std::optional<std::string> said = "the source stops the build here (.fail)";
    if (directive != Directive::fail || !endsStatement(*p)) {
        said = text(p);
    }
    if (!said || !m_assembly.expectEnd(p)) {
        return;
    }
    if (directive == Directive::warning) {
        m_assembly.warn(Warning::userWarning, at, std::move(*said));
    } else {
        m_assembly.error(at, std::move(*said));
    }
}

std::optional<std::string> FlowDirectives::text(const char*& p) {
    const char* const start = p;
    if (*p != '"') {
        m_assembly.error(p, "expected a string in double quotes, found " + foundText(p));
        return std::nullopt;
    }
    std::string said;
    for (++p; *p != '"'; ++p) {
        if (isLineEnd(*p)) {
            m_assembly.error(start, "this string has no closing '\"'");
            return std::nullopt;
        }
        if (*p == '\\' && p[1] == '"') {
            ++p;
        }
        said += *p;
    }
    ++p;
    return said;
}

void FlowDirectives::assertion(const char* at, const char* p) {
    if (!m_parser.parse(p)) {
        return;
    }
    const Evaluation result = m_parser.evaluateNow();
    DeferredExpression expression;
    if (result.status == Evaluation::Status::unknown) {
        expression = m_parser.defer(at);
    }
    std::optional<std::string> said = "the assertion failed";
    if (*p == ',') {
        p = skipBlanks(p + 1);
        said = text(p);
    }
    if (!said || !m_assembly.expectEnd(p)) {
        return;
    }
    if (result.status == Evaluation::Status::unknown) {
        m_assembly.deferred.assertions.push_back({expression, m_assembly.arena.keepLine(*said)});
    } else if (result.status == Evaluation::Status::known && result.value == 0) {
        m_assembly.error(at, std::move(*said));
    }
}

} // namespace nesasm
