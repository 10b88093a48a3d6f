// SPDX-License-Identifier: MIT
#include "assembler/statements/FlowDirectives.h"

#include "assembler/state/QuotedOperand.h"
#include "assembler/text/FoundText.h"

#include <utility>

namespace nesasm {

FlowDirectives::FlowDirectives(ExpressionParser& parser, Names& names, Conditionals& conditionals,
                               const SourceStack& sources, Reporter& reporter, Deferred& deferred)
    : m_parser(parser)
    , m_names(names)
    , m_conditionals(conditionals)
    , m_sources(sources)
    , m_reporter(reporter)
    , m_deferred(deferred) {}

void FlowDirectives::ifTrue(Cursor at, Cursor p) {
    open(!skips() && isTrue(p, "the condition of .if"), at);
}

void FlowDirectives::ifDefined(Cursor at, Cursor p) {
    open(!skips() && isDefined(p), at);
}

void FlowDirectives::ifNotDefined(Cursor at, Cursor p) {
    open(!skips() && !isDefined(p), at);
}

void FlowDirectives::open(bool condition, Cursor at) {
    const Position position = m_reporter.at(at);
    std::string text;
    if (m_reporter.line().isShortLived) {
        const Cursor begin = m_reporter.line().begin;
        text.append(begin.upTo(begin.lineEnd())) += '\n';
    }
    if (skips()) {
        m_conditionals.openSkipped(position, std::move(text));
    } else {
        m_conditionals.open(condition, position, std::move(text));
    }
}

void FlowDirectives::elseIf(Cursor at, Cursor p) {
    const std::size_t outer = m_sources.top().conditionals;
    const bool isTaken =
        m_conditionals.wantsCondition(outer) && isTrue(p, "the condition of .elseif");
    report(m_conditionals.elseIf(isTaken, outer), ".elseif", at);
}

void FlowDirectives::otherwise(Cursor at, Cursor p) {
    report(m_conditionals.otherwise(m_sources.top().conditionals), ".else", at);
    m_reporter.expectEnd(p);
}

void FlowDirectives::endIf(Cursor at, Cursor p) {
    report(m_conditionals.close(m_sources.top().conditionals), ".endif", at);
    m_reporter.expectEnd(p);
}

bool FlowDirectives::isTrue(Cursor p, const char* what) {
    const auto value = m_parser.parseKnown(p, what);
    return value && m_reporter.expectEnd(p) && *value != 0;
}

bool FlowDirectives::isDefined(Cursor p) {
    if (!p.isAtName()) {
        m_reporter.error(p, "expected a name, found " + foundText(p));
        return false;
    }
    const Cursor end = p.wordEnd();
    const SymbolId id = m_names.find(p.upTo(end));
    m_reporter.expectEnd(end);
    if (id == 0) {
        return false;
    }
    m_names.use(id, p);
    const Symbol& symbol = m_names[id];
    return symbol.isDefined || symbol.macro != None;
}

void FlowDirectives::report(Conditionals::Answer answer, const char* name, Cursor at) {
    if (answer == Conditionals::Answer::noIf) {
        m_reporter.error(at, std::string(name) + " without an .if before it in this file or macro");
    } else if (answer == Conditionals::Answer::afterElse) {
        m_reporter.error(at, std::string(name) + " after the .else of the same .if");
    }
}

void FlowDirectives::closeFrame() {
    Conditionals& conditionals = m_conditionals;
    const std::size_t outer = m_sources.top().conditionals;
    while (conditionals.depth() > outer) {
        m_reporter.diagnostics().error(
            conditionals.innermost(),
            "this condition has no .endif before the end of its file or macro");
        conditionals.dropTo(conditionals.depth() - 1);
    }
}

void FlowDirectives::fail(Cursor at, Cursor p) {
    if (p.isAtStatementEnd()) {
        m_reporter.error(at, "the source stops the build here (.fail)");
    } else {
        error(at, p);
    }
}

void FlowDirectives::error(Cursor at, Cursor p) {
    if (auto said = lastText(p)) {
        m_reporter.error(at, std::move(*said));
    }
}

void FlowDirectives::warning(Cursor at, Cursor p) {
    if (auto said = lastText(p)) {
        m_reporter.warn(Warning::userWarning, at, std::move(*said));
    }
}

/// A text with which the statement ends.
std::optional<std::string> FlowDirectives::lastText(Cursor p) {
    auto said = text(p);
    return said && m_reporter.expectEnd(p) ? std::move(said) : std::nullopt;
}

std::optional<std::string> FlowDirectives::text(Cursor& p) {
    const auto quoted = readQuotedOperand(QuotedKind::text, p, m_reporter);
    return quoted ? std::optional(quoted->text()) : std::nullopt;
}

void FlowDirectives::assertion(Cursor at, Cursor p) {
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
        p = (p + 1).afterBlanks();
        said = text(p);
    }
    if (!said || !m_reporter.expectEnd(p)) {
        return;
    }
    if (result.status == Evaluation::Status::unknown) {
        m_deferred.assertions.push_back({expression, std::move(*said)});
    } else if (result.status == Evaluation::Status::known && result.value == 0) {
        m_reporter.error(at, std::move(*said));
    }
}

} // namespace nesasm
